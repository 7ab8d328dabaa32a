#include <utils/flagTraceStrategy.h>

#include "internal/LogStream.h"
#include "internal/OlderStrategies.h"

namespace utils
{
template class Std_Singleton<std::list<flag::Flag_TraceStrategy*>>;
}

namespace utils::flag
{

Flag_TraceStrategy::Flag_TraceStrategy(const std::string& name) : m_name(name)
{
    OlderStrategies<Flag_TraceStrategy>().add(this);
}

Flag_TraceStrategy::~Flag_TraceStrategy()
{
    Flag_TraceStrategy::cleanUp();
}

void Flag_TraceStrategy::cleanUp()
{
    OlderStrategies<Flag_TraceStrategy>().remove(this);
}

void Flag_TraceStrategy::defaultProcessTrace(const Flag_TraceMsg& traceMsg)
{
    writeLogLine(traceMsg.getString());
}

}  // namespace utils::flag
