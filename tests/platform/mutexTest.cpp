// Mutexes and the last error:
// - a mutex keeps other threads out until it has been unlocked as often as its thread locked it;
// - a wait with a limit ends no earlier than asked, without the mutex; one without limit does not;
// - unlocking is refused to a thread that does not hold the mutex;
// - a thread that waits lends its real-time priority to the one that holds the mutex;
// - null is no mutex: every operation fails;
// - a COsMutex has a mutex and a timing record, which times one interval;
// - each thread has a last error of its own, 0 at first.

#include <errno.h>
#include <gtest/gtest.h>
#include <libos/libos.h>
#include <pthread.h>
#include <sched.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <latch>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "Tasks.h"

// Unlocking a mutex that is not held, which ThreadSanitizer reports, is what one test is about.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions();
const char* __tsan_default_suppressions()
{
    return "mutex:osMutexUnlock\n";
}

namespace
{

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using test::joinable;
using test::runTask;
using test::startTask;
using test::Work;

class Mutex
{
  public:
    Mutex() = default;
    ~Mutex() { osMutexDestroy(m_handle); }
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    bool lock(int waitMs = 0) { return osMutexLock(m_handle, waitMs) != 0; }
    bool unlock() { return osMutexUnlock(m_handle) != 0; }

    bool isFreeForOthers()
    {
        bool isFree = false;
        std::thread([&] { isFree = lock(1) && unlock(); }).join();
        return isFree;
    }

  private:
    osMutexHandle_t m_handle = osMutexCreate();
};

TEST(Mutex, KeepsOtherThreadsOut)
{
    Mutex mutex;
    int count = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&]
            {
                for (int round = 0; round < 5'000; ++round)
                {
                    ASSERT_TRUE(mutex.lock());
                    ++count;
                    ASSERT_TRUE(mutex.unlock());
                }
            });
    }
    threads.clear();
    EXPECT_EQ(count, 20'000);
}

TEST(Mutex, IsFreeOnceUnlockedAsOftenAsLocked)
{
    Mutex mutex;
    ASSERT_TRUE(mutex.lock());
    ASSERT_TRUE(mutex.lock());
    ASSERT_TRUE(mutex.lock(5));
    EXPECT_FALSE(mutex.isFreeForOthers());
    EXPECT_TRUE(mutex.unlock());
    EXPECT_TRUE(mutex.unlock());
    EXPECT_FALSE(mutex.isFreeForOthers());
    EXPECT_TRUE(mutex.unlock());
    EXPECT_TRUE(mutex.isFreeForOthers());
}

TEST(Mutex, WaitWithALimitEndsNoEarlierThanAsked)
{
    Mutex mutex;
    ASSERT_TRUE(mutex.lock());
    bool isLocked = true;
    uint32_t error = 0;
    steady_clock::duration elapsed{};
    std::thread(
        [&]
        {
            const auto start = steady_clock::now();
            isLocked = mutex.lock(50);
            elapsed = steady_clock::now() - start;
            error = osGetLastError();
        })
        .join();
    EXPECT_FALSE(isLocked);
    EXPECT_EQ(error, static_cast<uint32_t>(ETIMEDOUT));
    EXPECT_GE(elapsed, 50ms);
    EXPECT_LT(elapsed, 20s);
    EXPECT_TRUE(mutex.unlock());
}

TEST(Mutex, WaitEndsWhenTheMutexIsUnlocked)
{
    for (const int waitMs : {0, 20'000})
    {
        Mutex mutex;
        std::latch isWaiting(1);
        ASSERT_TRUE(mutex.lock());
        std::jthread other(
            [&]
            {
                isWaiting.count_down();
                EXPECT_TRUE(mutex.lock(waitMs));
                EXPECT_TRUE(mutex.unlock());
            });
        isWaiting.wait();
        EXPECT_TRUE(mutex.unlock());
    }
}

TEST(Mutex, UnlockIsRefusedToAThreadThatDoesNotHoldIt)
{
    Mutex mutex;
    osSetLastError(0);
    EXPECT_FALSE(mutex.unlock());
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EPERM));
    ASSERT_TRUE(mutex.lock());
    std::thread([&] { EXPECT_FALSE(mutex.unlock()); }).join();
    EXPECT_FALSE(mutex.isFreeForOthers());
    EXPECT_TRUE(mutex.unlock());
}

TEST(Mutex, NullIsNoMutex)
{
    osSetLastError(0);
    EXPECT_EQ(osMutexLock(nullptr, 0), 0);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
    EXPECT_EQ(osMutexLock(nullptr, 1), 0);
    EXPECT_EQ(osMutexUnlock(nullptr), 0);
    osMutexDestroy(nullptr);
}

/// The priority by which the kernel schedules a thread of this process: negative = real time.
int effectivePriority(pid_t thread)
{
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string text;
    std::getline(file, text);
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string field;
    constexpr int priorityField = 16;  // counted from the one after the name
    for (int i = 0; i < priorityField; ++i)
    {
        fields >> field;
    }
    return std::stoi(field);
}

/// Waits in real time, where that is allowed, for a mutex that the calling thread holds.
/// @return the caller's priority as soon as it is raised, or after ten seconds; 0 when not allowed
int priorityWhileARealTimeThreadWaits(Mutex& mutex)
{
    std::latch isReady(1);
    bool isRealTime = false;
    Work work = [&]
    {
        isRealTime = osSetSchedPolicy(osTaskSelf(), OS_SCHED_FIFO) != 0;
        isReady.count_down();
        EXPECT_TRUE(mutex.lock());
        EXPECT_TRUE(mutex.unlock());
        return 0;
    };
    osTaskOptions_t options = joinable();
    options.priority = 4;
    osTaskHandle_t const task = startTask(work, options);
    isReady.wait();
    int priority = 0;
    const auto end = steady_clock::now() + std::chrono::seconds(10);
    while (isRealTime && priority >= 0 && steady_clock::now() < end)
    {
        priority = effectivePriority(gettid());
        std::this_thread::yield();
    }
    EXPECT_TRUE(mutex.unlock());
    osTaskDestroy(task);
    return priority;
}

TEST(Mutex, LendsThePriorityOfTheWaitingThread)
{
    Mutex mutex;
    ASSERT_TRUE(mutex.lock());
    const int priority = priorityWhileARealTimeThreadWaits(mutex);
    const bool mayRunInRealTime =
        runTask([] { return osSetSchedPolicy(osTaskSelf(), OS_SCHED_FIFO); }) != 0;
    EXPECT_EQ(priority, mayRunInRealTime ? -5 : 0);  // -1 - real-time priority
}

TEST(COsMutex, HasAMutex)
{
    COsMutex mutex;
    ASSERT_NE(mutex.getHandle(), nullptr);
    EXPECT_NE(osMutexLock(mutex.getHandle(), 0), 0);
    EXPECT_NE(osMutexLock(mutex.getHandle(), 0), 0);
    EXPECT_NE(osMutexUnlock(mutex.getHandle()), 0);
    EXPECT_NE(osMutexUnlock(mutex.getHandle()), 0);
}

TEST(COsMutex, HasATimingRecord)
{
    generic::timing::IntervalAndDuration::setMeasuring(true);
    COsMutex mutex;
    EXPECT_EQ(mutex.getTiming().getDurationNs(), 0);
    mutex.getTiming().begin();
    osTaskSleep(nullptr, 2);
    mutex.getTiming().end();
    mutex.getTiming().output();
    EXPECT_GE(mutex.getTiming().getDurationNs(), 2'000'000);
    EXPECT_LT(mutex.getTiming().getDurationNs(), 20'000'000'000);
}

TEST(LastError, IsZeroAtFirst)
{
    std::thread(
        []
        {
            EXPECT_EQ(osGetLastError(), 0U);
            EXPECT_EQ(osIsError(), 0);
        })
        .join();
}

TEST(LastError, IsWhatWasSet)
{
    osSetLastError(4'000'000'000U);
    EXPECT_EQ(osGetLastError(), 4'000'000'000U);
    EXPECT_NE(osIsError(), 0);
    osSetLastError(0);
    EXPECT_EQ(osGetLastError(), 0U);
    EXPECT_EQ(osIsError(), 0);
}

TEST(LastError, BelongsToOneThread)
{
    osSetLastError(5);
    std::thread([] { EXPECT_EQ(osIsError(), 0); }).join();
    EXPECT_EQ(osGetLastError(), 5U);
}

}  // namespace
