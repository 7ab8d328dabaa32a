// Scoped guards over the platform's mutex: exclusion and release.
//
// - a thread that holds the guard keeps others out, and they get in afterwards
// - the mutex is released at the end of the scope, also by an exception
// - the mutex's own timing record keeps the time of the latest acquisition
// - a guard cannot be copied, and is destroyed properly through a base pointer

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <vector>

#include <utils/lock/Lock.h>

namespace
{

using utils::lock::Lock;

// Waits for ever when somebody holds the mutex.
void takeOnAnotherThread(COsMutex& mutex)
{
    std::thread([&mutex] { const Lock guard(mutex); }).join();
}

TEST(Lock, IsReleasedAtTheEndOfTheScope)
{
    COsMutex mutex;
    {
        const Lock guard(mutex);
    }
    takeOnAnotherThread(mutex);
}

TEST(Lock, IsReleasedByAnException)
{
    COsMutex mutex;
    try
    {
        const Lock guard(mutex);
        throw std::runtime_error("leaves the scope");
    }
    catch (const std::runtime_error&)
    {
    }
    takeOnAnotherThread(mutex);
}

TEST(Lock, IsReleasedThroughABasePointer)
{
    static_assert(std::has_virtual_destructor_v<Lock>);
    COsMutex mutex;
    delete new Lock(mutex);
    takeOnAnotherThread(mutex);
}

TEST(Lock, IsNotCopyable)
{
    static_assert(!std::is_copy_constructible_v<Lock>);
    static_assert(!std::is_copy_assignable_v<Lock>);
    static_assert(!std::is_convertible_v<COsMutex&, Lock>);
}

// Without the exclusion the plain counter loses increments, and ThreadSanitizer reports it.
TEST(Lock, ExcludesOtherThreads)
{
    constexpr int THREADS = 4;
    constexpr int ROUNDS = 2000;
    COsMutex mutex;
    int counter = 0;
    std::latch start(THREADS);
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
    {
        threads.emplace_back(
            [&]
            {
                start.arrive_and_wait();
                for (int round = 0; round < ROUNDS; ++round)
                {
                    const Lock guard(mutex);
                    ++counter;
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(counter, THREADS * ROUNDS);
}

TEST(Lock, WaitsWithoutLimitForTheHolder)
{
    COsMutex mutex;
    std::latch isHeld(1);
    std::latch mayRelease(1);
    std::atomic<bool> isReleased{false};
    std::thread holder(
        [&]
        {
            const Lock guard(mutex);
            isHeld.count_down();
            mayRelease.wait();
            isReleased = true;
        });
    isHeld.wait();
    std::thread waiter(
        [&]
        {
            mayRelease.count_down();
            const Lock guard(mutex);
            EXPECT_TRUE(isReleased);
        });
    waiter.join();
    holder.join();
}

TEST(Lock, LeavesTheTimeOfTheAcquisitionInTheTimingRecord)
{
    generic::timing::IntervalAndDuration::setMeasuring(true);
    COsMutex mutex;
    EXPECT_EQ(mutex.getTiming().getDurationNs(), 0);
    {
        const Lock guard(mutex);
    }
    EXPECT_GT(mutex.getTiming().getDurationNs(), 0);
}

}  // namespace
