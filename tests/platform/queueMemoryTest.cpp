// The memory of queues:
// - it follows the number of items queued, never the capacity: an empty queue of any capacity is
//   small, also after it held many items, and so is a full one of 256;
// - a queue that holds up to 256 items allocates nothing after its creation, and one that is filled
//   and drained again and again nothing after a while;
// - queues that were destroyed leave nothing behind that grows with their number;
// - without memory no queue is created, a write that needs some fails, and everything goes on when
//   there is memory again.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <thread>

#include "CountedMemory.h"
#include "OwnedQueue.h"

namespace
{

using test::CountedMemory;
using test::forever;
using test::OwnedQueue;

constexpr uint32_t largestCapacity = std::numeric_limits<uint32_t>::max();
constexpr size_t kibi = 1024;

void fill(const OwnedQueue& queue, uintptr_t count)
{
    for (uintptr_t number = 0; number < count; ++number)
    {
        ASSERT_TRUE(queue.write(number));
    }
}

void drain(const OwnedQueue& queue)
{
    uintptr_t number = 0;
    while (queue.read(number))
    {
    }
}

TEST(QueueMemory, IsCounted)
{
    const size_t countBefore = CountedMemory::allocationCount();
    const size_t bytesBefore = CountedMemory::bytesInUse();
    const OwnedQueue queue(1);
    EXPECT_GE(CountedMemory::allocationCount() - countBefore, 1U);
    EXPECT_GE(CountedMemory::bytesInUse() - bytesBefore, sizeof(void*));
}

TEST(QueueMemory, OfAnEmptyQueueIsSmallWhateverItsCapacity)
{
    for (const uint32_t capacity : {0U, 1U, 256U, 1'000'000U, largestCapacity})
    {
        const size_t before = CountedMemory::bytesInUse();
        const OwnedQueue queue(capacity);
        EXPECT_LE(CountedMemory::bytesInUse() - before, 4 * kibi);
    }
}

TEST(QueueMemory, OfAFullQueueOf256IsSmall)
{
    const size_t before = CountedMemory::bytesInUse();
    const OwnedQueue queue(256);
    fill(queue, 256);
    EXPECT_LE(CountedMemory::bytesInUse() - before, 16 * kibi);
}

TEST(QueueMemory, IsGivenBackWhenALongQueueIsDrained)
{
    const size_t before = CountedMemory::bytesInUse();
    const OwnedQueue queue(largestCapacity);
    fill(queue, 100'000);
    EXPECT_GE(CountedMemory::bytesInUse() - before, 100'000 * sizeof(void*));
    drain(queue);
    EXPECT_LE(CountedMemory::bytesInUse() - before, 64 * kibi);
}

TEST(QueueMemory, PassingItemsAllocatesNothing)
{
    const OwnedQueue queue(256);
    const size_t before = CountedMemory::allocationCount();
    for (uintptr_t number = 0; number < 10'000; ++number)
    {
        ASSERT_TRUE(queue.write(number));
        ASSERT_EQ(queue.take(), number);
    }
    EXPECT_EQ(CountedMemory::allocationCount() - before, 0U);
}

TEST(QueueMemory, HoldingUpTo256ItemsAllocatesNothing)
{
    for (const uint32_t capacity : {1U, 100U, 256U, largestCapacity})
    {
        const OwnedQueue queue(capacity);
        const size_t before = CountedMemory::allocationCount();
        for (uintptr_t round = 0; round < 1000; ++round)
        {
            fill(queue, std::min(capacity, 256U));
            drain(queue);
        }
        EXPECT_EQ(CountedMemory::allocationCount() - before, 0U);
    }
}

TEST(QueueMemory, FillingAndDrainingALongQueueAgainAllocatesNothing)
{
    const OwnedQueue queue(3000);
    for (int round = 0; round < 64; ++round)  // until the first item has lain everywhere in a block
    {
        fill(queue, 3000);
        drain(queue);
    }
    const size_t before = CountedMemory::allocationCount();
    for (int round = 0; round < 100; ++round)
    {
        fill(queue, 3000);
        drain(queue);
    }
    EXPECT_EQ(CountedMemory::allocationCount() - before, 0U);
}

TEST(QueueMemory, WaitingAllocatesNothing)
{
    const OwnedQueue there(1);
    const OwnedQueue back(1);
    constexpr uintptr_t rounds = 2'000;
    std::thread answering(
        [&]
        {
            for (uintptr_t round = 0; round < rounds; ++round)
            {
                back.write(there.take(), forever);
            }
        });
    size_t before = 0;
    for (uintptr_t round = 0; round < rounds; ++round)
    {
        before = round == rounds / 2 ? CountedMemory::allocationCount() : before;
        there.write(round, forever);
        back.take();
    }
    EXPECT_EQ(CountedMemory::allocationCount() - before, 0U);
    answering.join();
}

TEST(QueueMemory, DoesNotGrowWithTheNumberOfQueuesDestroyed)
{
    {
        const OwnedQueue queue(256);
        fill(queue, 256);
    }
    const size_t before = CountedMemory::bytesInUse();
    for (int round = 0; round < 1000; ++round)
    {
        const OwnedQueue queue(256);
        fill(queue, 256);
    }
    EXPECT_EQ(CountedMemory::bytesInUse(), before);
}

TEST(QueueMemory, WithoutMemoryNoQueueIsCreated)
{
    {
        const CountedMemory::Exhausted exhausted;
        EXPECT_EQ(osQueueCreate(1), nullptr);
    }
    {
        const OwnedQueue first(1);
        EXPECT_NE(first.handle(), nullptr);
    }
    const CountedMemory::Exhausted exhausted;
    EXPECT_EQ(osQueueCreate(1), nullptr);
}

TEST(QueueMemory, WithoutMemoryAQueueOf256CanBeFilled)
{
    const OwnedQueue queue(256);
    const CountedMemory::Exhausted exhausted;
    fill(queue, 256);
    EXPECT_EQ(queue.size(), 256U);
}

TEST(QueueMemory, WithoutMemoryAWriteFailsAndTheItemsStay)
{
    const OwnedQueue queue(1000);
    uintptr_t written = 0;
    {
        const CountedMemory::Exhausted exhausted;
        while (queue.write(written, forever))
        {
            ++written;
        }
        EXPECT_LT(written, 1000U);
        EXPECT_EQ(queue.size(), written);
    }
    EXPECT_TRUE(queue.write(written));
    for (uintptr_t number = 0; number <= written; ++number)
    {
        ASSERT_EQ(queue.take(), number);
    }
}

}  // namespace
