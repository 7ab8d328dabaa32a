// Terminations that race with what they terminate, again and again; meant for AddressSanitizer and
// ThreadSanitizer as well:
// - a thread that ends by itself while terminate runs, in either order;
// - a task that deletes itself, terminated with and without waiting;
// - a task that deletes itself before start has returned;
// - a task that is destroyed during its thread's last lines;
// - a macro that another thread runs and deletes while execute is still returning;
// - a strategy that throws when the terminate macro is the task's already.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <barrier>
#include <latch>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/Listeners.h"
#include "support/SelfDeletingTask.h"
#include "support/StepRecorder.h"
#include "utils/command/NoOpCommand.h"
#include "utils/queue/WriteCommand.h"
#include "utils/task/Task.h"

namespace
{

using test::FleetingTask;
using test::SelfDeletingTask;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;
using utils::command::NoOpCommand;
using utils::queue::WriteCommand;
using utils::task::Task;

constexpr int NUM_ROUNDS = 1000;

// Ends as soon as it sees that terminate() has begun.
class ObedientTask : public Task
{
  public:
    ObedientTask() : Task("t", nullptr, 5) {}
    ~ObedientTask() override { cleanUp(); }
    int run(void*) override
    {
        while (!waitingToTerminate())
        {
            yield();
        }
        return 0;
    }
};

TEST(TaskTermination, OfAThreadThatEndsWhileItIsBeingTerminatedIsQuiet)
{
    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        ObedientTask task;
        task.start(nullptr, nullptr, false);
        ASSERT_TRUE(task.terminate(i % 2 == 0));
        osTaskJoin(task.getOsTaskPtr());
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskTermination, OfAThreadThatEndsByItselfSucceedsOrSaysThatItIsNotRunning)
{
    // Ends by itself at the moment when the controlling thread terminates it.
    class SimultaneousTask : public Task
    {
      public:
        SimultaneousTask() : Task("t", nullptr, 5) {}
        ~SimultaneousTask() override { cleanUp(); }
        int run(void*) override
        {
            m_barrier.arrive_and_wait();
            return 0;
        }
        std::barrier<> m_barrier{2};
    };

    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        SimultaneousTask task;
        task.start(nullptr, nullptr, false);
        task.m_barrier.arrive_and_wait();
        if (task.terminate(true))
        {
            ASSERT_THAT(recorder.take(), IsEmpty());
        }
        else
        {
            ASSERT_THAT(recorder.take(),
                        ElementsAre("ERROR: WrongTaskState Task/terminate: Task 't' can not be "
                                    "terminated - task is not running."));
        }
        osTaskJoin(task.getOsTaskPtr());
        ASSERT_EQ(task.getState(), Task::NOT_RUNNING);
    }
}

TEST(TaskTermination, OfATaskThatDeletesItselfNeverTouchesItAfterwards)
{
    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        std::latch isDestroyed{1};
        Task* const task = new SelfDeletingTask("t", isDestroyed);
        ASSERT_TRUE(task->start(nullptr, nullptr, true));
        ASSERT_TRUE(task->terminate(i % 2 == 0));
        isDestroyed.wait();
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskTermination, OfATaskThatDeletesItselfNeverTouchesItAfterwardsWhileTraced)
{
    const test::TraceListener everything("", [] {});
    StepRecorder recorder;
    recorder.setLevel(2);
    for (int i = 0; i < NUM_ROUNDS / 10; ++i)
    {
        std::latch isDestroyed{1};
        Task* const task = new SelfDeletingTask("t", isDestroyed);
        ASSERT_TRUE(task->start(nullptr, nullptr, true));
        ASSERT_TRUE(task->terminate(i % 2 == 0));
        isDestroyed.wait();
    }
    recorder.setLevel(0);
}

TEST(TaskTermination, ATaskThatDeletesItselfMayBeGoneBeforeStartReturns)
{
    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        std::latch isDestroyed{1};
        Task* const task = new FleetingTask("t", isDestroyed);
        ASSERT_TRUE(task->start(nullptr, nullptr, true));
        isDestroyed.wait();
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskTermination, SeveralTasksMayDeleteThemselvesAtOnce)
{
    constexpr int NUM_TASKS = 8;
    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS / 10; ++i)
    {
        std::latch areDestroyed{NUM_TASKS};
        for (int task = 0; task < NUM_TASKS; ++task)
        {
            (new FleetingTask(std::to_string(task), areDestroyed))->start(nullptr, nullptr, true);
        }
        areDestroyed.wait();
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskTermination, ATaskMayBeDestroyedDuringItsThreadsLastLines)
{
    class QuickTask : public Task
    {
      public:
        QuickTask() : Task("t", nullptr, 5) {}
        ~QuickTask() override { cleanUp(); }
        int run(void*) override { return 0; }
        void finalize(const int&) override { m_isEnding.count_down(); }
        std::latch m_isEnding{1};
    };

    StepRecorder recorder;
    for (int i = 0; i < NUM_ROUNDS; ++i)
    {
        auto task = std::make_unique<QuickTask>();
        task->start(nullptr, nullptr, false);
        task->m_isEnding.wait();
        while (task->getState() != Task::NOT_RUNNING)
        {
            Task::yield();
        }
        task.reset();
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

// An auto-delete macro that moves on to a task and is deleted there.
void moveMacrosTo(Task& task, int numMacros)
{
    for (int i = 0; i < numMacros; ++i)
    {
        auto* const macro = new Macro("a name that does not fit into a string object", false, true);
        macro->add(new WriteCommand(task.getEventQueuePtr(), macro, -1));
        macro->add(new NoOpCommand);
        ASSERT_EQ(macro->execute(), 0);
    }
}

TEST(TaskTermination, AMacroThatMovedOnIsNotTouched)
{
    StepRecorder recorder;
    Task task("t", nullptr, 2);
    task.start(nullptr, nullptr, false);
    moveMacrosTo(task, 10 * NUM_ROUNDS);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskTermination, AMacroThatMovedOnIsNotTouchedWhileTraced)
{
    StepRecorder recorder;
    Task task("t", nullptr, 2);
    task.start(nullptr, nullptr, false);
    recorder.setLevel(2);
    moveMacrosTo(task, NUM_ROUNDS / 10);
    recorder.setLevel(0);
}

// Deleted twice, it is traced twice, and AddressSanitizer reports it.
TEST(TaskTermination, OfWhichAStrategyThrowsLeavesTheMacroToTheTask)
{
    StepRecorder recorder;
    const test::TraceListener failing("Executed command 'WriteCommand'",
                                      [] { throw std::runtime_error("cannot"); });
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    recorder.setCommandLevel(1);
    EXPECT_THROW(task.terminate(false), std::runtime_error);
    EXPECT_EQ(osTaskJoin(task.getOsTaskPtr()), 0);
    recorder.setLevel(0);
    const std::vector<std::string> steps = recorder.take();
    EXPECT_EQ(std::count(steps.begin(), steps.end(),
                         "1 Command/~Command: Destroying command 'TerminateTaskMacro'."),
              1);
}

}  // namespace
