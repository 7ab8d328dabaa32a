#ifndef GENERIC_UTILS_ERRSTANDARDOUTSTRATEGY_H
#define GENERIC_UTILS_ERRSTANDARDOUTSTRATEGY_H

#include <utils/errStrategy.h>
#include <utils/export.h>

namespace utils::err
{

/// Writes every older error to the standard log stream (not to standard output, in spite of the
/// name) while it lives.
class GENERIC_UTILS_EXPORT StandardOutStrategy : public Err_Strategy
{
  public:
    StandardOutStrategy();
    ~StandardOutStrategy() override;

    StandardOutStrategy(const StandardOutStrategy&) = delete;
    StandardOutStrategy& operator=(const StandardOutStrategy&) = delete;

    /// Writes the error and an end of line to std::clog. @return true
    bool processError(const Err_Error& error, bool recoverable) override;

    /// True.
    bool isInterested(const Err_Error& error, bool recoverable) const override;
};

}  // namespace utils::err

#endif
