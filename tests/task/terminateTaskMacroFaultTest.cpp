// Terminate macros for which there is not enough memory.
//
// - whichever allocation fails, the exception reaches who makes the macro, and nothing leaks
// - the queue is as it was, and a macro that is made afterwards works
// - a task that could not be terminated for that reason goes on, and can be terminated later

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "support/AllocationStandIn.h"
#include "support/Blocker.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"
#include "utils/task/TerminateTaskMacro.h"

namespace
{

using utils::queue::Queue;
using utils::task::TerminateTaskMacro;

bool isMadeInSpiteOfAFailure(Queue& queue, long numToSucceed)
{
    test::setAllocationFailing(numToSucceed);
    try
    {
        const TerminateTaskMacro macro(&queue);
        test::setAllocationFailing(-1);
        return true;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

// A command that the macro could not take is nobody's: AddressSanitizer reports the leak.
TEST(TerminateTaskMacroFault, LeaksNothingWhicheverAllocationFails)
{
    constexpr long LEAST_ALLOCATIONS = 4;  // two commands, and places for them
    const test::StepRecorder recorder;
    Queue queue("q", 1);
    ASSERT_TRUE(isMadeInSpiteOfAFailure(queue, -1));

    long numToSucceed = 0;
    while (!isMadeInSpiteOfAFailure(queue, numToSucceed))
    {
        ++numToSucceed;
    }
    EXPECT_GE(numToSucceed, LEAST_ALLOCATIONS);
    EXPECT_EQ(queue.size(), 0U);

    auto macro = std::make_unique<TerminateTaskMacro>(&queue);
    EXPECT_EQ(macro->execute(), 0);
    macro.release();
    EXPECT_EQ(queue.size(), 1U);
}

// A task that was left waiting for a macro that is not there would not end any more.
TEST(TerminateTaskMacroFault, TaskGoesOnWhicheverAllocationFails)
{
    const test::StepRecorder recorder;
    test::Blocker blocker;
    utils::task::Task task("t", nullptr, 1);
    task.start(nullptr, nullptr, false);
    ASSERT_TRUE(task.getEventQueuePtr()->write(blocker.makeMacro(), 0));
    blocker.waitUntilEntered();  // so that the thread asks for no memory meanwhile

    long numToSucceed = 0;
    bool isTerminated = false;
    while (!isTerminated)
    {
        test::setAllocationFailing(numToSucceed++);
        try
        {
            isTerminated = task.terminate(false);
        }
        catch (const std::bad_alloc&)
        {
            EXPECT_EQ(task.getState(), utils::task::Task::RUNNING);
            EXPECT_EQ(task.getEventQueuePtr()->size(), 0U);
        }
        test::setAllocationFailing(-1);
    }
    EXPECT_GT(numToSucceed, 4);
    EXPECT_EQ(task.getState(), utils::task::Task::WAITING_TO_TERMINATE);
    EXPECT_EQ(task.getEventQueuePtr()->size(), 1U);
    blocker.open();
}

}  // namespace
