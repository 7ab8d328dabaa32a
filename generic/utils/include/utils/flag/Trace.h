#ifndef GENERIC_UTILS_FLAG_TRACE_H
#define GENERIC_UTILS_FLAG_TRACE_H

#include <atomic>
#include <memory>
#include <sstream>

#include <utils/SourceLocation.h>
#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/flag/TraceMsg.h>
#include <utils/singleton/SingletonT.h>

/// @file
/// How a call site traces.
///
/// A subsystem has a class Flags in its namespace, with a FlagT<int> named m_traceSteps. A step is
/// then traced by one statement:
///
///     GENERIC_UTILS_TRACE_STEP(1, "Opening '" << name << "'.");
///
/// The words are evaluated, and the message built, only when m_traceSteps is at least the
/// message's level and the master switch utils::flag::m_enableTraceMsgs is on; otherwise the
/// statement costs the reading of one flag. The message of a call site is built once and lives as
/// long as the process. Several threads may pass a call site at once, and a strategy may come by
/// it again: messages stay whole and nobody waits.

namespace utils::flag
{

/// Whether the calling thread is inside the constructor of a flag at a point where strategies may
/// run.
GENERIC_UTILS_EXPORT bool isInsideFlagConstruction();

/// Whether the master switch utils::flag::m_enableTraceMsgs is on.
GENERIC_UTILS_EXPORT bool isTracingEnabled();

/// The flag collection `Collection` as findFlags() knows it; null until it does. Every shared object
/// remembers for itself, hence reads it without an indirection.
template <typename Collection>
[[gnu::visibility("hidden")]] inline std::atomic<Collection*> knownFlags{nullptr};

/// The slow path of findFlags(), kept out of line so that the quick one is inlined.
template <typename Collection>
[[gnu::visibility("hidden"), gnu::noinline, gnu::cold]] Collection* createFlags()
{
    if (isInsideFlagConstruction())
    {
        return nullptr;
    }
    Collection* const collection = singleton::SingletonT<Collection>::getInstancePtr();
    knownFlags<Collection>.store(collection, std::memory_order_release);
    return collection;
}

/// The flag collection `Collection`, created on first use. Null only for a strategy that runs
/// because of a failure inside a flag's constructor, while the collection does not exist: creating
/// it then would construct the same flags twice.
template <typename Collection>
[[gnu::visibility("hidden")]] Collection* findFlags()
{
    Collection* const collection = knownFlags<Collection>.load(std::memory_order_acquire);
    return collection != nullptr ? collection : createFlags<Collection>();
}

/// The trace level of a collection, or null as for findFlags().
template <typename Collection>
[[gnu::visibility("hidden")]] const FlagT<int>* findTraceSteps()
{
    const Collection* const collection = findFlags<Collection>();
    return collection == nullptr ? nullptr : &collection->m_traceSteps;
}

/// @name The governing flag of a trace, given by pointer (null: no trace) or by reference.
/// @{

/// The same pointer.
inline const FlagT<int>* toFlagPtr(const FlagT<int>* flagPtr)
{
    return flagPtr;
}

/// A pointer to the flag.
inline const FlagT<int>* toFlagPtr(const FlagT<int>& flag)
{
    return &flag;
}
/// @}

/// Whether a message of this level is to be traced.
inline bool isTraced(const FlagT<int>* flagPtr, int messageLevel)
{
    return flagPtr != nullptr && flagPtr->getValue() >= messageLevel && isTracingEnabled();
}

/// The place of a trace, and its message. A static object of constant initialisation, one a call
/// site.
class GENERIC_UTILS_EXPORT TraceCallSite
{
  public:
    /// The place and the level of every message that is traced here.
    constexpr TraceCallSite(const SourceLocation& location, int messageLevel)
        : m_location(location), m_messageLevel(messageLevel)
    {
    }

    /// Builds a message of its own for this place.
    std::unique_ptr<TraceMsg> makeMessage(const FlagT<int>& flag) const;

    /// The call site's message, claimed for one emission; null when it is claimed already.
    TraceMsg* claim(const FlagT<int>& flag);

    /// Ends a claim.
    void release();

  private:
    SourceLocation m_location;
    int m_messageLevel;
    std::atomic<bool> m_isClaimed{false};
    TraceMsg* m_messagePtr = nullptr;  // belongs to whoever holds the claim
};

/// One emission: construct it, write the words into what begin() returns, deliver().
class GENERIC_UTILS_EXPORT TraceEmission
{
  public:
    /// Claims the call site's message; when another emission has it, builds one for itself.
    TraceEmission(TraceCallSite& callSite, const FlagT<int>& flag);

    /// Ends the claim.
    ~TraceEmission();

    TraceEmission(const TraceEmission&) = delete;
    TraceEmission& operator=(const TraceEmission&) = delete;

    /// Empties the message and writes the header.
    /// @return where the words go
    std::ostream& begin();

    /// Hands the message to the strategies.
    void deliver();

  private:
    TraceCallSite& m_callSite;
    TraceMsg* m_claimedPtr;
    std::unique_ptr<TraceMsg> m_ownMessagePtr;
    TraceMsg* m_messagePtr;
};

}  // namespace utils::flag

/// Traces at a given place.
/// @param location a utils::SourceLocation, constant
/// @param levelFlag the governing flag, a FlagT<int> by reference or by pointer (null: no trace);
///        the same one whenever the call site is passed
/// @param messageLevel constant; the message is emitted when the flag is at least this high
/// @param ... the words, joined by <<; no end of line
#define GENERIC_UTILS_TRACE_AT(location, levelFlag, messageLevel, ...)                        \
    do                                                                                        \
    {                                                                                         \
        const ::utils::flag::FlagT<int>* const genericUtilsFlagPtr =                          \
            ::utils::flag::toFlagPtr(levelFlag);                                              \
        if (__builtin_expect(::utils::flag::isTraced(genericUtilsFlagPtr, messageLevel), 0))  \
        {                                                                                     \
            static ::utils::flag::TraceCallSite genericUtilsCallSite(location, messageLevel); \
            ::utils::flag::TraceEmission genericUtilsEmission(genericUtilsCallSite,           \
                                                              *genericUtilsFlagPtr);          \
            genericUtilsEmission.begin() << __VA_ARGS__;                                      \
            genericUtilsEmission.deliver();                                                   \
        }                                                                                     \
    } while (false)

/// Traces here; see GENERIC_UTILS_TRACE_AT.
#define GENERIC_UTILS_TRACE(levelFlag, messageLevel, ...) \
    GENERIC_UTILS_TRACE_AT(GENERIC_UTILS_HERE, levelFlag, messageLevel, __VA_ARGS__)

/// Traces here, governed by m_traceSteps of the class Flags of the namespace at hand.
#define GENERIC_UTILS_TRACE_STEP(messageLevel, ...) \
    GENERIC_UTILS_TRACE(::utils::flag::findTraceSteps<Flags>(), messageLevel, __VA_ARGS__)

#endif
