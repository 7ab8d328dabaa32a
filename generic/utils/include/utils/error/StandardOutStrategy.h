#ifndef GENERIC_UTILS_ERROR_STANDARDOUTSTRATEGY_H
#define GENERIC_UTILS_ERROR_STANDARDOUTSTRATEGY_H

#include <utils/error/Error.h>
#include <utils/export.h>
#include <utils/strategy/StrategyT.h>

namespace utils::error
{

/// Writes every error to the standard log stream (not to standard output, in spite of the name)
/// while it lives.
class GENERIC_UTILS_EXPORT StandardOutStrategy : public strategy::StrategyT<Error>
{
  public:
    StandardOutStrategy();
    ~StandardOutStrategy() override;

    /// True.
    bool isInterested(const Error& error) override;

    /// Writes the error and an end of line to std::clog.
    void processClientObject(Error& error) override;
};

}  // namespace utils::error

#endif
