// Sleeping and scheduling of tasks:
// - a sleep lasts at least as long as asked, also while signals interrupt it; a sleep of 0 gives
//   way; only the calling thread can be sent to sleep;
// - under normal scheduling a priority is remembered, not applied, the one at the start included;
// - under a real-time policy it is applied, within the policy's range, or refused with EPERM, and
//   then everything stays as it was;
// - a task starts with normal scheduling, also when its creator runs in real time;
// - null, unknown policies and threads that have ended are refused.

#include <errno.h>
#include <gtest/gtest.h>
#include <libos/osError.h>
#include <libos/osTask.h>
#include <pthread.h>
#include <sched.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <latch>
#include <thread>

#include "Tasks.h"

namespace
{

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using test::joinable;
using test::runTask;
using test::startTask;
using test::Work;

constexpr auto muchLater = 20s;

steady_clock::duration measureSleep(osTaskHandle_t task, unsigned long milliseconds)
{
    const auto start = steady_clock::now();
    EXPECT_NE(osTaskSleep(task, milliseconds), 0);
    return steady_clock::now() - start;
}

TEST(TaskSleep, LastsAtLeastAsLongAsAsked)
{
    for (const unsigned long milliseconds : {1UL, 20UL, 1'001UL})
    {
        const auto elapsed = measureSleep(nullptr, milliseconds);
        EXPECT_GE(elapsed, std::chrono::milliseconds(milliseconds));
        EXPECT_LT(elapsed, muchLater);
    }
}

TEST(TaskSleep, OfZeroGivesWay)
{
    EXPECT_LT(measureSleep(nullptr, 0), muchLater);
}

TEST(TaskSleep, TakesTheCallingTasksHandle)
{
    EXPECT_EQ(runTask([] { return measureSleep(osTaskSelf(), 5) >= 5ms ? 1 : 0; }), 1);
}

TEST(TaskSleep, RefusesAnotherTasksHandle)
{
    Work work = [] { return 0; };
    osTaskHandle_t const task = startTask(work);
    osSetLastError(0);
    EXPECT_EQ(osTaskSleep(task, 1), 0);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
    osTaskDestroy(task);
}

TEST(TaskSleep, IsNotShortenedBySignals)
{
    static std::atomic<int> signalCount{0};
    struct sigaction action = {};
    action.sa_handler = [](int) { ++signalCount; };
    ASSERT_EQ(sigaction(SIGUSR1, &action, nullptr), 0);
    std::atomic<bool> hasEnded{false};
    steady_clock::duration elapsed{};
    std::thread sleeping(
        [&]
        {
            elapsed = measureSleep(nullptr, 200);
            hasEnded = true;
        });
    while (!hasEnded)
    {
        pthread_kill(sleeping.native_handle(), SIGUSR1);
        std::this_thread::yield();
    }
    sleeping.join();
    EXPECT_GT(signalCount, 0);
    EXPECT_GE(elapsed, 200ms);
    EXPECT_LT(elapsed, muchLater);
}

/// A task that does nothing until the end of the object's scope.
class IdleTask
{
  public:
    explicit IdleTask(int priority = 0)
    {
        osTaskOptions_t options = joinable("idle");
        options.priority = priority;
        m_handle = startTask(m_work, options);
        m_isRunning.wait();
    }

    ~IdleTask()
    {
        m_mayEnd.count_down();
        osTaskDestroy(m_handle);
    }

    IdleTask(const IdleTask&) = delete;
    IdleTask& operator=(const IdleTask&) = delete;

    osTaskHandle_t handle() const { return m_handle; }

    int systemPolicy() const { return systemScheduling().first; }
    int systemPriority() const { return systemScheduling().second; }

  private:
    std::pair<int, int> systemScheduling() const
    {
        int policy = -1;
        sched_param parameters{};
        EXPECT_EQ(pthread_getschedparam(m_thread, &policy, &parameters), 0);
        return {policy, parameters.sched_priority};
    }

    osTaskHandle_t m_handle = nullptr;
    pthread_t m_thread{};
    std::latch m_isRunning{1};
    std::latch m_mayEnd{1};
    Work m_work = [this]
    {
        m_thread = pthread_self();
        m_isRunning.count_down();
        m_mayEnd.wait();
        return 0;
    };
};

TEST(TaskPriority, IsTheOneOfTheStart)
{
    const IdleTask task(7);
    EXPECT_EQ(osTaskGetPriority(task.handle()), 7);
    EXPECT_EQ(osTaskGetOptions(task.handle()).priority, 7);
    EXPECT_EQ(task.systemPolicy(), SCHED_OTHER);
    EXPECT_EQ(task.systemPriority(), 0);
}

TEST(TaskPriority, IsRememberedUnderNormalScheduling)
{
    const IdleTask task;
    for (const int priority : {5, 1'000, -3, 0})
    {
        EXPECT_NE(osTaskSetPriority(task.handle(), priority), 0);
        EXPECT_EQ(osTaskGetPriority(task.handle()), priority);
        EXPECT_EQ(osTaskGetOptions(task.handle()).priority, priority);
        EXPECT_EQ(task.systemPolicy(), SCHED_OTHER);
    }
}

TEST(TaskPriority, OfNull)
{
    osSetLastError(0);
    EXPECT_EQ(osTaskSetPriority(nullptr, 1), 0);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
    EXPECT_EQ(osTaskGetPriority(nullptr), 0);
}

/// What must hold of a real-time policy, whether or not this process may use it.
void expectAppliedOrRefused(osSchedPolicy_t policy, int systemPolicy)
{
    const IdleTask task(7);
    osSetLastError(0);
    if (osSetSchedPolicy(task.handle(), policy) == 0)
    {
        EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EPERM));
        EXPECT_EQ(task.systemPolicy(), SCHED_OTHER);
        EXPECT_EQ(osTaskGetPriority(task.handle()), 7);
        return;
    }
    EXPECT_EQ(task.systemPolicy(), systemPolicy);
    EXPECT_EQ(task.systemPriority(), 7);
    EXPECT_NE(osTaskSetPriority(task.handle(), 9), 0);
    EXPECT_EQ(task.systemPriority(), 9);
    EXPECT_NE(osTaskSetPriority(task.handle(), 1'000), 0);
    EXPECT_EQ(task.systemPriority(), sched_get_priority_max(systemPolicy));
    EXPECT_EQ(osTaskGetPriority(task.handle()), 1'000);
    EXPECT_NE(osTaskSetPriority(task.handle(), 0), 0);
    EXPECT_EQ(task.systemPriority(), sched_get_priority_min(systemPolicy));
    EXPECT_NE(osSetSchedPolicy(task.handle(), OS_SCHED_NORMAL), 0);
    EXPECT_EQ(task.systemPolicy(), SCHED_OTHER);
}

TEST(TaskPolicy, FirstInFirstOutIsAppliedOrRefused)
{
    expectAppliedOrRefused(OS_SCHED_FIFO, SCHED_FIFO);
}

TEST(TaskPolicy, RoundRobinIsAppliedOrRefused)
{
    expectAppliedOrRefused(OS_SCHED_ROUND_ROBIN, SCHED_RR);
}

/// Ends the process with status 0 when a process without privileges is refused.
[[noreturn]] void exitWithRefusal()
{
    const rlimit none{.rlim_cur = 0, .rlim_max = 0};
    setrlimit(RLIMIT_RTPRIO, &none);
    constexpr uid_t nobody = 65'534;
    [[maybe_unused]] const int ignored = setuid(nobody);  // fails when it has no privileges anyhow
    const int status = runTask(
        []
        {
            osSetLastError(0);
            const bool isRefused = osSetSchedPolicy(osTaskSelf(), OS_SCHED_FIFO) == 0;
            return isRefused && osGetLastError() == EPERM ? 0 : 1;
        });
    _exit(status);
}

TEST(TaskPolicyDeathTest, IsRefusedWithoutThePrivilege)
{
    EXPECT_EXIT(exitWithRefusal(), testing::ExitedWithCode(0), "");
}

TEST(TaskPolicy, OfAStartedTaskIsNormalWhateverItsCreators)
{
    EXPECT_EQ(runTask(
                  []
                  {
                      osSetSchedPolicy(osTaskSelf(), OS_SCHED_FIFO);
                      const IdleTask task(3);
                      return task.systemPolicy();
                  }),
              SCHED_OTHER);
}

TEST(TaskPolicy, RefusesNull)
{
    osSetLastError(0);
    EXPECT_EQ(osSetSchedPolicy(nullptr, OS_SCHED_NORMAL), 0);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
}

TEST(TaskPolicy, RefusesAThreadThatHasEnded)
{
    Work work = [] { return 0; };
    osTaskHandle_t const task = startTask(work);
    osTaskJoin(task);
    osSetLastError(0);
    EXPECT_EQ(osSetSchedPolicy(task, OS_SCHED_NORMAL), 0);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(ESRCH));
    EXPECT_NE(osTaskSetPriority(task, 4), 0);
    EXPECT_EQ(osTaskGetPriority(task), 4);
    osTaskDestroy(task);
}

}  // namespace
