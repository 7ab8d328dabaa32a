// Queues used by one thread:
// - items leave in the order in which they were written, and stand as they were, null included;
// - the capacity is counted exactly, from 0 to 2^32-1, and a place that was read is free again;
// - the size counts the items, also when the queue has moved on by many items;
// - a write to a full queue and a read from an empty one fail, at once without a wait, and leave
//   the queue and the reader's item as they were;
// - a queue with items in it can be destroyed, and a new one starts empty;
// - null is no queue: every operation fails.

#include <gtest/gtest.h>
#include <libos/osQueue.h>

#include <limits>

#include "OwnedQueue.h"

namespace
{

using test::OwnedQueue;

constexpr uint32_t largestCapacity = std::numeric_limits<uint32_t>::max();

TEST(Queue, ReadsItemsInTheOrderWritten)
{
    const OwnedQueue queue(1000);
    for (uintptr_t number = 1; number <= 1000; ++number)
    {
        ASSERT_TRUE(queue.write(number));
    }
    for (uintptr_t number = 1; number <= 1000; ++number)
    {
        ASSERT_EQ(queue.take(), number);
    }
}

TEST(Queue, CarriesTheItemAsItStands)
{
    const OwnedQueue queue(1);
    int target = 0;
    EXPECT_NE(osQueueWrite(queue.handle(), &target, 0), 0);
    void* item = nullptr;
    EXPECT_NE(osQueueRead(queue.handle(), item, 0), 0);
    EXPECT_EQ(item, &target);
}

TEST(Queue, CarriesNull)
{
    const OwnedQueue queue(1);
    int other = 0;
    void* item = &other;
    EXPECT_NE(osQueueWrite(queue.handle(), nullptr, 0), 0);
    EXPECT_EQ(queue.size(), 1U);
    EXPECT_NE(osQueueRead(queue.handle(), item, 0), 0);
    EXPECT_EQ(item, nullptr);
}

class QueueCapacity : public testing::TestWithParam<uint32_t>
{
};

TEST_P(QueueCapacity, IsCountedExactly)
{
    const OwnedQueue queue(GetParam());
    for (uint32_t written = 0; written < GetParam(); ++written)
    {
        ASSERT_EQ(queue.size(), written);
        ASSERT_TRUE(queue.write(written));
    }
    EXPECT_EQ(queue.size(), GetParam());
    EXPECT_FALSE(queue.write(1));
    EXPECT_EQ(queue.size(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(AroundTheSizesOfItsParts, QueueCapacity,
                         testing::Values(0U, 1U, 2U, 62U, 63U, 64U, 126U, 127U, 256U, 5000U));

TEST(Queue, WithoutCapacityTakesNothing)
{
    const OwnedQueue queue(0);
    uintptr_t number = 7;
    EXPECT_FALSE(queue.write(1));
    EXPECT_FALSE(queue.write(1, 1));
    EXPECT_FALSE(queue.read(number, 1));
    EXPECT_EQ(queue.size(), 0U);
}

TEST(Queue, OfTheLargestCapacityTakesItems)
{
    const OwnedQueue queue(largestCapacity);
    for (uintptr_t number = 1; number <= 10'000; ++number)
    {
        ASSERT_TRUE(queue.write(number));
    }
    EXPECT_EQ(queue.size(), 10'000U);
    EXPECT_EQ(queue.take(), 1U);
}

TEST(Queue, HasAFreePlaceAfterARead)
{
    const OwnedQueue queue(2);
    EXPECT_TRUE(queue.write(1));
    EXPECT_TRUE(queue.write(2));
    EXPECT_FALSE(queue.write(3));
    EXPECT_EQ(queue.take(), 1U);
    EXPECT_TRUE(queue.write(4));
    EXPECT_FALSE(queue.write(5));
    EXPECT_EQ(queue.take(), 2U);
    EXPECT_EQ(queue.take(), 4U);
}

TEST(Queue, CountsItemsHoweverManyHavePassed)
{
    const OwnedQueue queue(3);
    for (uintptr_t number = 0; number < 1000; ++number)
    {
        ASSERT_TRUE(queue.write(number));
        ASSERT_TRUE(queue.write(number));
        ASSERT_EQ(queue.size(), 2U);
        ASSERT_EQ(queue.take(), number);
        ASSERT_EQ(queue.size(), 1U);
        ASSERT_EQ(queue.take(), number);
        ASSERT_EQ(queue.size(), 0U);
    }
}

TEST(Queue, ReadFromAnEmptyQueueFailsAndLeavesTheItem)
{
    const OwnedQueue queue(2);
    int other = 0;
    void* item = &other;
    EXPECT_EQ(osQueueRead(queue.handle(), item, 0), 0);
    EXPECT_EQ(item, &other);
    EXPECT_EQ(osQueueRead(queue.handle(), item, 1), 0);
    EXPECT_EQ(item, &other);
}

TEST(Queue, FailedWriteLeavesTheItemsInTheQueue)
{
    const OwnedQueue queue(1);
    EXPECT_TRUE(queue.write(1));
    EXPECT_FALSE(queue.write(2));
    EXPECT_FALSE(queue.write(3, 1));
    EXPECT_EQ(queue.take(), 1U);
    EXPECT_EQ(queue.size(), 0U);
}

TEST(Queue, CanBeDestroyedWithItemsInIt)
{
    for (int round = 0; round < 3; ++round)
    {
        const OwnedQueue queue(largestCapacity);
        EXPECT_EQ(queue.size(), 0U);
        for (uintptr_t number = 0; number < 500; ++number)
        {
            ASSERT_TRUE(queue.write(number));
        }
    }
}

TEST(Queue, StartsEmptyAfterAnotherWasDestroyed)
{
    {
        const OwnedQueue first(10);
        ASSERT_TRUE(first.write(1));
        ASSERT_TRUE(first.write(2));
        ASSERT_EQ(first.take(), 1U);
    }
    const OwnedQueue second(1);
    uintptr_t number = 7;
    EXPECT_EQ(second.size(), 0U);
    EXPECT_FALSE(second.read(number));
    EXPECT_TRUE(second.write(3));
    EXPECT_FALSE(second.write(4));
    EXPECT_EQ(second.take(), 3U);
}

TEST(Queue, NullIsNoQueue)
{
    int other = 0;
    void* item = &other;
    EXPECT_EQ(osQueueWrite(nullptr, &other, 0), 0);
    EXPECT_EQ(osQueueWrite(nullptr, &other, -1), 0);
    EXPECT_EQ(osQueueRead(nullptr, item, 0), 0);
    EXPECT_EQ(osQueueRead(nullptr, item, -1), 0);
    EXPECT_EQ(item, &other);
    EXPECT_EQ(osQueueSize(nullptr), 0U);
    osQueueDestroy(nullptr);
}

}  // namespace
