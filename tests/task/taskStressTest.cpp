// Many lives of tasks: start, terminate, join, destroy, restart, again and again; look-ups while
// tasks come and go; many controlling threads with a task each.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/Commands.h"
#include "support/SelfDeletingTask.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::StepRecorder;
using testing::IsEmpty;
using utils::task::Task;

constexpr int NUM_ROUNDS = 1000;

TEST(TaskStress, StartTerminateDestroy)
{
    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        Task task("t", nullptr, 5);
        ASSERT_TRUE(task.start(nullptr, nullptr, false));
        ASSERT_TRUE(task.terminate(true));
        ASSERT_EQ(task.getExitStatus(), 0);
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskStress, StartDestroy)
{
    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        Task task("t", nullptr, 5);
        ASSERT_TRUE(task.start(nullptr, nullptr, false));
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskStress, RestartOfOneTask)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        ASSERT_TRUE(task.start(nullptr, nullptr, false));
        ASSERT_TRUE(task.terminate(true));
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskStress, TerminateThenJoin)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        ASSERT_TRUE(task.start(nullptr, nullptr, false));
        ASSERT_TRUE(task.terminate(false));
        int exitStatus = 77;
        // Refused when the thread has ended already.
        const bool isJoined = task.join(exitStatus);
        ASSERT_EQ(exitStatus, isJoined ? 0 : 77);
        ASSERT_EQ(recorder.take().size(), isJoined ? 0U : 1U);
        osTaskJoin(task.getOsTaskPtr());
    }
}

TEST(TaskStress, ManyTasksAtOnce)
{
    constexpr int NUM_TASKS = 50;
    StepRecorder recorder;
    std::atomic<int> numDone{0};
    {
        std::vector<std::unique_ptr<Task>> tasks;
        for (int i = 0; i < NUM_TASKS; ++i)
        {
            tasks.push_back(std::make_unique<Task>(std::to_string(i), nullptr, 5));
            ASSERT_TRUE(tasks.back()->start(nullptr, nullptr, false));
        }
        for (const auto& task : tasks)
        {
            task->getEventQueuePtr()->write(test::makeMacro([&] { ++numDone; }), -1);
        }
    }
    EXPECT_EQ(numDone, NUM_TASKS);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskStress, LookUpsWhileTasksDeleteThemselves)
{
    Task steady("steady", nullptr, 5);
    std::atomic<bool> isOver{false};
    std::thread observer(
        [&]
        {
            while (!isOver)
            {
                EXPECT_EQ(Task::getTaskPtr("steady"), &steady);
                EXPECT_EQ(utils::queue::Queue::getQueuePtr("steady-TaskEventQueue"),
                          steady.getEventQueuePtr());
                Task::getTaskPtr("fleeting");
                Task::yield();
            }
        });
    for (int i = 0; i < NUM_ROUNDS / 4; ++i)
    {
        std::latch isDestroyed{1};
        (new test::FleetingTask("fleeting", isDestroyed))->start(nullptr, nullptr, true);
        isDestroyed.wait();
    }
    isOver = true;
    observer.join();
}

// Without the wait for an object that is just being written, a listing reads a task or a queue that
// is gone (seen under AddressSanitizer).
TEST(TaskStress, ListingsWhileTasksDeleteThemselves)
{
    Task steady("steady", nullptr, 5);
    for (int i = 0; i < NUM_ROUNDS / 2; ++i)
    {
        std::latch isDestroyed{1};
        (new test::FleetingTask("fleeting", isDestroyed))->start(nullptr, nullptr, true);
        std::ostringstream tasks;
        Task::outputTasks(tasks);
        std::ostringstream queues;
        utils::queue::Queue::outputQueues(queues);
        isDestroyed.wait();
        EXPECT_NE(tasks.str().find("Name                = 'steady'\n"), std::string::npos);
        EXPECT_NE(queues.str().find("Name                = 'steady-TaskEventQueue'\n"),
                  std::string::npos);
    }
}

TEST(TaskStress, StateAndHandleMayBeReadWhileTheTaskLivesAndDies)
{
    Task task("t", nullptr, 5);
    std::atomic<bool> isOver{false};
    std::thread observer(
        [&]
        {
            while (!isOver)
            {
                const Task::State state = task.getState();
                EXPECT_TRUE(state == Task::NOT_RUNNING || state == Task::RUNNING ||
                            state == Task::WAITING_TO_TERMINATE);
                EXPECT_EQ(task.getExitStatus(), 0);
                task.isThreadOfExecutionRunning();
                task.waitingToTerminate();
                std::ostringstream os;
                os << task;
                Task::yield();
            }
        });
    for (int i = 0; i < NUM_ROUNDS / 4; ++i)
    {
        task.start(nullptr, nullptr, false);
        task.terminate(true);
    }
    isOver = true;
    observer.join();
}

}  // namespace
