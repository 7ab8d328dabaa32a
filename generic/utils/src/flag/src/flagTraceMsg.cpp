#include <utils/flagTraceMsg.h>

#include <ctime>

#include <utils/flagFlags.h>
#include <utils/flagTrace.h>
#include <utils/flagTraceStrategy.h>
#include <utils/llsCalendarTime.h>
#include <utils/llsUser.h>

#include "internal/OlderStrategies.h"
#include "internal/TextOutput.h"

namespace utils::flag
{

namespace
{

// What Flag_Flags::m_traceMsgHeaderActive means while that flag does not exist yet.
constexpr int NO_FULL_HEADERS = -1;

int highestLevelWithFullHeader()
{
    const auto* const flags = findOlderFlags<Flag_Flags>();
    return flags == nullptr ? NO_FULL_HEADERS : readValue(flags->m_traceMsgHeaderActive);
}

std::string currentTime()
{
    return Lls_CalendarTime(std::time(nullptr)).getStr();
}

}  // namespace

Flag_TraceMsg::Flag_TraceMsg(const Flag_Flag<int>& flag, int traceLevel)
    : Flag_TraceMsg(flag.getName(), readValue(flag), traceLevel)
{
}

Flag_TraceMsg::Flag_TraceMsg(const std::string& name, int currLevel, int traceLevel)
    : m_namePtr(&name), m_currLevel(currLevel), m_traceLevel(traceLevel)
{
}

Flag_TraceMsg::~Flag_TraceMsg() = default;

std::ostringstream& Flag_TraceMsg::getStream()
{
    if (m_streamPtr == nullptr)
    {
        m_streamPtr = std::make_unique<std::ostringstream>();
        m_streamPtr->imbue(std::locale::classic());
    }
    return *m_streamPtr;
}

std::string Flag_TraceMsg::getString() const
{
    return m_streamPtr == nullptr ? std::string() : m_streamPtr->str();
}

bool Flag_TraceMsg::isActive() const
{
    return m_traceLevel <= m_currLevel && isOlderTracingEnabled();
}

bool Flag_TraceMsg::isAnyInterested() const
{
    const OlderStrategies<Flag_TraceStrategy> strategies;
    return strategies.isEmpty() || strategies.any([this](Flag_TraceStrategy& strategy)
                                                  { return strategy.isInterested(*this); });
}

void Flag_TraceMsg::notifyStrategies() const
{
    const OlderStrategies<Flag_TraceStrategy> strategies;
    if (strategies.isEmpty())
    {
        Flag_TraceStrategy::defaultProcessTrace(*this);
        return;
    }
    strategies.forEach(
        [this](Flag_TraceStrategy& strategy)
        {
            if (strategy.isInterested(*this))
            {
                strategy.processTrace(*this);
            }
        });
}

void Flag_TraceMsg::addHeader(const char* file, int line, const char* function)
{
    std::ostringstream header;
    header.imbue(std::locale::classic());
    if (isHeaderFull())
    {
        header << "!(TRACE Name=" << *m_namePtr << " CurrLevel=" << m_currLevel
               << " TraceLevel=" << m_traceLevel << " ) by " << Lls_User().getName() << " on "
               << currentTime() << "\nGenerated from " << file << "/" << line << "/" << function
               << ":\n";
    }
    else
    {
        header << currentTime() << ": ";
    }
    writeText(getStream(), header.view());
    getStream().setstate(header.rdstate());
}

bool Flag_TraceMsg::isHeaderFull() const
{
    const int highest = highestLevelWithFullHeader();
    return m_traceLevel <= highest || highest == 0;
}

}  // namespace utils::flag
