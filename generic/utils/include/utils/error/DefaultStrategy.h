#ifndef GENERIC_UTILS_ERROR_DEFAULTSTRATEGY_H
#define GENERIC_UTILS_ERROR_DEFAULTSTRATEGY_H

#include <utils/error/Error.h>
#include <utils/export.h>
#include <utils/singleton/SingletonT.h>
#include <utils/strategy/StrategyT.h>

namespace utils::error
{

/// What happens to errors while the application has no error strategy of its own: they are written
/// to the standard log stream. The one instance is created when the library is loaded.
class GENERIC_UTILS_EXPORT DefaultStrategy : public strategy::StrategyT<Error>
{
  public:
    DefaultStrategy();
    ~DefaultStrategy() override;

    /// False: it speaks only as the default.
    bool isInterested(const Error& error) override;

    /// Writes the error and an end of line to std::clog.
    void processClientObject(Error& error) override;
};

}  // namespace utils::error

namespace utils::singleton
{
extern template class SingletonT<utils::error::DefaultStrategy>;
}  // namespace utils::singleton

#endif
