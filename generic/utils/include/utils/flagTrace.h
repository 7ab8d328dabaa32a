#ifndef GENERIC_UTILS_FLAGTRACE_H
#define GENERIC_UTILS_FLAGTRACE_H

#include <atomic>
#include <iosfwd>
#include <memory>

#include <utils/SourceLocation.h>
#include <utils/export.h>
#include <utils/flag/Trace.h>
#include <utils/flagFlag.h>
#include <utils/flagTraceMsg.h>
#include <utils/gsFlags.h>
#include <utils/stdSingleton.h>

/// @file
/// How a call site of the older generation traces:
///
///     GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceTimerSteps), 1,
///                               "Starting timer " << name);
///
/// The words are evaluated, and the message built, only when the flag is at least the message's
/// level, the master switch Flag_Flags::m_traceMsgActive is on, and a strategy is interested. The
/// message of a call site is built once, with the flag's value of that moment, and lives as long
/// as the process. Several threads may pass a call site at once, and a strategy may come by it
/// again: messages stay whole and nobody waits.

namespace utils::flag
{

/// The older flag collection `Collection`, created on first use. Null only for a strategy that
/// runs because of a failure inside a flag's constructor, while the collection does not exist:
/// creating it then would construct the same flags twice.
template <typename Collection>
const Collection* findOlderFlags()
{
    static std::atomic<const Collection*> known{nullptr};
    const Collection* collection = known.load(std::memory_order_acquire);
    if (collection == nullptr && !isInsideFlagConstruction())
    {
        collection = Std_Singleton<Collection>::getInstancePtr();
        known.store(collection, std::memory_order_release);
    }
    return collection;
}

/// A flag of Gs_Flags, or null as for findOlderFlags().
template <typename T>
const Flag_Flag<T>* findGsFlag(Flag_Flag<T> Gs_Flags::*member)
{
    const auto* const flags = findOlderFlags<Gs_Flags>();
    return flags == nullptr ? nullptr : &(flags->*member);
}

/// Whether the master switch Flag_Flags::m_traceMsgActive is on.
GENERIC_UTILS_EXPORT bool isOlderTracingEnabled();

/// Whether an older message of this level is to be traced.
inline bool isTraced(const Flag_Flag<int>* flagPtr, int traceLevel)
{
    return flagPtr != nullptr && readValue(*flagPtr) >= traceLevel && isOlderTracingEnabled();
}

/// The place of an older trace, and its message. A static object of constant initialisation, one a
/// call site.
class GENERIC_UTILS_EXPORT Flag_TraceCallSite
{
  public:
    /// The place and the level of every message that is traced here.
    constexpr Flag_TraceCallSite(const SourceLocation& location, int traceLevel)
        : m_location(location), m_traceLevel(traceLevel)
    {
    }

    /// The call site's message, claimed for one emission; null when it is claimed already.
    Flag_TraceMsg* claim(const Flag_Flag<int>& flag);

    /// Ends a claim.
    void release();

    /// Builds a message for this place that is like the call site's own.
    std::unique_ptr<Flag_TraceMsg> makeMessage(const Flag_Flag<int>& flag) const;

    /// The place.
    const SourceLocation& getLocation() const { return m_location; }

  private:
    SourceLocation m_location;
    int m_traceLevel;
    std::atomic<bool> m_isClaimed{false};
    std::atomic<Flag_TraceMsg*> m_messagePtr{nullptr};  // set once; its text belongs to the claim
};

/// One emission: construct it, and when somebody is interested, write the words into what begin()
/// returns, and deliver().
class GENERIC_UTILS_EXPORT Flag_TraceEmission
{
  public:
    /// Claims the call site's message; when another emission has it, builds one for itself.
    Flag_TraceEmission(Flag_TraceCallSite& callSite, const Flag_Flag<int>& flag);

    /// Ends the claim.
    ~Flag_TraceEmission();

    Flag_TraceEmission(const Flag_TraceEmission&) = delete;
    Flag_TraceEmission& operator=(const Flag_TraceEmission&) = delete;

    /// Whether any strategy wants the message, or none is registered.
    bool isAnyInterested() const { return m_messagePtr->isAnyInterested(); }

    /// Empties the message and writes the header.
    /// @return where the words go
    std::ostream& begin();

    /// Ends the words with a new-line and hands the message to the strategies.
    void deliver();

  private:
    Flag_TraceCallSite& m_callSite;
    Flag_TraceMsg* m_claimedPtr;
    std::unique_ptr<Flag_TraceMsg> m_ownMessagePtr;
    Flag_TraceMsg* m_messagePtr;
};

}  // namespace utils::flag

/// Traces at a given place.
/// @param location a utils::SourceLocation, constant
/// @param levelFlagPtr the governing flag, a const Flag_Flag<int>* (null: no trace); the same one
///        whenever the call site is passed
/// @param traceLevel constant; the message is emitted when the flag is at least this high
/// @param ... the words, joined by <<; no end of line
#define GENERIC_UTILS_OLDER_TRACE_AT(location, levelFlagPtr, traceLevel, ...)                    \
    do                                                                                           \
    {                                                                                            \
        const ::utils::flag::Flag_Flag<int>* const genericUtilsFlagPtr = levelFlagPtr;           \
        if (__builtin_expect(::utils::flag::isTraced(genericUtilsFlagPtr, traceLevel), 0))       \
        {                                                                                        \
            static ::utils::flag::Flag_TraceCallSite genericUtilsCallSite(location, traceLevel); \
            ::utils::flag::Flag_TraceEmission genericUtilsEmission(genericUtilsCallSite,         \
                                                                   *genericUtilsFlagPtr);        \
            if (genericUtilsEmission.isAnyInterested())                                          \
            {                                                                                    \
                genericUtilsEmission.begin() << __VA_ARGS__;                                     \
                genericUtilsEmission.deliver();                                                  \
            }                                                                                    \
        }                                                                                        \
    } while (false)

/// Traces here; see GENERIC_UTILS_OLDER_TRACE_AT.
#define GENERIC_UTILS_OLDER_TRACE(levelFlagPtr, traceLevel, ...) \
    GENERIC_UTILS_OLDER_TRACE_AT(GENERIC_UTILS_HERE, levelFlagPtr, traceLevel, __VA_ARGS__)

#endif
