#ifndef GENERIC_UTILS_ERRSYSLOGSTRATEGY_H
#define GENERIC_UTILS_ERRSYSLOGSTRATEGY_H

#include <string>

#include <utils/errStrategy.h>
#include <utils/export.h>

namespace utils::err
{

/// Sends every older error to the system log while it lives. The application may call openlog();
/// the library does not.
class GENERIC_UTILS_EXPORT SysLogStrategy : public Err_Strategy
{
  public:
    SysLogStrategy();
    ~SysLogStrategy() override;

    SysLogStrategy(const SysLogStrategy&) = delete;
    SysLogStrategy& operator=(const SysLogStrategy&) = delete;

    /// Logs the error's text at the priority of its severity word. @return true
    bool processError(const Err_Error& error, bool recoverable) override;

    /// True.
    bool isInterested(const Err_Error& error, bool recoverable) const override;

    /// Sends one record to the system log; it ends at the text's first NUL character.
    /// @param severity a word in any letter case: "fatal" and "critical" are logged at LOG_CRIT,
    ///        "error" at LOG_ERR, "warning" at LOG_WARNING, "info" at LOG_INFO, "debug" at
    ///        LOG_DEBUG, and any other word at LOG_NOTICE
    /// @param text what is logged
    static void logMessage(const std::string& severity, const std::string& text);
};

}  // namespace utils::err

#endif
