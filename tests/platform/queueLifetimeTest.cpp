// Queues that are destroyed while the other side is still on its way out:
// - the reader of the last item destroys the queue while the item's writer returns;
// - the same with a writer that had to sleep for a free place;
// - a writer destroys the queue as soon as its item is gone, while the item's reader returns;
// - a queue created meanwhile, which may use the same memory, is not disturbed;
// - the memory of a destroyed queue stays valid for such late threads.

#include <gtest/gtest.h>
#include <libos/osQueue.h>

#include <atomic>
#include <thread>

#include "OwnedQueue.h"
#include "Pace.h"

namespace
{

using test::forever;
using test::OwnedQueue;
using test::pace;
using test::toItem;

/// Hands queues to a second thread, which does something with each, sooner or later.
template <typename Work>
class Helper
{
  public:
    explicit Helper(Work work) : m_work(work) {}
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    ~Helper()
    {
        m_isOver = true;
        m_thread.join();
    }

    void give(osQueueHandle_t queue)
    {
        osQueueHandle_t none = nullptr;
        while (!m_queue.compare_exchange_weak(none, queue))
        {
            none = nullptr;
            std::this_thread::yield();
        }
    }

  private:
    void run()
    {
        for (unsigned round = 0; !m_isOver;)
        {
            osQueueHandle_t const queue = m_queue.exchange(nullptr);
            if (queue == nullptr)
            {
                std::this_thread::yield();
                continue;
            }
            pace(round++);
            m_work(queue);
        }
    }

    const Work m_work;
    std::atomic<osQueueHandle_t> m_queue{nullptr};
    std::atomic<bool> m_isOver{false};
    std::thread m_thread{[this] { run(); }};
};

constexpr int rounds = 20'000;

TEST(QueueLifetime, ReaderOfTheLastItemDestroysWhileTheWriterReturns)
{
    Helper writer([](osQueueHandle_t queue) { osQueueWrite(queue, toItem(1), forever); });
    for (int round = 0; round < rounds; ++round)
    {
        osQueueHandle_t const queue = osQueueCreate(1);
        writer.give(queue);
        void* item = nullptr;
        ASSERT_NE(osQueueRead(queue, item, forever), 0);
        osQueueDestroy(queue);
    }
}

TEST(QueueLifetime, ReaderOfTheLastItemDestroysWhileAWriterThatSleptReturns)
{
    Helper writer([](osQueueHandle_t queue) { osQueueWrite(queue, toItem(2), forever); });
    for (int round = 0; round < rounds; ++round)
    {
        osQueueHandle_t const queue = osQueueCreate(1);
        ASSERT_NE(osQueueWrite(queue, toItem(1), forever), 0);
        writer.give(queue);
        void* item = nullptr;
        ASSERT_NE(osQueueRead(queue, item, forever), 0);
        ASSERT_NE(osQueueRead(queue, item, forever), 0);
        osQueueDestroy(queue);
    }
}

TEST(QueueLifetime, WriterDestroysWhileTheReaderReturns)
{
    Helper reader(
        [](osQueueHandle_t queue)
        {
            void* item = nullptr;
            osQueueRead(queue, item, forever);
        });
    for (int round = 0; round < rounds; ++round)
    {
        osQueueHandle_t const queue = osQueueCreate(1);
        ASSERT_NE(osQueueWrite(queue, toItem(1), forever), 0);
        reader.give(queue);
        ASSERT_NE(osQueueWrite(queue, toItem(2), forever), 0);  // once the first item is gone
        osQueueDestroy(queue);
    }
}

TEST(QueueLifetime, ALateWriterDoesNotDisturbTheNextQueue)
{
    Helper writer([](osQueueHandle_t queue) { osQueueWrite(queue, toItem(1), forever); });
    for (int round = 0; round < rounds; ++round)
    {
        osQueueHandle_t const first = osQueueCreate(1);
        writer.give(first);
        void* item = nullptr;
        ASSERT_NE(osQueueRead(first, item, forever), 0);
        osQueueDestroy(first);
        const OwnedQueue second(1);
        uintptr_t number = 7;
        ASSERT_EQ(second.size(), 0U);
        ASSERT_FALSE(second.read(number, round % 100 == 0 ? 1 : 0));
        ASSERT_TRUE(second.write(2));
        ASSERT_EQ(second.take(), 2U);
    }
}

TEST(QueueLifetime, TheMemoryOfADestroyedQueueStaysValid)
{
    // Stands in for a late thread, which is hard to catch between its last steps: AddressSanitizer
    // reports this look at a queue that was given back to the system.
    osQueueHandle_t const queue = osQueueCreate(1);
    osQueueDestroy(queue);
    EXPECT_EQ(osQueueSize(queue), 0U);
}

}  // namespace
