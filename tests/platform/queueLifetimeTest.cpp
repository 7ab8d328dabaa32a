// Queues that are destroyed while the other side is still on its way out:
// - the reader of the last item destroys the queue while the item's writer returns;
// - the same with a writer that had to sleep for a free place;
// - a writer destroys the queue as soon as its item is gone, while the item's reader returns;
// - a queue created meanwhile, which may use the same memory, is not disturbed.

#include <gtest/gtest.h>
#include <libos/osQueue.h>

#include <thread>

#include "OwnedQueue.h"

namespace
{

using test::forever;
using test::OwnedQueue;
using test::toItem;

/// Hands queues to a second thread, which does something with each.
template <typename Work>
class Helper
{
  public:
    explicit Helper(Work work) : m_work(work) {}

    ~Helper()
    {
        give(nullptr);
        m_thread.join();
    }

    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    void give(osQueueHandle_t queue) const
    {
        EXPECT_NE(osQueueWrite(m_queues.handle(), queue, forever), 0);
    }

  private:
    void run() const
    {
        void* queue = nullptr;
        while (osQueueRead(m_queues.handle(), queue, forever) != 0 && queue != nullptr)
        {
            m_work(queue);
        }
    }

    const Work m_work;
    const OwnedQueue m_queues{4};
    std::thread m_thread{[this] { run(); }};
};

constexpr int rounds = 5'000;

TEST(QueueLifetime, ReaderOfTheLastItemDestroysWhileTheWriterReturns)
{
    const Helper writer([](osQueueHandle_t queue) { osQueueWrite(queue, toItem(1), forever); });
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
    const Helper writer([](osQueueHandle_t queue) { osQueueWrite(queue, toItem(2), forever); });
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
    const Helper reader(
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
    const Helper writer([](osQueueHandle_t queue) { osQueueWrite(queue, toItem(1), forever); });
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

}  // namespace
