#ifndef GENERIC_UTILS_STDSINGLETON_H
#define GENERIC_UTILS_STDSINGLETON_H

#include <atomic>

#include <utils/export.h>

namespace utils
{

/// The one T of the process, created on first use without any lock, and never destroyed. New code
/// uses singleton::SingletonT.
///
/// T needs a default constructor. There is one instance a process, also when plug-ins use the same
/// T, as long as T itself is visible outside its shared object.
///
/// Thread safety: the first call must not race with another, so it belongs into the start-up of
/// the process; from then on, any thread.
template <typename T>
class GENERIC_UTILS_EXPORT Std_Singleton
{
  public:
    /// The instance; never null. An exception of T's constructor is passed on, and the next call
    /// tries again. When the constructor itself leads back here, the instance that was completed
    /// first is kept.
    GENERIC_UTILS_EXPORT static T* getInstancePtr()
    {
        if (T* const instancePtr = m_theInstancePtr.load(std::memory_order_acquire))
        {
            return instancePtr;
        }
        T* const createdPtr = new T();
        T* firstPtr = nullptr;
        const bool isFirst = m_theInstancePtr.compare_exchange_strong(firstPtr, createdPtr,
                                                                      std::memory_order_acq_rel);
        return isFirst ? createdPtr : firstPtr;
    }

  private:
    GENERIC_UTILS_EXPORT static std::atomic<T*> m_theInstancePtr;
};

template <typename T>
std::atomic<T*> Std_Singleton<T>::m_theInstancePtr{nullptr};

}  // namespace utils

#endif
