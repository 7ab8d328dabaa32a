#include <utils/error/SysLogStrategy.h>

#include <sstream>

#include "internal/SystemLog.h"

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
    std::ostringstream text;
    error.output(text);
    writeToSystemLog(Error::severityToString(error.getSeverity()), text.str());
}

}  // namespace utils::error
