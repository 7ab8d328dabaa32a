#include <errno.h>
#include <libos/Deadline.h>
#include <libos/fail.h>
#include <libos/osMutex.h>
#include <pthread.h>

#include <memory>
#include <new>

namespace
{

using host::Deadline;
using host::fail;
using host::succeedUnless;

class MutexAttributes
{
  public:
    MutexAttributes() { pthread_mutexattr_init(&m_attributes); }
    ~MutexAttributes() { pthread_mutexattr_destroy(&m_attributes); }
    MutexAttributes(const MutexAttributes&) = delete;
    MutexAttributes& operator=(const MutexAttributes&) = delete;

    pthread_mutexattr_t* get() { return &m_attributes; }

  private:
    pthread_mutexattr_t m_attributes;
};

int initialize(pthread_mutex_t* mutex, int protocol)
{
    MutexAttributes attributes;
    pthread_mutexattr_settype(attributes.get(), PTHREAD_MUTEX_RECURSIVE);
    pthread_mutexattr_setprotocol(attributes.get(), protocol);
    return pthread_mutex_init(mutex, attributes.get());
}

/// The wait where a priority-inheriting lock can be bounded by the wall clock only, which may be set.
int pollUntil(pthread_mutex_t* mutex, int waitMs)
{
    constexpr timespec pause{.tv_sec = 0, .tv_nsec = 1'000'000};
    int result = pthread_mutex_trylock(mutex);
    for (int slept = 0; result == EBUSY && slept < waitMs; ++slept)
    {
        clock_nanosleep(CLOCK_MONOTONIC, 0, &pause, nullptr);
        result = pthread_mutex_trylock(mutex);
    }
    return result == EBUSY ? ETIMEDOUT : result;
}

// ThreadSanitizer takes no notice of pthread_mutex_clocklock(); GCC and Clang tell of it differently.
#if defined(__SANITIZE_THREAD__)
constexpr bool knowsClockLock = false;
#elif defined(__has_feature)
constexpr bool knowsClockLock = !__has_feature(thread_sanitizer);
#else
constexpr bool knowsClockLock = true;
#endif

int lockUntil(pthread_mutex_t* mutex, int waitMs)
{
    if (!knowsClockLock)
    {
        return pollUntil(mutex, waitMs);
    }
    const Deadline deadline = Deadline::fromWait(waitMs);
    const int result = pthread_mutex_clocklock(mutex, CLOCK_MONOTONIC, deadline.get());
    return result == EINVAL ? pollUntil(mutex, waitMs) : result;
}

}  // namespace

osMutexHandle_t osMutexCreate(void)
{
    std::unique_ptr<pthread_mutex_t> mutex(new (std::nothrow) pthread_mutex_t);
    if (!mutex)
    {
        fail(ENOMEM);
        return nullptr;
    }
    int error = initialize(mutex.get(), PTHREAD_PRIO_INHERIT);
    if (error == ENOTSUP)
    {
        error = initialize(mutex.get(), PTHREAD_PRIO_NONE);
    }
    if (error != 0)
    {
        fail(error);
        return nullptr;
    }
    return mutex.release();
}

void osMutexDestroy(osMutexHandle_t mutex)
{
    if (mutex == nullptr)
    {
        return;
    }
    const std::unique_ptr<pthread_mutex_t> owned(static_cast<pthread_mutex_t*>(mutex));
    pthread_mutex_destroy(owned.get());
}

int osMutexLock(osMutexHandle_t mutex, int waitMs)
{
    if (mutex == nullptr)
    {
        return fail(EINVAL);
    }
    auto* const posixMutex = static_cast<pthread_mutex_t*>(mutex);
    return succeedUnless(waitMs > 0 ? lockUntil(posixMutex, waitMs)
                                    : pthread_mutex_lock(posixMutex));
}

int osMutexUnlock(osMutexHandle_t mutex)
{
    if (mutex == nullptr)
    {
        return fail(EINVAL);
    }
    return succeedUnless(pthread_mutex_unlock(static_cast<pthread_mutex_t*>(mutex)));
}
