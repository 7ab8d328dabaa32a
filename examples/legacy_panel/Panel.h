#ifndef LEGACY_PANEL_PANEL_H
#define LEGACY_PANEL_PANEL_H

#include <string>

#include <utils/gsObserver.h>

#include "Aspects.h"
#include "Detector.h"
#include "Source.h"
#include "StateMachine.h"

namespace legacy_panel
{

/// The text of the front panel. An observer only; each of its three fields is brought up to date by
/// a function of its own.
class Panel : public utils::Gs_Observer
{
  public:
    Panel(Source& source, Detector& detector, StateMachine& machine, Aspects& aspects);
    ~Panel() override;

    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    /// One line, without an end.
    std::string getText() const;

    /// Called when the state has changed: the machine's observers are attached without a function
    /// of their own.
    void update() override;

    const std::string& getName() const override { return m_name; }

  private:
    void showFrequency();
    void showReading();

    const std::string m_name = "panel";
    Source& m_source;
    Detector& m_detector;
    StateMachine& m_machine;
    std::string m_frequency;
    std::string m_reading;
    State m_state = State::OFF;
};

}  // namespace legacy_panel

#endif
