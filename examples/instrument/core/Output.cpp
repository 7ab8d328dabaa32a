#include "core/Output.h"

#include <utils/flag/Trace.h>

#include "core/Flags.h"

namespace instrument
{

namespace
{

constexpr int PRIORITY = 0;

}  // namespace

Output::Output(Interlocks& interlocks) : m_interlocks(interlocks)
{
    m_interlocks.getTrippedEvent().registerInterest(this, PRIORITY);
}

Output::~Output()
{
    m_interlocks.getTrippedEvent().unregisterInterest(this, PRIORITY);
}

bool Output::switchOn()
{
    if (!m_interlocks.findTripped().empty())
    {
        return false;
    }
    m_isOn = true;
    GENERIC_UTILS_TRACE_STEP(1, "Output is on.");
    return true;
}

void Output::switchOff()
{
    m_isOn = false;
    GENERIC_UTILS_TRACE_STEP(1, "Output is off.");
}

void Output::notify(void*)
{
    if (m_isOn)
    {
        GENERIC_UTILS_TRACE_STEP(1, "Output is switched off by an interlock.");
        m_isOn = false;
    }
}

}  // namespace instrument
