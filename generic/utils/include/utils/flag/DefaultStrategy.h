#ifndef GENERIC_UTILS_FLAG_DEFAULTSTRATEGY_H
#define GENERIC_UTILS_FLAG_DEFAULTSTRATEGY_H

#include <utils/export.h>
#include <utils/flag/TraceMsg.h>
#include <utils/singleton/SingletonT.h>
#include <utils/strategy/StrategyT.h>

namespace utils::flag
{

/// What happens to traces while the application has no trace strategy of its own: they are written
/// to the standard log stream. The one instance is created when the library is loaded.
class GENERIC_UTILS_EXPORT DefaultStrategy : public strategy::StrategyT<TraceMsg>
{
  public:
    DefaultStrategy();
    ~DefaultStrategy() override;

    /// False: it speaks only as the default.
    bool isInterested(const TraceMsg& traceMsg) override;

    /// Writes the message and an end of line to std::clog.
    void processClientObject(TraceMsg& traceMsg) override;
};

}  // namespace utils::flag

namespace utils::singleton
{
extern template class SingletonT<utils::flag::DefaultStrategy>;
}  // namespace utils::singleton

#endif
