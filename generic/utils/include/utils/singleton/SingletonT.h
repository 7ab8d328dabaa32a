#ifndef GENERIC_UTILS_SINGLETON_SINGLETONT_H
#define GENERIC_UTILS_SINGLETON_SINGLETONT_H

#include <atomic>

#include <libos/COsMutex.h>
#include <utils/export.h>
#include <utils/lock/Lock.h>
#include <utils/singleton/NeverDestroyed.h>

namespace utils::singleton
{

/// The one T of the process, created on first use and never destroyed.
///
/// T needs a default constructor that this class may call. Since the instance is never destroyed,
/// objects that are destroyed while the process ends may still use it.
///
/// There is one instance a process, also when plug-ins use the same T, as long as T itself is
/// visible outside its shared object; the library instantiates the template for its own types
/// (`extern template` in their headers).
///
/// Thread safety: getInstancePtr() may be called by any thread at any time. T's constructor must
/// not ask for the instance that it is about to become.
template <typename T>
class GENERIC_UTILS_EXPORT SingletonT
{
  public:
    /// The instance; never null. The first call constructs it under a lock, later calls only read
    /// a pointer. An exception of T's constructor is passed on, and the next call tries again.
    GENERIC_UTILS_EXPORT static T* getInstancePtr()
    {
        static std::atomic<T*> theInstancePtr{nullptr};
        if (T* const instancePtr = theInstancePtr.load(std::memory_order_acquire))
        {
            return instancePtr;
        }

        static NeverDestroyed<COsMutex> mutex;
        const lock::Lock creationLock(mutex.get());
        if (theInstancePtr.load(std::memory_order_relaxed) == nullptr)
        {
            theInstancePtr.store(new T(), std::memory_order_release);
        }
        return theInstancePtr.load(std::memory_order_relaxed);
    }
};

}  // namespace utils::singleton

#endif
