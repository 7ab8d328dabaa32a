#include <utils/error/SysLogStrategy.h>

#include "internal/SystemLog.h"
#include "internal/TextOutput.h"

namespace utils::error
{

SysLogStrategy::SysLogStrategy() : StrategyT(Error::STRATEGY_TYPE, "SysLog", false) {}

SysLogStrategy::~SysLogStrategy() = default;

bool SysLogStrategy::isInterested(const Error&)
{
    return true;
}

void SysLogStrategy::processClientObject(Error& error)
{
    writeToSystemLog(Error::severityToString(error.getSeverity()), textOf(error));
}

}  // namespace utils::error
