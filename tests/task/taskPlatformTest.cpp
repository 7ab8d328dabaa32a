// What tasks ask of the platform, seen by standing in for it:
// - sleeping, yielding, priorities, policies, and when a handle is given back;
// - a termination that waits, of a thread that has ended meanwhile;
// - no thread can be made: start says true, everything else stays safe;
// - a thread that the platform does not know ends with a report and status 1.

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libos/osQueue.h>
#include <libos/osTask.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/Commands.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

// Set before threads start.
struct Faults
{
    bool noThreads = false;
    bool noSelf = false;
    bool noReserved = false;
    bool refusals = false;
};

Faults faults;

// A write to a queue returns when this task's thread has ended.
const utils::task::Task* taskToEndFirst = nullptr;

class Calls
{
  public:
    void add(std::string call)
    {
        const std::lock_guard guard(m_mutex);
        m_calls.push_back(std::move(call));
    }

    std::vector<std::string> take()
    {
        const std::lock_guard guard(m_mutex);
        return std::exchange(m_calls, {});
    }

  private:
    std::mutex m_mutex;
    std::vector<std::string> m_calls;
};

Calls calls;

template <typename Function>
Function* findOriginal(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::string describe(osTaskHandle_t task)
{
    return task == nullptr ? " null" : " task";
}

}  // namespace

osTaskHandle_t osTaskCreate(osTaskEntry_t entry, const osTaskOptions_t* options, void* arg)
{
    calls.add("create");
    return faults.noThreads
               ? nullptr
               : findOriginal<decltype(osTaskCreate)>("osTaskCreate")(entry, options, arg);
}

void osTaskDestroy(osTaskHandle_t task)
{
    calls.add("destroy" + describe(task));
    findOriginal<decltype(osTaskDestroy)>("osTaskDestroy")(task);
}

int osQueueWrite(osQueueHandle_t queue, void* item, int waitMs)
{
    const int result = findOriginal<decltype(osQueueWrite)>("osQueueWrite")(queue, item, waitMs);
    while (taskToEndFirst != nullptr &&
           taskToEndFirst->getState() != utils::task::Task::NOT_RUNNING)
    {
        std::this_thread::yield();
    }
    return result;
}

int osTaskJoin(osTaskHandle_t task)
{
    calls.add("join" + describe(task));
    return findOriginal<decltype(osTaskJoin)>("osTaskJoin")(task);
}

osTaskHandle_t osTaskSelf(void)
{
    return faults.noSelf ? nullptr : findOriginal<decltype(osTaskSelf)>("osTaskSelf")();
}

osTaskOptions_t osTaskGetOptions(osTaskHandle_t task)
{
    osTaskOptions_t options = findOriginal<decltype(osTaskGetOptions)>("osTaskGetOptions")(task);
    if (faults.noReserved)
    {
        options.reserved = nullptr;
    }
    return options;
}

int osTaskSetPriority(osTaskHandle_t task, int priority)
{
    calls.add("set priority" + describe(task) + " " + std::to_string(priority));
    return faults.refusals ? 0 : 1;
}

int osTaskGetPriority(osTaskHandle_t task)
{
    calls.add("get priority" + describe(task));
    return 17;
}

int osTaskSleep(osTaskHandle_t task, unsigned long milliseconds)
{
    calls.add("sleep" + describe(task) + " " + std::to_string(milliseconds));
    return 1;
}

int osSetSchedPolicy(osTaskHandle_t task, osSchedPolicy_t policy)
{
    calls.add("set policy" + describe(task) + " " + std::to_string(static_cast<int>(policy)));
    return faults.refusals ? 0 : 1;
}

namespace
{

using test::CountedMacro;
using test::StepRecorder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using utils::task::Task;

// A task as it stands that is waiting for macros.
class TaskPlatform : public testing::Test
{
  protected:
    void start()
    {
        m_task.start(nullptr, nullptr, false);
        calls.take();
    }

    StepRecorder m_recorder;
    Task m_task{"t", nullptr, 2};
};

TEST_F(TaskPlatform, SleepsOnBehalfOfTheCaller)
{
    Task::goToSleep(0);
    Task::goToSleep(1500);
    Task::goToSleep(18446744073709551615UL);
    EXPECT_THAT(calls.take(),
                ElementsAre("sleep null 0", "sleep null 1500", "sleep null 18446744073709551615"));
}

TEST_F(TaskPlatform, YieldsByASleepOfNoTime)
{
    Task::yield();
    EXPECT_THAT(calls.take(), ElementsAre("sleep null 0"));
}

TEST_F(TaskPlatform, SetsAndGetsPriorities)
{
    start();
    int priority = 0;
    EXPECT_TRUE(m_task.setPriority(-5));
    EXPECT_TRUE(m_task.getPriority(priority));
    EXPECT_EQ(priority, 17);
    EXPECT_THAT(calls.take(), ElementsAre("set priority task -5", "get priority task"));
}

TEST_F(TaskPlatform, SaysWhenAPriorityIsRefused)
{
    start();
    faults.refusals = true;
    EXPECT_FALSE(m_task.setPriority(1));
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

TEST_F(TaskPlatform, IsSparedWhileTheTaskIsNotRunning)
{
    int value = 0;
    m_task.setPriority(1);
    m_task.getPriority(value);
    m_task.join(value);
    m_task.terminate(true);
    EXPECT_THAT(calls.take(), IsEmpty());
}

TEST_F(TaskPlatform, SetsSchedulingPolicies)
{
    start();
    EXPECT_TRUE(m_task.setSchedulingPolicy(OS_SCHED_ROUND_ROBIN));
    faults.refusals = true;
    EXPECT_FALSE(m_task.setSchedulingPolicy(OS_SCHED_FIFO));
    EXPECT_THAT(calls.take(), ElementsAre("set policy task 2", "set policy task 1"));
}

TEST_F(TaskPlatform, GetsAHandleBackAtTheNextStartAndAtTheEnd)
{
    {
        Task task("other", nullptr, 2);
        task.start(nullptr, nullptr, false);
        task.terminate(false);
        findOriginal<decltype(osTaskJoin)>("osTaskJoin")(task.getOsTaskPtr());
        EXPECT_THAT(calls.take(), ElementsAre("create"));

        task.start(nullptr, nullptr, false);
        task.terminate(false);
        findOriginal<decltype(osTaskJoin)>("osTaskJoin")(task.getOsTaskPtr());
        EXPECT_THAT(calls.take(), ElementsAre("destroy task", "create"));

        task.cleanUp();
        EXPECT_THAT(calls.take(), ElementsAre("destroy task"));
    }
    EXPECT_THAT(calls.take(), IsEmpty());
}

// State 0 comes before the thread's last trace: whoever terminates and waits must not miss that.
TEST_F(TaskPlatform, WaitsForAThreadThatEndsWhileItIsTerminated)
{
    start();
    taskToEndFirst = &m_task;
    EXPECT_TRUE(m_task.terminate(true));
    taskToEndFirst = nullptr;
    EXPECT_THAT(calls.take(), ElementsAre("join task"));
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

class TaskWithoutThread : public testing::Test
{
  protected:
    TaskWithoutThread() { faults.noThreads = true; }

    StepRecorder m_recorder;
};

TEST_F(TaskWithoutThread, CountsAsStarted)
{
    Task task("t", nullptr, 2);
    EXPECT_TRUE(task.start(nullptr, nullptr, false));
    EXPECT_EQ(task.getState(), Task::RUNNING);
    EXPECT_EQ(task.getOsTaskPtr(), nullptr);
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

TEST_F(TaskWithoutThread, IsDestroyedWithoutHanging)
{
    {
        Task task("t", nullptr, 2);
        task.start(nullptr, nullptr, false);
    }
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    EXPECT_THAT(calls.take(), Not(Contains("destroy null")));
}

TEST_F(TaskWithoutThread, IsDestroyedWithoutHangingAlsoWithAFullEventQueue)
{
    std::atomic<int> numDeleted{0};
    {
        Task task("t", nullptr, 1);
        task.start(nullptr, nullptr, false);
        task.getEventQueuePtr()->write(new CountedMacro("filler", numDeleted, true), 0);
    }
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("ERROR: QueueWriteError Queue/write: Could not write macro "
                            "'TerminateTaskMacro' to queue 't-TaskEventQueue'.",
                            "ERROR: TaskError Task/terminate: Could not terminate task 't' - "
                            "unknown error."));
}

TEST_F(TaskWithoutThread, CanBeTerminatedAndJoinedWithoutHanging)
{
    Task task("t", nullptr, 2);
    task.start(nullptr, nullptr, false);
    EXPECT_TRUE(task.terminate(true));
    int exitStatus = 0;
    EXPECT_TRUE(task.join(exitStatus));
    EXPECT_EQ(exitStatus, -1);
}

TEST_F(TaskWithoutThread, IsNotDeletedWhenItWasToDeleteItself)
{
    auto* const task = new Task("t", nullptr, 2);
    EXPECT_TRUE(task->start(nullptr, nullptr, true));
    EXPECT_EQ(Task::getTaskPtr("t"), task);
    delete task;
}

// One life of a task whose thread does not find its way to the task.
void runLostThread()
{
    Task task("t", nullptr, 2);
    EXPECT_TRUE(task.start(nullptr, nullptr, false));
    int exitStatus = 0;
    EXPECT_TRUE(task.join(exitStatus));
    EXPECT_EQ(exitStatus, 1);
}

TEST(TaskWithLostThread, EndsWithAReportWhenThePlatformDoesNotKnowTheThread)
{
    StepRecorder recorder;
    faults.noSelf = true;
    runLostThread();
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: TaskError Task/staticGo: Could not get task "
                                             "entry for the current task."));
}

TEST(TaskWithLostThread, EndsWithAReportWhenTheOptionsDoNotNameTheTask)
{
    StepRecorder recorder;
    faults.noReserved = true;
    runLostThread();
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: TaskError Task/staticGo: Could not get task "
                                             "entry for the current task."));
}

}  // namespace
