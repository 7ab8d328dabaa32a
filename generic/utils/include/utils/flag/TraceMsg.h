#ifndef GENERIC_UTILS_FLAG_TRACEMSG_H
#define GENERIC_UTILS_FLAG_TRACEMSG_H

#include <iosfwd>
#include <sstream>
#include <string>

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/strategy/StrategyT.h>

namespace utils::flag
{

/// One trace message: a header and words, delivered to the strategies of type STRATEGY_TYPE.
///
/// Call sites do not use this class directly: the macros of <utils/flag/Trace.h> test the level,
/// build the message and deliver it. Strategies get to see it.
///
/// Thread safety: a message belongs to one thread at a time.
class GENERIC_UTILS_EXPORT TraceMsg
{
  public:
    /// "Trace": the strategy type under which trace messages are delivered.
    static const std::string& STRATEGY_TYPE;

    /// An empty message.
    /// @param traceLevel the flag that governs it; must outlive the message
    /// @param messageLevel 1 for ordinary steps, higher numbers for more detail
    /// @param file,line,function the place; a null text puts the stream into its bad state
    TraceMsg(const FlagT<int>& traceLevel, int messageLevel, const char* file, int line,
             const char* function);

    virtual ~TraceMsg();

    /// Writes the message's text so far, nothing else.
    virtual void output(std::ostream& os);

    TraceMsg(const TraceMsg&) = delete;
    TraceMsg& operator=(const TraceMsg&) = delete;

    /// The text so far, to be written to.
    std::ostringstream& getStream() { return m_stream; }

    /// Writes the header that flag utils::flag::m_enableTraceMsgHeaders asks for: the time, or
    /// three parts with flag, level, user, time and place.
    /// @return `os`
    std::ostream& header(std::ostream& os);

  private:
    GENERIC_UTILS_LOCAL bool isHeaderFull() const;

    std::ostringstream m_stream;
    const FlagT<int>* m_traceLevelPtr;
    int m_messageLevel;
    std::string m_location;
};

/// Writes the message through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const TraceMsg& traceMsg);

}  // namespace utils::flag

namespace utils::strategy
{
extern template class StrategyT<utils::flag::TraceMsg>;
}  // namespace utils::strategy

#endif
