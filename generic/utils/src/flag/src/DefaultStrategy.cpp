#include <utils/flag/DefaultStrategy.h>

#include "internal/LogStream.h"

namespace utils::singleton
{
template class SingletonT<flag::DefaultStrategy>;
}

namespace utils::flag
{

DefaultStrategy::DefaultStrategy()
    : StrategyT(TraceMsg::STRATEGY_TYPE, "Default Trace Message Strategy", true)
{
}

DefaultStrategy::~DefaultStrategy() = default;

bool DefaultStrategy::isInterested(const TraceMsg&)
{
    return false;
}

void DefaultStrategy::processClientObject(TraceMsg& traceMsg)
{
    writeToLog(traceMsg);
}

}  // namespace utils::flag
