// What tasks trace, level, function and order, on the controlling thread and on their own:
// creation, start with its options, the main loop, termination, joining, queries, queues,
// destruction.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <latch>
#include <optional>
#include <sstream>

#include "support/Blocker.h"
#include "support/Listeners.h"
#include "support/SelfDeletingTask.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::Blocker;
using test::makeMacro;
using test::StepRecorder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::queue::Queue;
using utils::task::Task;

int destroyHook = 0;  // stands for a hook

template <typename Value>
std::string toText(Value value)
{
    std::ostringstream os;
    os << value;
    return os.str();
}

class TaskTrace : public testing::Test
{
  protected:
    ~TaskTrace() override { m_recorder.setLevel(0); }

    StepRecorder m_recorder;
};

TEST_F(TaskTrace, OfCreation)
{
    m_recorder.setTaskLevel(2);
    Task task("t", nullptr, 5);
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Task/Task: Creating task 't'."));
}

TEST_F(TaskTrace, OfCreationWithAQueue)
{
    Queue queue("q", 1);
    m_recorder.setTaskLevel(2);
    Task task("t", &queue, 5);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Task/Task: Creating task 't'.",
                            "1 Task/addQueue: Forwarding macros written to queue 'q' to the "
                            "internal Event Queue of  task 't'."));
}

TEST_F(TaskTrace, OfCreationComesAfterThatOfTheEventQueue)
{
    m_recorder.setLevel(1);
    Task task("t", nullptr, 5);
    m_recorder.setLevel(0);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Queue/Queue: Creating queue 't-TaskEventQueue' - max. macros = 5.",
                            "1 Task/Task: Creating task 't'."));
}

TEST_F(TaskTrace, OfRemovingAQueue)
{
    Queue queue("q", 1);
    Task task("t", &queue, 5);
    m_recorder.setTaskLevel(1);
    task.removeQueue(&queue);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Task/removeQueue: Stopping the forwarding of macros written to "
                            "queue 'q' to the internal Event Queue of  task 't'."));
}

TEST_F(TaskTrace, OfDestructionComesBeforeThatOfTheEventQueue)
{
    std::optional<Task> task(std::in_place, "t", nullptr, 5);
    m_recorder.setLevel(1);
    task.reset();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Task/~Task: Destroying task 't'.",  //
                            "1 Task/~Task: Destroyed 't'.",
                            "1 Queue/~Queue: Destroying queue 't-TaskEventQueue'.",
                            "1 Queue/read: Reading macro from queue 't-TaskEventQueue'."));
}

TEST_F(TaskTrace, OfStartingAtLevelOne)
{
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(1);
    task.start(nullptr, nullptr, false);
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(m_recorder.takeOwn(),
                ElementsAre("1 Task/start: Starting thread of execution for task 't'."));
}

TEST_F(TaskTrace, OfStartingAtLevelTwoShowsTheOptions)
{
    osTaskOptions_t options{};
    options.priority = -3;
    options.stackSize = 1048576;
    options.persist = 4;
    options.joinable = 5;
    options.destroyHook = &destroyHook;
    options.user1 = 0x1234;
    options.user2 = 0xabcdef;
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(2);
    task.start(&options, nullptr, false);
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(m_recorder.takeOwn(),
                ElementsAre("1 Task/start: Starting thread of execution for task 't'.",
                            "2 Task/start: Options for task 't':\n"
                            "    Name          = 't'\n"
                            "    Priority      = -3\n"
                            "    Stack size    = 1048576\n"
                            "    Persist?      = 4\n"
                            "    Joinable?     = 1\n"
                            "    Destroy hook  = 1\n"
                            "    User1         = 0x1234\n"
                            "    User2         = 0xabcdef\n"
                            "    Reserved      = " +
                                toText(static_cast<void*>(&task))));
}

TEST_F(TaskTrace, OfStartingAnUnnamedTaskThatDeletesItself)
{
    std::latch isDestroyed{1};
    Task* const task = new test::FleetingTask("", isDestroyed);
    const std::string address = toText(static_cast<void*>(task));
    m_recorder.setTaskLevel(2);
    task->start(nullptr, nullptr, true);
    isDestroyed.wait();
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(m_recorder.takeOwn(),
                ElementsAre("1 Task/start: Starting thread of execution for task ''.",
                            "2 Task/start: Options for task '':\n"
                            "    Name          = 'Task:" +
                                address +
                                ":ID1'\n"
                                "    Priority      = 0\n"
                                "    Stack size    = 0\n"
                                "    Persist?      = 0\n"
                                "    Joinable?     = 0\n"
                                "    Destroy hook  = 0\n"
                                "    User1         = 0\n"
                                "    User2         = 0\n"
                                "    Reserved      = " +
                                address));
}

TEST_F(TaskTrace, OfTheThreadFromBeginToEnd)
{
    pid_t threadId = 0;
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(2);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(makeMacro([&] { threadId = gettid(); }), 0);
    task.terminate(true);
    osTaskJoin(task.getOsTaskPtr());
    m_recorder.setTaskLevel(0);
    const std::string id = std::to_string(threadId);
    EXPECT_THAT(m_recorder.takeOthers(),
                ElementsAre("1 Task/go: Thread of execution for task 't' (" + id + ") started.",
                            "2 Task/run: Invoking default task main method - reading/executing "
                            "macros written to queue 't-TaskEventQueue'.",
                            "1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task "
                            "Macro with queue 't-TaskEventQueue'.",
                            "1 Task/go: Thread of execution for task 't' has completed - exit "
                            "status = 0.",
                            "1 Task/threadOfExecutionFinished: Task 't' has been notified that its "
                            "thread of execution has finished."));
}

TEST_F(TaskTrace, OfTheThreadAtLevelOne)
{
    pid_t threadId = 0;
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(1);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(makeMacro([&] { threadId = gettid(); }), 0);
    task.terminate(true);
    osTaskJoin(task.getOsTaskPtr());
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(m_recorder.takeOthers(),
                ElementsAre("1 Task/go: Thread of execution for task 't' (" +
                                std::to_string(threadId) + ") started.",
                            "1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task "
                            "Macro with queue 't-TaskEventQueue'.",
                            "1 Task/go: Thread of execution for task 't' has completed - exit "
                            "status = 0.",
                            "1 Task/threadOfExecutionFinished: Task 't' has been notified that its "
                            "thread of execution has finished."));
}

// The terminate macro is deleted, not executed.
TEST_F(TaskTrace, OfTheEndOfTheMainLoopWithAllThatItDoes)
{
    Blocker blocker;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    m_recorder.setLevel(2);
    task.terminate(false);
    blocker.open();
    osTaskJoin(task.getOsTaskPtr());
    m_recorder.setLevel(0);
    EXPECT_THAT(
        m_recorder.takeOthers(),
        ElementsAre("1 Command/execute: Executed command 'function' - status = 0.",
                    "1 Command/~Command: Destroying command 'function'.",
                    "1 Command/~Command: Destroying command 'macro'.",
                    "1 Command/execute: Executed command 'macro' - status = 0.",
                    "1 Queue/read: Reading macro from queue 't-TaskEventQueue'.",
                    "2 Queue/read: Read macro 'TerminateTaskMacro' from queue 't-TaskEventQueue'.",
                    "1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task Macro "
                    "with queue 't-TaskEventQueue'.",
                    "1 WriteCommand/~WriteCommand: Destroying Write Command for queue "
                    "'t-TaskEventQueue' and macro 'TerminateTaskMacro'.",
                    "1 Command/~Command: Destroying command 'WriteCommand'.",
                    "1 NoOpCommand/~NoOpCommand: Destroying a No-Op Command.",
                    "1 Command/~Command: Destroying command 'NoOpCommand'.",
                    "1 Command/~Command: Destroying command 'TerminateTaskMacro'.",
                    "1 Task/go: Thread of execution for task 't' has completed - exit status = 0.",
                    "1 Task/threadOfExecutionFinished: Task 't' has been notified that its thread "
                    "of execution has finished."));
}

TEST_F(TaskTrace, OfTheThreadEnclosesTheHooks)
{
    class TracingTask : public Task
    {
      public:
        TracingTask() : Task("t", nullptr, 5) {}
        ~TracingTask() override { cleanUp(); }
        void initialize() override { getMyName(); }
        int run(void*) override
        {
            m_threadId = gettid();
            isThreadOfExecutionRunning();
            return 0;
        }
        void finalize(const int&) override { getMyName(); }
        pid_t m_threadId = 0;
    };

    TracingTask task;
    m_recorder.setTaskLevel(2);
    task.start(nullptr, nullptr, false);
    osTaskJoin(task.getOsTaskPtr());
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(m_recorder.takeOthers(),
                ElementsAre("1 Task/go: Thread of execution for task 't' (" +
                                std::to_string(task.m_threadId) + ") started.",
                            "1 Task/getMyName: My task name is 't'.",
                            "2 Task/isThreadOfExecutionRunning: Thread of execution running for "
                            "task 't' = 1.",
                            "1 Task/getMyName: My task name is 't'.",
                            "1 Task/go: Thread of execution for task 't' has completed - exit "
                            "status = 0.",
                            "1 Task/threadOfExecutionFinished: Task 't' has been notified that its "
                            "thread of execution has finished."));
}

TEST_F(TaskTrace, OfTheExitStatusOfARunOfItsOwn)
{
    class FailingTask : public Task
    {
      public:
        FailingTask() : Task("t", nullptr, 5) {}
        ~FailingTask() override { cleanUp(); }
        int run(void*) override { return -9; }
    };

    FailingTask task;
    m_recorder.setTaskLevel(1);
    task.start(nullptr, nullptr, false);
    osTaskJoin(task.getOsTaskPtr());
    EXPECT_THAT(m_recorder.takeOthers(),
                Contains("1 Task/go: Thread of execution for task 't' has completed - exit status "
                         "= -9."));
}

TEST_F(TaskTrace, OfTerminationWithoutWaiting)
{
    Blocker blocker;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    m_recorder.setTaskLevel(2);
    task.terminate(false);
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(
        m_recorder.take(),
        ElementsAre("1 Task/terminate: Terminating thread of execution for task 't'.",
                    "1 TerminateTaskMacro/TerminateTaskMacro: Creating a Terminate Task Macro with "
                    "queue 't-TaskEventQueue'."));
    blocker.open();
}

TEST_F(TaskTrace, OfTerminationAndJoining)
{
    Blocker blocker;
    const test::TraceListener joining("Joining task '' to task 't'.", [&] { blocker.open(); });
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    m_recorder.setTaskLevel(2);
    task.terminate(true);
    m_recorder.setTaskLevel(0);
    EXPECT_THAT(
        m_recorder.takeOwn(),
        ElementsAre("1 Task/terminate: Terminating thread of execution for task 't'.",
                    "1 TerminateTaskMacro/TerminateTaskMacro: Creating a Terminate Task Macro with "
                    "queue 't-TaskEventQueue'.",
                    "1 Task/getMyName: My task name is ''.",
                    "1 Task/join: Joining task '' to task 't'."));
}

TEST_F(TaskTrace, OfATerminationThatFails)
{
    Task task("t", nullptr, 0);
    task.setState(Task::RUNNING);
    m_recorder.setTaskLevel(2);
    EXPECT_FALSE(task.terminate(true));
    EXPECT_THAT(
        m_recorder.take(),
        ElementsAre("1 Task/terminate: Terminating thread of execution for task 't'.",
                    "1 TerminateTaskMacro/TerminateTaskMacro: Creating a Terminate Task Macro with "
                    "queue 't-TaskEventQueue'.",
                    "ERROR: QueueWriteError Queue/write: Could not write macro "
                    "'TerminateTaskMacro' to queue 't-TaskEventQueue'.",
                    "ERROR: TaskError Task/terminate: Could not terminate task 't' - unknown "
                    "error.",
                    "1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task Macro "
                    "with queue 't-TaskEventQueue'."));
    task.setState(Task::NOT_RUNNING);
}

TEST_F(TaskTrace, OfJoiningFromAnotherTask)
{
    Blocker blocker;
    const test::TraceListener joining("Joining task 'joiner' to task 't'.",
                                      [&] { blocker.open(); });
    Task joiner("joiner", nullptr, 5);
    Task task("t", nullptr, 5);
    joiner.start(nullptr, nullptr, false);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    task.terminate(false);

    std::vector<std::string> steps;
    int exitStatus = -1;
    joiner.getEventQueuePtr()->write(makeMacro(
                                         [&]
                                         {
                                             m_recorder.setTaskLevel(2);
                                             EXPECT_TRUE(task.join(exitStatus));
                                             m_recorder.setTaskLevel(0);
                                             steps = m_recorder.takeOwn();
                                         }),
                                     0);
    joiner.terminate(true);
    osTaskJoin(joiner.getOsTaskPtr());
    EXPECT_EQ(exitStatus, 0);
    EXPECT_THAT(steps, ElementsAre("1 Task/getMyName: My task name is 'joiner'.",
                                   "1 Task/join: Joining task 'joiner' to task 't'."));
}

TEST_F(TaskTrace, OfARefusedJoinHasTheCallersName)
{
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(2);
    int exitStatus = 0;
    task.join(exitStatus);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Task/getMyName: My task name is ''.",
                            "ERROR: WrongTaskState Task/join: Can not join task '' to task 't' - "
                            "task is not running."));
}

TEST_F(TaskTrace, OfRefusedCallsIsTheReportAlone)
{
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(2);
    int priority = 0;
    task.terminate(true);
    task.setPriority(1);
    task.getPriority(priority);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("ERROR: WrongTaskState Task/terminate: Task 't' can not be terminated "
                            "- task is not running.",
                            "ERROR: WrongTaskState Task/setPriority: Can not set priority of task "
                            "'t' to 1 - task is not running.",
                            "ERROR: WrongTaskState Task/getPriority: Can not get priority of task "
                            "'t' - task is not running."));
}

TEST_F(TaskTrace, OfARefusedStartIsTheReportAlone)
{
    Task task("t", nullptr, 5);
    task.setState(Task::RUNNING);
    m_recorder.setTaskLevel(2);
    EXPECT_FALSE(task.start(nullptr, nullptr, false));
    EXPECT_THAT(m_recorder.take(), ElementsAre("ERROR: WrongTaskState Task/start: Task 't' can not "
                                               "be started - task is already running."));
    task.setState(Task::NOT_RUNNING);
}

TEST_F(TaskTrace, OfQueries)
{
    Blocker blocker;
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(2);
    task.isThreadOfExecutionRunning();
    EXPECT_THAT(m_recorder.take(), ElementsAre("2 Task/isThreadOfExecutionRunning: Thread of "
                                               "execution running for task 't' = 0."));
    m_recorder.setTaskLevel(0);

    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    m_recorder.setTaskLevel(2);
    int priority = 0;
    task.isThreadOfExecutionRunning();
    task.setPriority(7);
    task.getPriority(priority);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("2 Task/isThreadOfExecutionRunning: Thread of execution running for "
                            "task 't' = 1.",
                            "1 Task/setPriority: Setting the priority of task 't' to 7.",
                            "2 Task/getPriority: Priority of task 't' = 7."));

    m_recorder.setTaskLevel(1);
    task.isThreadOfExecutionRunning();
    task.getPriority(priority);
    EXPECT_THAT(m_recorder.take(), IsEmpty());
    m_recorder.setTaskLevel(0);
    blocker.open();
}

TEST_F(TaskTrace, OfLookingForOnesOwnTask)
{
    Task task("t", nullptr, 5);
    m_recorder.setTaskLevel(2);
    Task::getTaskPtr("t");
    EXPECT_THAT(m_recorder.take(), IsEmpty());
    Task::getTaskPtr("");
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Task/getMyName: My task name is ''."));
}

TEST_F(TaskTrace, NoneAtLevelZeroNorByOtherFlags)
{
    {
        Task task("t", nullptr, 5);
        task.start(nullptr, nullptr, false);
        task.terminate(true);
        task.isThreadOfExecutionRunning();
        Task::getTaskPtr("");
    }
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

}  // namespace
