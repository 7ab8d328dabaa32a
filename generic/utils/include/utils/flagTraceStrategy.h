#ifndef GENERIC_UTILS_FLAGTRACESTRATEGY_H
#define GENERIC_UTILS_FLAGTRACESTRATEGY_H

#include <list>
#include <string>

#include <utils/export.h>
#include <utils/flagTraceMsg.h>
#include <utils/stdSingleton.h>

namespace utils::flag
{

/// A handler of the older traces.
///
/// A strategy is registered while it lives, behind those registered before it. The list is
/// Std_Singleton<std::list<Flag_TraceStrategy*>>; strategies are not owned.
///
/// The operations run on the calling thread of the trace, with no lock held (but for the trace of
/// a Gs_Singleton's creation, which comes with the lock of Gs_Singleton). They may use the whole
/// library, trace themselves, and end or register strategies; one that is registered during a
/// delivery gets to see the next message.
///
/// Thread safety: strategies are constructed and destroyed by one controlling thread while no
/// other thread traces. Delivery itself may run on any number of threads.
class GENERIC_UTILS_EXPORT Flag_TraceStrategy
{
  public:
    /// Registers the strategy. @param name for people
    explicit Flag_TraceStrategy(const std::string& name);

    /// Unregisters the strategy.
    virtual ~Flag_TraceStrategy();

    /// Handles one message, which lives for the time of the call.
    virtual void processTrace(const Flag_TraceMsg& traceMsg) = 0;

    /// Whether processTrace() is to be called. Asked before the message's text is written, and
    /// again when it is delivered.
    virtual bool isInterested(const Flag_TraceMsg& traceMsg) = 0;

    /// Unregisters the strategy, however often it is listed; nothing happens when it is not.
    virtual void cleanUp();

    Flag_TraceStrategy(const Flag_TraceStrategy&) = delete;
    Flag_TraceStrategy& operator=(const Flag_TraceStrategy&) = delete;

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// What happens to traces while no strategy is registered: the text and an end of line are
    /// written to std::clog.
    static void defaultProcessTrace(const Flag_TraceMsg& traceMsg);

  private:
    std::string m_name;
};

}  // namespace utils::flag

namespace utils
{
extern template class Std_Singleton<std::list<flag::Flag_TraceStrategy*>>;
}  // namespace utils

#endif
