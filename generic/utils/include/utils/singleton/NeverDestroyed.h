#ifndef GENERIC_UTILS_SINGLETON_NEVERDESTROYED_H
#define GENERIC_UTILS_SINGLETON_NEVERDESTROYED_H

#include <new>
#include <utility>

namespace utils::singleton
{

/// Holds a T whose destructor is never run.
///
/// For function-local statics that other threads, or objects destroyed later, may still use while
/// the process ends. Needs no heap memory, so nothing appears as a leak.
template <typename T>
class NeverDestroyed
{
  public:
    /// Constructs the T in place.
    template <typename... Args>
    explicit NeverDestroyed(Args&&... args)
    {
        ::new (static_cast<void*>(m_storage)) T(std::forward<Args>(args)...);
    }

    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    /// The object.
    T& get() { return *std::launder(reinterpret_cast<T*>(m_storage)); }

  private:
    alignas(T) unsigned char m_storage[sizeof(T)];
};

}  // namespace utils::singleton

#endif
