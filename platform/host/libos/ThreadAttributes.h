#ifndef HOST_LIBOS_THREADATTRIBUTES_H
#define HOST_LIBOS_THREADATTRIBUTES_H

#include <pthread.h>

#include <cstdint>

namespace host
{

/// How a thread is to be created.
class ThreadAttributes
{
  public:
    ThreadAttributes() { pthread_attr_init(&m_attributes); }
    ~ThreadAttributes() { pthread_attr_destroy(&m_attributes); }
    ThreadAttributes(const ThreadAttributes&) = delete;
    ThreadAttributes& operator=(const ThreadAttributes&) = delete;

    /// Nobody will join the thread.
    void setDetached();

    /// At least `bytes`, rounded up to what the system accepts; 0 = the system's default.
    /// @return 0, or an errno value
    int setStackSize(uint64_t bytes);

    /// Starts the thread with normal scheduling, also when its creator runs in real time.
    void setNormalScheduling();

    const pthread_attr_t* get() const { return &m_attributes; }

  private:
    pthread_attr_t m_attributes;
};

}  // namespace host

#endif
