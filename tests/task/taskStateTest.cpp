// The states of a task and the calls that move it from one to the next:
// - terminate: macros written before are executed, the exit status is there afterwards;
// - join: waits, may be repeated while nobody restarts;
// - a full event queue: the termination is reported as failed, the state is 1 again;
// - calls from the task's own thread are refused without a deadlock;
// - the exit status is there when the state says that the thread has finished.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <thread>

#include "support/Blocker.h"
#include "support/Listeners.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::Blocker;
using test::CountedMacro;
using test::makeMacro;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;
using utils::task::Task;

TEST(TaskState, TerminationWaitsForTheMacrosWrittenBefore)
{
    StepRecorder recorder;
    Blocker blocker;
    std::atomic<int> numDone{0};
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    task.getEventQueuePtr()->write(makeMacro([&] { ++numDone; }), 0);
    task.getEventQueuePtr()->write(makeMacro([&] { ++numDone; }), 0);
    blocker.open();

    EXPECT_TRUE(task.terminate(true));
    EXPECT_EQ(numDone, 2);
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getExitStatus(), 0);
    EXPECT_FALSE(task.isThreadOfExecutionRunning());
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskState, MacrosWrittenAfterTheTerminationStayInTheQueue)
{
    Blocker blocker;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    EXPECT_TRUE(task.terminate(false));
    std::atomic<int> numDeleted{0};
    auto* const late = new CountedMacro("late", numDeleted, true);
    task.getEventQueuePtr()->write(late, 0);
    blocker.open();
    osTaskJoin(task.getOsTaskPtr());
    EXPECT_EQ(task.getEventQueuePtr()->size(), 1U);

    // A new thread finds it there.
    task.start(nullptr, nullptr, false);
    EXPECT_TRUE(task.terminate(true));
    EXPECT_EQ(numDeleted, 1);
}

TEST(TaskState, TerminationWithoutWaitingReturnsAtOnceInStateTwo)
{
    Blocker blocker;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();

    EXPECT_TRUE(task.terminate(false));
    EXPECT_EQ(task.getState(), Task::WAITING_TO_TERMINATE);
    EXPECT_TRUE(task.waitingToTerminate());
    EXPECT_TRUE(task.isThreadOfExecutionRunning());
    blocker.open();
}

TEST(TaskState, JoinWaitsForTheEndAndGivesTheExitStatus)
{
    class FortyTwoTask : public Task
    {
      public:
        FortyTwoTask() : Task("t", nullptr, 5) {}
        ~FortyTwoTask() override { cleanUp(); }
        int run(void* arg) override
        {
            Task::run(arg);
            m_open.wait();
            return 42;
        }
        std::latch m_open{1};
    };

    StepRecorder recorder;
    FortyTwoTask task;
    task.start(nullptr, nullptr, false);
    EXPECT_TRUE(task.terminate(false));
    {
        // The thread ends only when somebody joins.
        const test::TraceListener joining("Joining task '' to task 't'.",
                                          [&] { task.m_open.count_down(); });
        recorder.setTaskLevel(1);
        int exitStatus = 0;
        EXPECT_TRUE(task.join(exitStatus));
        recorder.setTaskLevel(0);
        EXPECT_EQ(exitStatus, 42);
    }
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getExitStatus(), 42);
}

TEST(TaskState, JoinAfterTheEndIsRefused)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.terminate(true);
    int exitStatus = 77;
    EXPECT_FALSE(task.join(exitStatus));
    EXPECT_EQ(exitStatus, 77);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/join: Can not join task "
                                             "'' to task 't' - task is not running."));
}

TEST(TaskState, AFullEventQueueMakesTheTerminationFail)
{
    StepRecorder recorder;
    Macro filler("filler");
    Blocker blocker;
    Task task("t", nullptr, 1);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), -1);
    blocker.waitUntilEntered();
    task.getEventQueuePtr()->write(&filler, 0);

    EXPECT_FALSE(task.terminate(true));
    EXPECT_EQ(task.getState(), Task::RUNNING);
    EXPECT_FALSE(task.waitingToTerminate());
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: QueueWriteError Queue/write: Could not write macro "
                            "'TerminateTaskMacro' to queue 't-TaskEventQueue'.",
                            "ERROR: TaskError Task/terminate: Could not terminate task 't' - "
                            "unknown error."));
    blocker.open();
}

TEST(TaskState, ATerminationThatFailedMayBeRepeated)
{
    StepRecorder recorder;
    Blocker blocker;
    Task task("t", nullptr, 1);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), -1);
    blocker.waitUntilEntered();
    std::latch isRead{1};
    task.getEventQueuePtr()->write(makeMacro([&] { isRead.count_down(); }), 0);
    EXPECT_FALSE(task.terminate(false));
    blocker.open();
    isRead.wait();
    EXPECT_TRUE(task.terminate(true));
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
}

TEST(TaskState, ATerminationMayFollowAnother)
{
    StepRecorder recorder;
    Blocker blocker;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), -1);
    blocker.waitUntilEntered();
    EXPECT_TRUE(task.terminate(false));
    EXPECT_TRUE(task.terminate(false));
    EXPECT_EQ(task.getEventQueuePtr()->size(), 2U);
    EXPECT_EQ(task.getState(), Task::WAITING_TO_TERMINATE);
    blocker.open();
    osTaskJoin(task.getOsTaskPtr());
    EXPECT_EQ(task.getEventQueuePtr()->size(), 1U);  // deleted with the queue
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskState, JoiningItselfIsRefusedWithoutADeadlock)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    int exitStatus = 77;
    bool isJoined = true;
    task.getEventQueuePtr()->write(makeMacro([&] { isJoined = task.join(exitStatus); }), 0);
    EXPECT_TRUE(task.terminate(true));
    EXPECT_FALSE(isJoined);
    EXPECT_EQ(exitStatus, 77);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/join: Can not join task "
                                             "'t' to task 't' - a task can not wait for itself."));
}

TEST(TaskState, TerminatingItselfDoesNotWait)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    bool isTerminated = false;
    std::latch isDone{1};
    task.getEventQueuePtr()->write(makeMacro(
                                       [&]
                                       {
                                           isTerminated = task.terminate(true);
                                           isDone.count_down();
                                       }),
                                   0);
    isDone.wait();
    EXPECT_TRUE(isTerminated);
    EXPECT_EQ(osTaskJoin(task.getOsTaskPtr()), 0);
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/join: Can not join task "
                                             "'t' to task 't' - a task can not wait for itself."));
}

TEST(TaskState, ARunOfItsOwnEndsByPolling)
{
    class PollingTask : public Task
    {
      public:
        PollingTask() : Task("t", nullptr, 5) {}
        ~PollingTask() override { cleanUp(); }
        int run(void*) override
        {
            while (!waitingToTerminate())
            {
                yield();
            }
            return 3;
        }
    };

    StepRecorder recorder;
    PollingTask task;
    task.start(nullptr, nullptr, false);
    EXPECT_TRUE(task.terminate(true));
    // terminate() does not wait for a thread that it finds finished.
    EXPECT_EQ(osTaskJoin(task.getOsTaskPtr()), 3);
    EXPECT_EQ(task.getExitStatus(), 3);
    EXPECT_EQ(task.getEventQueuePtr()->size(), 1U);  // the macro that nobody reads
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskState, TheExitStatusIsThereWhenTheStateSaysFinished)
{
    class CountingTask : public Task
    {
      public:
        CountingTask() : Task("t", nullptr, 5) {}
        ~CountingTask() override { cleanUp(); }
        int run(void*) override { return ++m_numRuns; }

      private:
        int m_numRuns = 0;
    };

    CountingTask task;
    for (int i = 1; i <= 500; ++i)
    {
        task.start(nullptr, nullptr, false);
        while (task.getState() != Task::NOT_RUNNING)
        {
            Task::yield();
        }
        ASSERT_EQ(task.getExitStatus(), i);
    }
}

TEST(TaskState, TerminationIsVirtualAndUsedByCleanUp)
{
    class ProudTask : public Task
    {
      public:
        explicit ProudTask(int& numTerminations)
            : Task("t", nullptr, 5), m_numTerminations(numTerminations)
        {
        }
        ~ProudTask() override { cleanUp(); }
        bool terminate(bool waitForTermination) override
        {
            EXPECT_TRUE(waitForTermination);
            ++m_numTerminations;
            return Task::terminate(waitForTermination);
        }

      private:
        int& m_numTerminations;
    };

    int numTerminations = 0;
    {
        ProudTask task(numTerminations);
        task.start(nullptr, nullptr, false);
    }
    EXPECT_EQ(numTerminations, 1);
}

}  // namespace
