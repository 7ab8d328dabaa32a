#ifndef GENERIC_UTILS_ERROR_SYSLOGSTRATEGY_H
#define GENERIC_UTILS_ERROR_SYSLOGSTRATEGY_H

#include <utils/error/Error.h>
#include <utils/export.h>
#include <utils/strategy/StrategyT.h>

namespace utils::error
{

/// Sends every error to the system log while it lives, at the priority of its severity: FATAL and
/// CRITICAL at LOG_CRIT, ERROR at LOG_ERR, WARNING at LOG_WARNING, INFO at LOG_INFO, anything else
/// at LOG_NOTICE. The application may call openlog(); the library does not.
class GENERIC_UTILS_EXPORT SysLogStrategy : public strategy::StrategyT<Error>
{
  public:
    SysLogStrategy();
    ~SysLogStrategy() override;

    /// True.
    bool isInterested(const Error& error) override;

    /// Logs the error's whole text as one record.
    void processClientObject(Error& error) override;
};

}  // namespace utils::error

#endif
