#ifndef GENERIC_UTILS_FLAGTRACEMSG_H
#define GENERIC_UTILS_FLAGTRACEMSG_H

#include <memory>
#include <sstream>
#include <string>

#include <utils/export.h>
#include <utils/flagFlag.h>

namespace utils::flag
{

/// One trace message of the older kind: a header and words, delivered to the Flag_TraceStrategy
/// objects. New code uses the macros of <utils/flag/Trace.h>.
///
/// Call sites do not use this class directly: the macro of <utils/flagTrace.h> tests the level,
/// builds the message and delivers it. Strategies get to see it.
///
/// Thread safety: a message belongs to one thread at a time.
class GENERIC_UTILS_EXPORT Flag_TraceMsg
{
  public:
    /// An empty message.
    /// @param flag the flag that governs it; its name must outlive the message, and its value is
    ///        copied: later changes of the flag do not reach the message
    /// @param traceLevel 1 for ordinary steps, higher numbers for more detail
    Flag_TraceMsg(const Flag_Flag<int>& flag, int traceLevel);

    virtual ~Flag_TraceMsg();

    Flag_TraceMsg(const Flag_TraceMsg&) = delete;
    Flag_TraceMsg& operator=(const Flag_TraceMsg&) = delete;

    /// The text so far, to be written to; made by the first call.
    std::ostringstream& getStream();

    /// The text so far, NUL characters included.
    std::string getString() const;

    /// The name of the flag.
    const std::string& getName() const { return *m_namePtr; }

    /// Whether the message's level is within the flag's value at construction and the master
    /// switch Flag_Flags::m_traceMsgActive is on.
    bool isActive() const;

    /// Whether a strategy is interested; also true while none is registered.
    bool isAnyInterested() const;

    /// Hands the message to every interested strategy, in the order of their registration; while
    /// none is registered, to Flag_TraceStrategy::defaultProcessTrace().
    void notifyStrategies() const;

    /// Writes the header that Flag_Flags::m_traceMsgHeaderActive asks for: the time, or two lines
    /// with flag, levels, user, time and place.
    /// @param file,line,function the place; a null text ends the full header and puts the stream
    ///        into its bad state
    void addHeader(const char* file, int line, const char* function);

  private:
    friend class Flag_TraceCallSite;

    GENERIC_UTILS_LOCAL Flag_TraceMsg(const std::string& name, int currLevel, int traceLevel);

    GENERIC_UTILS_LOCAL bool isHeaderFull() const;

    const std::string* m_namePtr;
    int m_currLevel;
    int m_traceLevel;
    std::unique_ptr<std::ostringstream> m_streamPtr;
};

}  // namespace utils::flag

#endif
