// Tasks and queues:
// - attaching and detaching queues, at construction and later, with the queue's own reports;
// - a queue is not left forwarding to a task whose construction a strategy broke off;
// - a pool of tasks behind one queue;
// - a macro that moves from task to task.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <stdexcept>
#include <vector>

#include "support/Blocker.h"
#include "support/Listeners.h"
#include "support/StepRecorder.h"
#include "utils/queue/WriteCommand.h"
#include "utils/task/Task.h"

namespace
{

using test::Blocker;
using test::CountedMacro;
using test::FunctionCommand;
using test::makeMacro;
using test::StepRecorder;
using testing::ElementsAre;
using utils::command::Macro;
using utils::queue::Queue;
using utils::queue::WriteCommand;
using utils::task::Task;

TEST(TaskQueue, AQueueGivenAtConstructionIsForwarded)
{
    Macro macro("m");
    Queue queue("q", 1);
    Task task("t", &queue, 5);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 1UL);
    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_EQ(task.getEventQueuePtr()->size(), 1U);
}

// Without care the queue goes on forwarding to an event queue that is gone.
TEST(TaskQueue, AQueueIsDetachedWhenAStrategyBreaksOffTheConstruction)
{
    StepRecorder recorder;
    const test::TraceListener failing("to the internal Event Queue of",
                                      [] { throw std::runtime_error("cannot"); });
    Macro macro("m");
    Queue queue("q", 1);
    recorder.setTaskLevel(1);
    EXPECT_THROW(Task("t", &queue, 5), std::runtime_error);
    recorder.setTaskLevel(0);

    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 0UL);
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(queue.size(), 1U);
}

TEST(TaskQueue, QueuesAreAttachedAndDetached)
{
    Macro macro("m");
    Queue first("first", 1);
    Queue second("second", 1);
    Task task("t", nullptr, 5);
    task.addQueue(&first);
    task.addQueue(&second);
    first.write(&macro, 0);
    second.write(&macro, 0);
    EXPECT_EQ(task.getEventQueuePtr()->size(), 2U);

    task.removeQueue(&first);
    first.write(&macro, 0);
    EXPECT_EQ(first.size(), 1U);
    EXPECT_EQ(second.getNumQueuesToForwardTo(), 1UL);
}

TEST(TaskQueue, RedundantRequestsAreReportedByTheQueueAndTracedByTheTask)
{
    StepRecorder recorder;
    Queue queue("q", 1);
    Task task("t", &queue, 5);
    recorder.setTaskLevel(1);
    task.addQueue(&queue);
    EXPECT_THAT(recorder.take(),
                ElementsAre("WARNING: AlreadyExists Queue/startForwardingTo: Already forwarding "
                            "macros written to queue 'q' to queue 't-TaskEventQueue'.",
                            "1 Task/addQueue: Forwarding macros written to queue 'q' to the "
                            "internal Event Queue of  task 't'."));
    task.removeQueue(&queue);
    recorder.take();
    task.removeQueue(&queue);
    EXPECT_THAT(recorder.take(),
                ElementsAre("WARNING: DoesNotExist Queue/stopForwardingTo: Not forwarding macros "
                            "written to queue 'q' to queue 't-TaskEventQueue'.",
                            "1 Task/removeQueue: Stopping the forwarding of macros written to "
                            "queue 'q' to the internal Event Queue of  task 't'."));
    recorder.setTaskLevel(0);
}

TEST(TaskQueue, OneQueueFeedsAPoolOfTasks)
{
    constexpr int NUM_MACROS = 1000;
    std::atomic<int> numDone{0};
    std::atomic<int> numDeleted{0};
    Queue queue("q", 1);
    {
        Task first("first", &queue, 4);
        Task second("second", &queue, 4);
        Task third("third", &queue, 4);
        for (Task* const task : {&first, &second, &third})
        {
            task->start(nullptr, nullptr, false);
        }
        for (int i = 0; i < NUM_MACROS; ++i)
        {
            auto* const macro = new CountedMacro("m", numDeleted, true);
            macro->add(new FunctionCommand("f",
                                           [&]
                                           {
                                               ++numDone;
                                               return 0;
                                           }));
            EXPECT_TRUE(queue.write(macro, -1));
        }
    }
    EXPECT_EQ(numDone, NUM_MACROS);
    EXPECT_EQ(numDeleted, NUM_MACROS);
}

TEST(TaskQueue, ABusyTaskIsPassedOver)
{
    Macro filler("filler");
    Blocker blocker;
    Queue queue("q", 1);
    Task busy("busy", &queue, 4);
    Task idle("idle", &queue, 4);
    busy.start(nullptr, nullptr, false);
    busy.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();
    busy.getEventQueuePtr()->write(&filler, 0);

    queue.write(&filler, 0);
    EXPECT_EQ(idle.getEventQueuePtr()->size(), 1U);
    blocker.open();
}

// [A, write itself to the second task, B, write itself to the first task, C]
TEST(TaskQueue, AMacroMovesFromTaskToTask)
{
    std::vector<std::string> threads;
    std::latch isDone{1};
    std::atomic<int> numDeleted{0};
    {
        Task first("first", nullptr, 4);
        Task second("second", nullptr, 4);
        first.start(nullptr, nullptr, false);
        second.start(nullptr, nullptr, false);

        const auto noteThread = [&]
        {
            threads.push_back(Task::getMyName());
            return 0;
        };
        auto* const macro = new CountedMacro("m", numDeleted, true);
        macro->add(new FunctionCommand("A", noteThread));
        macro->add(new WriteCommand(second.getEventQueuePtr(), macro, -1));
        macro->add(new FunctionCommand("B", noteThread));
        macro->add(new WriteCommand(first.getEventQueuePtr(), macro, -1));
        macro->add(new FunctionCommand("C",
                                       [&]
                                       {
                                           noteThread();
                                           isDone.count_down();
                                           return 0;
                                       }));
        EXPECT_TRUE(first.getEventQueuePtr()->write(macro, -1));
        isDone.wait();
    }
    EXPECT_THAT(threads, ElementsAre("first", "second", "first"));
    EXPECT_EQ(numDeleted, 1);
}

TEST(TaskQueue, AMacroThatMovesThroughAForwardingQueueIsResumed)
{
    std::string thread;
    std::latch isDone{1};
    {
        Queue queue("q", 1);
        Task task("t", &queue, 4);
        task.start(nullptr, nullptr, false);
        auto* const macro = new Macro("m", false, true);
        macro->add(new WriteCommand(&queue, macro, -1));
        macro->add(new FunctionCommand("B",
                                       [&]
                                       {
                                           thread = Task::getMyName();
                                           isDone.count_down();
                                           return 0;
                                       }));
        EXPECT_EQ(macro->execute(), 0);
        isDone.wait();
    }
    EXPECT_EQ(thread, "t");
}

TEST(TaskQueue, MacrosInTheEventQueueOfATaskThatNeverRunsAreCleanedUp)
{
    std::atomic<int> numDeleted{0};
    std::atomic<int> numOrdinaryDeleted{0};
    CountedMacro ordinary("ordinary", numOrdinaryDeleted, false);
    {
        Task task("t", nullptr, 4);
        task.getEventQueuePtr()->write(new CountedMacro("auto", numDeleted, true), 0);
        task.getEventQueuePtr()->write(&ordinary, 0);
    }
    EXPECT_EQ(numDeleted, 1);
    EXPECT_EQ(numOrdinaryDeleted, 0);
}

}  // namespace
