// The end of task objects:
// - destroying a running task ends its thread first, also with a full event queue, also when the
//   thread never reads that queue;
// - nothing is reported of a thread that ends by itself meanwhile;
// - cleanUp first in a derived destructor, while the thread still uses the derived part;
// - tasks that delete themselves: at once, on termination, waited for or not;
// - terminate macros that nobody reads are deleted with the event queue.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <latch>
#include <memory>
#include <string>
#include <vector>

#include "support/Blocker.h"
#include "support/Listeners.h"
#include "support/SelfDeletingTask.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::Blocker;
using test::CountedMacro;
using test::FleetingTask;
using test::makeMacro;
using test::SelfDeletingTask;
using test::StepRecorder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::queue::Queue;
using utils::task::Task;

// Waits for state 2 without ever reading its event queue, and uses a part of its own until then.
class PollingTask : public Task
{
  public:
    explicit PollingTask(unsigned long maxEventQueueSize) : Task("t", nullptr, maxEventQueueSize) {}
    ~PollingTask() override { cleanUp(); }

    int run(void*) override
    {
        m_isRunning.count_down();
        while (!waitingToTerminate())
        {
            ++*m_ownPart;
            yield();
        }
        return 0;
    }

    void waitUntilRunning() { m_isRunning.wait(); }

  private:
    const std::unique_ptr<long> m_ownPart = std::make_unique<long>(0);
    std::latch m_isRunning{1};
};

TEST(TaskDestruction, EndsTheThreadFirst)
{
    StepRecorder recorder;
    std::atomic<int> numDone{0};
    {
        Task task("t", nullptr, 5);
        task.start(nullptr, nullptr, false);
        for (int i = 0; i < 3; ++i)
        {
            task.getEventQueuePtr()->write(makeMacro([&] { ++numDone; }), 0);
        }
    }
    EXPECT_EQ(numDone, 3);
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskDestruction, OfATaskWhoseThreadHasEnded)
{
    StepRecorder recorder;
    {
        Task task("t", nullptr, 5);
        task.start(nullptr, nullptr, false);
        task.terminate(true);
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskDestruction, CleaningUpEarlyEndsTheThread)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    EXPECT_NE(task.getOsTaskPtr(), nullptr);
    task.cleanUp();
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getOsTaskPtr(), nullptr);
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    task.cleanUp();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskDestruction, WaitsForTheThreadBeforeTheDerivedPartIsGone)
{
    StepRecorder recorder;
    {
        PollingTask task(5);
        task.start(nullptr, nullptr, false);
        task.waitUntilRunning();
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskDestruction, GetsThroughAFullEventQueueWhenAPlaceBecomesFree)
{
    StepRecorder recorder;
    Blocker blocker;
    // The destructor has found the queue full when the thread goes on.
    const test::ErrorListener failure("Could not terminate task 't' - unknown error.",
                                      [&] { blocker.open(); });
    std::atomic<int> numDeleted{0};
    {
        Task task("t", nullptr, 1);
        task.start(nullptr, nullptr, false);
        task.getEventQueuePtr()->write(blocker.makeMacro(), -1);
        blocker.waitUntilEntered();
        task.getEventQueuePtr()->write(new CountedMacro("filler", numDeleted, true), 0);
    }
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: QueueWriteError Queue/write: Could not write macro "
                            "'TerminateTaskMacro' to queue 't-TaskEventQueue'.",
                            "ERROR: TaskError Task/terminate: Could not terminate task 't' - "
                            "unknown error."));
}

TEST(TaskDestruction, GetsThroughAFullEventQueueThatNobodyReads)
{
    StepRecorder recorder;
    std::atomic<int> numDeleted{0};
    {
        PollingTask task(1);
        task.getEventQueuePtr()->write(new CountedMacro("filler", numDeleted, true), 0);
        task.start(nullptr, nullptr, false);
        task.waitUntilRunning();
    }
    EXPECT_EQ(numDeleted, 1);
}

TEST(TaskDestruction, GetsThroughAnEventQueueWithoutPlaces)
{
    StepRecorder recorder;
    {
        PollingTask task(0);
        task.start(nullptr, nullptr, false);
        task.waitUntilRunning();
    }
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
}

TEST(TaskDestruction, DeletesTerminateMacrosThatNobodyRead)
{
    StepRecorder recorder;
    recorder.setTaskLevel(1);
    {
        PollingTask task(5);
        task.start(nullptr, nullptr, false);
        task.waitUntilRunning();
        task.terminate(true);
    }
    recorder.setTaskLevel(0);
    EXPECT_THAT(recorder.takeOwn(),
                Contains("1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task "
                         "Macro with queue 't-TaskEventQueue'."));
}

TEST(TaskDestruction, OnTheThreadWhenFinishedIfToldSo)
{
    StepRecorder recorder;
    std::latch isDestroyed{1};
    Task* const task = new FleetingTask("t", isDestroyed);
    EXPECT_TRUE(task->start(nullptr, nullptr, true));
    isDestroyed.wait();
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    EXPECT_EQ(Queue::getQueuePtr("t-TaskEventQueue"), nullptr);
    EXPECT_THAT(recorder.take(), ElementsAre("WARNING: DoesNotExist Queue/getQueuePtr: Queue "
                                             "'t-TaskEventQueue' does not exist."));
}

TEST(TaskDestruction, OfATaskThatDeletesItselfFollowsItsTermination)
{
    for (const bool waitForTermination : {false, true})
    {
        StepRecorder recorder;
        std::atomic<int> numDone{0};
        std::latch isDestroyed{1};
        Task* const task = new SelfDeletingTask("t", isDestroyed);
        task->start(nullptr, nullptr, true);
        task->getEventQueuePtr()->write(makeMacro([&] { ++numDone; }), 0);
        EXPECT_TRUE(task->terminate(waitForTermination));
        isDestroyed.wait();
        EXPECT_EQ(numDone, 1);
        EXPECT_THAT(recorder.take(), IsEmpty());
    }
}

// The same with the macro [..., write itself, ...] of terminate() still returning.
TEST(TaskDestruction, OfATaskThatDeletesItselfIsTracedOnItsThread)
{
    StepRecorder recorder;
    std::latch isDestroyed{1};
    Task* const task = new SelfDeletingTask("t", isDestroyed);
    task->start(nullptr, nullptr, true);
    recorder.setTaskLevel(1);
    task->terminate(false);
    isDestroyed.wait();
    recorder.setTaskLevel(0);
    recorder.takeOwn();
    std::vector<std::string> steps = recorder.takeOthers();
    // The thread may have started before the level was set.
    steps.erase(steps.begin(), steps.end() - std::min<std::ptrdiff_t>(5, std::ssize(steps)));
    EXPECT_THAT(steps,
                ElementsAre("1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task "
                            "Macro with queue 't-TaskEventQueue'.",
                            "1 Task/go: Thread of execution for task 't' has completed - exit "
                            "status = 0.",
                            "1 Task/threadOfExecutionFinished: Task 't' has been notified that its "
                            "thread of execution has finished.",
                            "1 Task/~Task: Destroying task 't'.",  //
                            "1 Task/~Task: Destroyed 't'."));
}

TEST(TaskDestruction, OfATaskThatIsNoLongerToDeleteItself)
{
    class OnceTask : public Task
    {
      public:
        OnceTask() : Task("t", nullptr, 5) {}
        ~OnceTask() override { cleanUp(); }
        int run(void*) override { return 0; }
    };

    // Only the latest start counts.
    auto* const task = new OnceTask;
    task->start(nullptr, nullptr, false);
    osTaskJoin(task->getOsTaskPtr());
    task->start(nullptr, nullptr, false);
    osTaskJoin(task->getOsTaskPtr());
    EXPECT_EQ(Task::getTaskPtr("t"), task);
    delete task;
}

// Runs until it is released, and lets terminate() find that it has ended.
class EndingFirst : public Task
{
  public:
    EndingFirst() : Task("ending", nullptr, 1) {}
    ~EndingFirst() override { cleanUp(); }

    bool terminate(bool waitForTermination) override
    {
        m_released.count_down();
        osTaskJoin(getOsTaskPtr());
        return Task::terminate(waitForTermination);
    }

    int run(void*) override
    {
        m_released.wait();
        return 0;
    }

  private:
    std::latch m_released{1};
};

TEST(TaskDestruction, SaysNothingOfAThreadThatHasJustEndedByItself)
{
    test::StepRecorder recorder;
    {
        EndingFirst task;
        task.start(nullptr, nullptr, false);
    }
    EXPECT_THAT(recorder.take(), testing::IsEmpty());
}

}  // namespace
