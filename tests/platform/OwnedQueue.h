#ifndef TESTS_PLATFORM_OWNEDQUEUE_H
#define TESTS_PLATFORM_OWNEDQUEUE_H

#include <gtest/gtest.h>
#include <libos/osQueue.h>

#include <cstdint>

namespace test
{

/// Forever, and not at all, as wait times.
constexpr int forever = LIBOS_WAIT_FOREVER;
constexpr int noWait = 0;

/// A number as an item, and back.
inline void* toItem(uintptr_t number)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): never dereferenced
    return reinterpret_cast<void*>(number);
}

inline uintptr_t toNumber(const void* item)
{
    return reinterpret_cast<uintptr_t>(item);
}

/// A queue of numbers that is destroyed at the end of its scope.
class OwnedQueue
{
  public:
    explicit OwnedQueue(uint32_t capacity) : m_handle(osQueueCreate(capacity)) {}
    ~OwnedQueue() { osQueueDestroy(m_handle); }
    OwnedQueue(const OwnedQueue&) = delete;
    OwnedQueue& operator=(const OwnedQueue&) = delete;

    osQueueHandle_t handle() const { return m_handle; }
    uint32_t size() const { return osQueueSize(m_handle); }

    bool write(uintptr_t number, int waitMs = noWait) const
    {
        return osQueueWrite(m_handle, toItem(number), waitMs) != 0;
    }

    bool read(uintptr_t& number, int waitMs = noWait) const
    {
        void* item = nullptr;
        const bool hasRead = osQueueRead(m_handle, item, waitMs) != 0;
        number = hasRead ? toNumber(item) : number;
        return hasRead;
    }

    /// The oldest number, waited for without limit.
    uintptr_t take() const
    {
        uintptr_t number = 0;
        EXPECT_TRUE(read(number, forever));
        return number;
    }

  private:
    osQueueHandle_t m_handle;
};

}  // namespace test

#endif
