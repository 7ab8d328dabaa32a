#include "core/Interlocks.h"

#include <utility>

#include <utils/flag/Trace.h>
#include <utils/logexp/LogExp.h>

#include "core/Flags.h"

namespace instrument
{

using utils::logexp::LogExp;

Interlocks::Interlocks(const std::vector<StateConfiguration>& states,
                       std::vector<InterlockConfiguration> interlocks)
    : m_interlocks(std::move(interlocks))
{
    for (const StateConfiguration& state : states)
    {
        m_states[state.name] = state.isSet;
    }
}

std::vector<std::string> Interlocks::getStateNames() const
{
    std::vector<std::string> names;
    for (const auto& [name, isSet] : m_states)
    {
        names.push_back(name);
    }
    return names;
}

std::optional<bool> Interlocks::getState(const std::string& name) const
{
    const auto found = m_states.find(name);
    return found == m_states.end() ? std::nullopt : std::optional<bool>(found->second);
}

bool Interlocks::setState(const std::string& name, bool isSet)
{
    const auto found = m_states.find(name);
    if (found == m_states.end())
    {
        return false;
    }
    found->second = isSet;
    GENERIC_UTILS_TRACE_STEP(1, "State '" << name << "' = " << isSet << ".");
    if (!findTripped().empty())
    {
        m_trippedEvent.notify(nullptr);
    }
    return true;
}

std::vector<std::string> Interlocks::findTripped() const
{
    std::vector<std::string> names;
    for (const InterlockConfiguration& interlock : m_interlocks)
    {
        if (LogExp::evaluate(interlock.expression, m_states))
        {
            names.push_back(interlock.name);
        }
    }
    return names;
}

}  // namespace instrument
