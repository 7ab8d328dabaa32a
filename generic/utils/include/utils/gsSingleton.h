#ifndef GENERIC_UTILS_GSSINGLETON_H
#define GENERIC_UTILS_GSSINGLETON_H

#include <atomic>
#include <typeinfo>

#include <utils/SourceLocation.h>
#include <utils/export.h>
#include <utils/flagTrace.h>
#include <utils/gsFlags.h>
#include <utils/gsLockGuard.h>
#include <utils/gsLocks.h>

namespace utils
{

/// The one T of the process, created on first use and never destroyed; the creation is traced with
/// flag Gs_Flags::m_traceSingletonSteps. New code uses singleton::SingletonT.
///
/// T needs a default constructor. There is one instance a process, also when plug-ins use the same
/// T, as long as T itself is visible outside its shared object.
///
/// Thread safety: any thread. The first use of the older flags, which it may be, must not race with
/// another; make them (Std_Singleton<Gs_Flags>) during start-up.
template <typename T>
class GENERIC_UTILS_EXPORT Gs_Singleton
{
  public:
    /// The instance; never null. The first call constructs it with the mutex for singletons of
    /// Gs_Locks held, also while trace strategies are told; later calls only read a pointer. An
    /// exception of T's constructor is passed on, and the next call tries again.
    GENERIC_UTILS_EXPORT static T* getInstancePtr()
    {
        if (T* const instancePtr = m_theInstancePtr.load(std::memory_order_acquire))
        {
            return instancePtr;
        }
        const Gs_LockGuard guard(Gs_Locks::getShared().m_singletonMutex);
        traceConstruction();
        if (m_theInstancePtr.load(std::memory_order_relaxed) == nullptr)
        {
            m_theInstancePtr.store(new T(), std::memory_order_release);
        }
        return m_theInstancePtr.load(std::memory_order_relaxed);
    }

  private:
    // The place that the trace has always named.
    static constexpr SourceLocation CONSTRUCTION = {"generic/utils/include/utils/gsSingleton", 109,
                                                    "getInstancePtr"};

    // Nothing while a strategy that is just being told asks for the same instance: it gets one
    // before this trace has ended.
    static void traceConstruction()
    {
        static bool isTracing = false;  // protected by the lock
        if (m_theInstancePtr.load(std::memory_order_relaxed) != nullptr || isTracing)
        {
            return;
        }
        struct Tracing
        {
            Tracing() { isTracing = true; }
            ~Tracing() { isTracing = false; }
        };
        const Tracing tracing;
        GENERIC_UTILS_OLDER_TRACE_AT(CONSTRUCTION,
                                     flag::findGsFlag(&flag::Gs_Flags::m_traceSingletonSteps), 1,
                                     "Constructing Singleton (" << typeid(T).name() << ")");
    }

    GENERIC_UTILS_EXPORT static std::atomic<T*> m_theInstancePtr;
};

template <typename T>
std::atomic<T*> Gs_Singleton<T>::m_theInstancePtr{nullptr};

}  // namespace utils

#endif
