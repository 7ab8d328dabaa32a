// Waiting on queues:
// - a wait with a limit ends without success no earlier than asked, and not much later, on both
//   sides, also while signals interrupt it;
// - a wait, with or without a limit, ends as soon as there is an item or a place;
// - a negative wait has no limit;
// - a waiting thread uses next to no processor time;
// - a timed wait leaves the thread's timer slack as it was;
// - several sleeping readers each get one of as many items, several sleeping writers each one of
//   as many places.

#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/prctl.h>
#include <time.h>

#include <atomic>
#include <chrono>
#include <latch>
#include <set>
#include <thread>
#include <vector>

#include "OwnedQueue.h"

namespace
{

using namespace std::chrono_literals;
using std::chrono::nanoseconds;
using std::chrono::steady_clock;
using test::forever;
using test::OwnedQueue;

/// Far beyond any delay on a busy machine.
constexpr auto muchLater = 20s;

template <typename Operation>
nanoseconds measure(const Operation& operation)
{
    const auto start = steady_clock::now();
    operation();
    return steady_clock::now() - start;
}

nanoseconds threadCpuTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

class QueueWait : public testing::TestWithParam<int>
{
};

TEST_P(QueueWait, ForAnItemEndsNoEarlierThanAsked)
{
    const OwnedQueue queue(1);
    uintptr_t number = 7;
    const auto elapsed = measure([&] { EXPECT_FALSE(queue.read(number, GetParam())); });
    EXPECT_EQ(number, 7U);
    EXPECT_GE(elapsed, std::chrono::milliseconds(GetParam()));
    EXPECT_LT(elapsed, muchLater);
}

TEST_P(QueueWait, ForAPlaceEndsNoEarlierThanAsked)
{
    const OwnedQueue queue(1);
    ASSERT_TRUE(queue.write(1));
    const auto elapsed = measure([&] { EXPECT_FALSE(queue.write(2, GetParam())); });
    EXPECT_GE(elapsed, std::chrono::milliseconds(GetParam()));
    EXPECT_LT(elapsed, muchLater);
}

INSTANTIATE_TEST_SUITE_P(Milliseconds, QueueWait, testing::Values(1, 2, 50));

TEST(QueueWaiting, HundredsOfShortWaitsEndNoEarlierThanAsked)
{
    const OwnedQueue queue(1);
    uintptr_t number = 0;
    for (int round = 0; round < 200; ++round)
    {
        ASSERT_GE(measure([&] { EXPECT_FALSE(queue.read(number, 1)); }),
                  std::chrono::milliseconds(1));
    }
}

class SignalCounter
{
  public:
    SignalCounter()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) { ++s_count; };
        sigaction(SIGUSR1, &action, &m_previous);
    }
    ~SignalCounter() { sigaction(SIGUSR1, &m_previous, nullptr); }
    SignalCounter(const SignalCounter&) = delete;
    SignalCounter& operator=(const SignalCounter&) = delete;

    static int count() { return s_count; }

  private:
    static std::atomic<int> s_count;

    struct sigaction m_previous = {};
};

std::atomic<int> SignalCounter::s_count{0};

/// Runs `wait` on a thread that is sent one signal after the other meanwhile. @return how long it took
template <typename Wait>
nanoseconds measureUnderSignals(const Wait& wait)
{
    const SignalCounter counter;
    std::atomic<bool> hasEnded{false};
    nanoseconds elapsed{};
    std::thread waiting(
        [&]
        {
            elapsed = measure(wait);
            hasEnded = true;
        });
    while (!hasEnded)
    {
        pthread_kill(waiting.native_handle(), SIGUSR1);
        std::this_thread::yield();
    }
    waiting.join();
    EXPECT_GT(SignalCounter::count(), 0);
    return elapsed;
}

TEST(QueueWaiting, SignalsDoNotShortenAWaitForAnItem)
{
    const OwnedQueue queue(1);
    const auto elapsed = measureUnderSignals(
        [&]
        {
            uintptr_t number = 0;
            EXPECT_FALSE(queue.read(number, 200));
        });
    EXPECT_GE(elapsed, 200ms);
    EXPECT_LT(elapsed, muchLater);
}

TEST(QueueWaiting, SignalsDoNotShortenAWaitForAPlace)
{
    const OwnedQueue queue(1);
    ASSERT_TRUE(queue.write(1));
    const auto elapsed = measureUnderSignals([&] { EXPECT_FALSE(queue.write(2, 200)); });
    EXPECT_GE(elapsed, 200ms);
    EXPECT_LT(elapsed, muchLater);
}

TEST(QueueWaiting, AnItemEndsAWaitForIt)
{
    for (const int wait : {forever, -2, 20'000})
    {
        const OwnedQueue queue(1);
        std::jthread reader([&] { EXPECT_EQ(queue.take(), 1U); });
        const auto elapsed = measure(
            [&]
            {
                uintptr_t number = 0;
                std::jthread timed([&] { EXPECT_TRUE(queue.read(number, wait)); });
                EXPECT_TRUE(queue.write(1, forever));
                EXPECT_TRUE(queue.write(1, forever));
            });
        EXPECT_LT(elapsed, muchLater);
    }
}

TEST(QueueWaiting, APlaceEndsAWaitForIt)
{
    for (const int wait : {forever, -2, 20'000})
    {
        const OwnedQueue queue(1);
        ASSERT_TRUE(queue.write(1));
        std::jthread writer([&] { EXPECT_TRUE(queue.write(2, wait)); });
        const auto elapsed = measure(
            [&]
            {
                EXPECT_EQ(queue.take(), 1U);
                EXPECT_EQ(queue.take(), 2U);
            });
        EXPECT_LT(elapsed, muchLater);
    }
}

TEST(QueueWaiting, WaitingTakesNextToNoProcessorTime)
{
    const OwnedQueue queue(1);
    uintptr_t number = 0;
    const auto before = threadCpuTime();
    EXPECT_FALSE(queue.read(number, 1000));
    EXPECT_LT(threadCpuTime() - before, 100ms);
}

TEST(QueueWaiting, LeavesTheTimerSlackOfTheThread)
{
    const OwnedQueue queue(1);
    uintptr_t number = 0;
    prctl(PR_SET_TIMERSLACK, 12'345UL);
    EXPECT_FALSE(queue.read(number, 1));
    EXPECT_EQ(prctl(PR_GET_TIMERSLACK), 12'345);
}

TEST(QueueWaiting, EachSleepingReaderGetsOneOfAsManyItems)
{
    constexpr uintptr_t readerCount = 8;
    for (int round = 0; round < 50; ++round)
    {
        const OwnedQueue queue(readerCount);
        const OwnedQueue results(readerCount);
        std::vector<std::jthread> readers;
        for (uintptr_t i = 0; i < readerCount; ++i)
        {
            readers.emplace_back([&] { EXPECT_TRUE(results.write(queue.take())); });
        }
        for (uintptr_t number = 1; number <= readerCount; ++number)
        {
            ASSERT_TRUE(queue.write(number));
        }
        std::set<uintptr_t> read;
        for (uintptr_t i = 0; i < readerCount; ++i)
        {
            read.insert(results.take());
        }
        ASSERT_EQ(read.size(), readerCount);
    }
}

TEST(QueueWaiting, EachSleepingWriterGetsOneOfAsManyPlaces)
{
    constexpr uintptr_t writerCount = 8;
    for (int round = 0; round < 50; ++round)
    {
        const OwnedQueue queue(1);
        ASSERT_TRUE(queue.write(0));
        std::vector<std::jthread> writers;
        for (uintptr_t number = 1; number <= writerCount; ++number)
        {
            writers.emplace_back([&queue, number] { EXPECT_TRUE(queue.write(number, forever)); });
        }
        ASSERT_EQ(queue.take(), 0U);
        std::set<uintptr_t> read;
        for (uintptr_t i = 0; i < writerCount; ++i)
        {
            read.insert(queue.take());
        }
        ASSERT_EQ(read.size(), writerCount);
    }
}

TEST(QueueWaiting, AWaitThatEndsWithoutSuccessLeavesTheOthersWaiting)
{
    const OwnedQueue queue(1);
    std::jthread patient([&] { EXPECT_EQ(queue.take(), 1U); });
    uintptr_t number = 0;
    for (int i = 0; i < 20; ++i)
    {
        EXPECT_FALSE(queue.read(number, 1));
    }
    EXPECT_TRUE(queue.write(1));
}

}  // namespace
