#ifndef LEGACY_PANEL_STATEMACHINE_H
#define LEGACY_PANEL_STATEMACHINE_H

#include <iosfwd>
#include <string>

#include <utils/gsObserver.h>
#include <utils/gsSubject.h>

#include "Aspects.h"
#include "Detector.h"
#include "Source.h"

namespace legacy_panel
{

/// What the receiver is doing.
enum class State
{
    OFF,
    SEARCHING,
    MEASURING,
    OVERLOADED
};

/// "off" and so on.
std::ostream& operator<<(std::ostream& os, State state);

/// Knows what the receiver is doing, judged by the detector's reading.
///
/// Overloaded for too long, it turns the source down. Time is counted in ticks: flag
/// Gs_Flags::m_defaultStateMachineTickInMs says how long one is, and
/// m_defaultStateMachineTimeInStateInMs how long is too long.
///
/// Steps are traced with flag Gs_Flags::m_traceStateMachineSteps: changes of the state at level 1,
/// ticks at level 2. Observers are told about the default aspect.
class StateMachine : public utils::Gs_Subject, public utils::Gs_Observer
{
  public:
    StateMachine(Source& source, Detector& detector, Aspects& aspects);
    ~StateMachine() override;

    StateMachine(const StateMachine&) = delete;
    StateMachine& operator=(const StateMachine&) = delete;

    /// Lets the time of one tick pass.
    void tick();

    State getState() const { return m_state; }

    /// How many ticks have passed.
    unsigned int getTick() const override { return m_tick; }

    // Both bases have these.
    const std::string& getName() const override { return m_name; }
    void output(std::ostream& os) const override { Gs_Subject::output(os); }

  private:
    void judge();
    State findState() const;
    void enter(State state);
    bool isOverloadedTooLong() const;

    const std::string m_name = "state machine";
    Source& m_source;
    Detector& m_detector;
    State m_state = State::OFF;
    unsigned int m_tick = 0;
    unsigned int m_tickOfEntry = 0;
};

}  // namespace legacy_panel

#endif
