#include "StateMachine.h"

#include <cstddef>
#include <ostream>

#include <utils/flagTrace.h>
#include <utils/gsFlags.h>

namespace legacy_panel
{

namespace
{

using utils::flag::findGsFlag;
using utils::flag::Gs_Flags;

constexpr int LOWEST_READING = -60;  // dBm
constexpr int HIGHEST_READING = 0;
constexpr int STEP_DOWN = 20;  // dB

}  // namespace

std::ostream& operator<<(std::ostream& os, State state)
{
    constexpr const char* names[] = {"off", "searching", "measuring", "overloaded"};
    return os << names[static_cast<std::size_t>(state)];
}

StateMachine::StateMachine(Source& source, Detector& detector, Aspects& aspects)
    : m_source(source), m_detector(detector)
{
    detector.attach(this, &StateMachine::judge, &aspects.level, STATE_NEXT);
}

StateMachine::~StateMachine()
{
    m_detector.detachAll(this);
}

void StateMachine::tick()
{
    ++m_tick;
    GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceStateMachineSteps), 2,
                              "Tick " << m_tick << " in state '" << m_state << "'.");
    if (isOverloadedTooLong())
    {
        // The new level goes through the chain, and comes back here through judge().
        m_source.setLevel(m_source.getLevel() - STEP_DOWN);
    }
}

void StateMachine::judge()
{
    enter(findState());
}

State StateMachine::findState() const
{
    if (!m_source.isOn())
    {
        return State::OFF;
    }
    const int reading = m_detector.getReading();
    if (reading < LOWEST_READING)
    {
        return State::SEARCHING;
    }
    return reading > HIGHEST_READING ? State::OVERLOADED : State::MEASURING;
}

void StateMachine::enter(State state)
{
    if (state == m_state)
    {
        return;
    }
    GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceStateMachineSteps), 1,
                              "Leaving state '" << m_state << "' for '" << state << "'.");
    m_state = state;
    m_tickOfEntry = m_tick;
    notify(m_defaultAspectPtr);
}

bool StateMachine::isOverloadedTooLong() const
{
    const Gs_Flags& flags = *utils::Std_Singleton<Gs_Flags>::getInstancePtr();
    const long ticksInState = m_tick - m_tickOfEntry;
    const long timeInState = ticksInState * flags.m_defaultStateMachineTickInMs();
    return m_state == State::OVERLOADED &&
           timeInState >= flags.m_defaultStateMachineTimeInStateInMs();
}

}  // namespace legacy_panel
