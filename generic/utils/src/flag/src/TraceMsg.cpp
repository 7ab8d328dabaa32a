#include <utils/flag/TraceMsg.h>

#include <ctime>
#include <ostream>

#include <libstd/system.h>
#include <utils/flag/DefaultStrategy.h>
#include <utils/flag/Flags.h>
#include <utils/flag/Trace.h>

#include "internal/TextOutput.h"

namespace utils::strategy
{
template class StrategyT<flag::TraceMsg>;
}

namespace utils::flag
{

// Never destroyed: static destructors and threads that outlive it still trace.
const std::string& TraceMsg::STRATEGY_TYPE = *new std::string("Trace");

namespace
{

// Registered while the library is loaded, and after the strategy type above.
[[maybe_unused]] const DefaultStrategy* const theDefaultStrategyPtr =
    singleton::SingletonT<DefaultStrategy>::getInstancePtr();

// What utils::flag::m_enableTraceMsgHeaders means while that flag does not exist yet.
constexpr int NO_FULL_HEADERS = -1;

int highestLevelWithFullHeader()
{
    const Flags* const flags = findFlags<Flags>();
    return flags == nullptr ? NO_FULL_HEADERS : flags->m_enableTraceMsgHeaders();
}

std::string currentTime()
{
    return std::dateTimeToStr(std::time(nullptr));
}

}  // namespace

TraceMsg::TraceMsg(const FlagT<int>& traceLevel, int messageLevel, const char* file, int line,
                   const char* function)
    : m_traceLevelPtr(&traceLevel),
      m_messageLevel(messageLevel),
      m_location(toText(file, "/", line, "/", function, ":\n"))
{
    m_stream.imbue(std::locale::classic());
    if (file == nullptr || function == nullptr)
    {
        m_stream.setstate(std::ios_base::badbit);
    }
}

TraceMsg::~TraceMsg() = default;

void TraceMsg::output(std::ostream& os)
{
    writeText(os, m_stream.view());
}

std::ostream& TraceMsg::header(std::ostream& os)
{
    if (isHeaderFull())
    {
        writeText(os,
                  toText("!TRACE (", m_traceLevelPtr->getName(), " = ", m_traceLevelPtr->getValue(),
                         "; trace level = ", m_messageLevel, ") by ", std::getUserName(), " on ",
                         currentTime(), ".\nGenerated from ", m_location));
    }
    else
    {
        writeText(os, currentTime() + ": ");
    }
    return os;
}

bool TraceMsg::isHeaderFull() const
{
    const int highest = highestLevelWithFullHeader();
    return m_messageLevel <= highest || highest == 0;
}

std::ostream& operator<<(std::ostream& os, const TraceMsg& traceMsg)
{
    const_cast<TraceMsg&>(traceMsg).output(os);
    return os;
}

}  // namespace utils::flag
