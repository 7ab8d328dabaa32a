#include <utils/errSysLogStrategy.h>

#include "internal/SystemLog.h"

namespace utils::err
{

SysLogStrategy::SysLogStrategy() : Err_Strategy("SysLog") {}

SysLogStrategy::~SysLogStrategy() = default;

bool SysLogStrategy::processError(const Err_Error& error, bool)
{
    logMessage(error.getSeverityStr(), error.getString());
    return true;
}

bool SysLogStrategy::isInterested(const Err_Error&, bool) const
{
    return true;
}

void SysLogStrategy::logMessage(const std::string& severity, const std::string& text)
{
    writeToSystemLog(severity, text);
}

}  // namespace utils::err
