// Terminate macros for which there is not enough memory.
//
// - whichever allocation fails, the exception reaches who makes the macro, and nothing leaks
// - the queue is as it was, and a macro that is made afterwards works

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "support/AllocationStandIn.h"
#include "support/StepRecorder.h"
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

}  // namespace
