// The message that tells a task to end, used without a task:
// - its commands and settings;
// - executing it writes it to the queue and leaves it there, suspended;
// - traces, line by line; null is fatal.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "support/FatalTest.h"
#include "support/StepRecorder.h"
#include "utils/task/TerminateTaskMacro.h"

namespace
{

using test::isReport;
using test::StepRecorder;
using testing::ElementsAre;
using testing::ExitedWithCode;
using utils::command::Macro;
using utils::queue::Queue;
using utils::task::TerminateTaskMacro;

TEST(TerminateTaskMacro, ContinuesOnErrorDeletesItselfAndHasTwoCommands)
{
    Queue queue("q", 1);
    const TerminateTaskMacro macro(&queue);
    std::ostringstream os;
    os << macro;
    EXPECT_EQ(os.str(),
              "Name = 'TerminateTaskMacro'\n"
              "Continue on error? = 1\n"
              "Auto delete? = 1\n"
              "Current index = 0\n"
              "Constituent commands:\n"
              "Name = 'WriteCommand'\n"
              "Name = 'NoOpCommand'\n");
}

TEST(TerminateTaskMacro, WritesItselfAndStaysAlive)
{
    Queue queue("q", 1);
    auto* const macro = new TerminateTaskMacro(&queue);
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(queue.size(), 1U);

    Macro* read = nullptr;
    EXPECT_TRUE(queue.read(read, 0));
    EXPECT_EQ(read, macro);
    EXPECT_EQ(read->execute(), 0);  // its second command, then it deletes itself
}

TEST(TerminateTaskMacro, DoesNotWaitForAPlace)
{
    StepRecorder recorder;
    Queue queue("q", 0);
    TerminateTaskMacro macro(&queue);
    EXPECT_EQ(macro.execute(), 1);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: QueueWriteError Queue/write: Could not write "
                                             "macro 'TerminateTaskMacro' to queue 'q'."));
}

TEST(TerminateTaskMacro, IsDeletedWithTheQueueWhenNobodyReadsIt)
{
    StepRecorder recorder;
    {
        Queue queue("q", 1);
        (new TerminateTaskMacro(&queue))->execute();
        recorder.setTaskLevel(1);
    }
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task "
                            "Macro with queue 'q'."));
    recorder.setTaskLevel(0);
}

TEST(TerminateTaskMacroTrace, OfCreation)
{
    StepRecorder recorder;
    Queue queue("q", 1);
    recorder.setLevel(2);
    const TerminateTaskMacro macro(&queue);
    recorder.setLevel(0);
    EXPECT_THAT(
        recorder.take(),
        ElementsAre("1 Command/Command: Creating command 'TerminateTaskMacro'.",
                    "1 TerminateTaskMacro/TerminateTaskMacro: Creating a Terminate Task Macro with "
                    "queue 'q'.",
                    "1 Command/Command: Creating command 'WriteCommand'.",
                    "1 WriteCommand/WriteCommand: Creating Write Command for queue 'q' and macro "
                    "'TerminateTaskMacro' - wait 0 ms.",
                    "1 Macro/add: Adding command 'WriteCommand' to macro command "
                    "'TerminateTaskMacro'.",
                    "1 Command/Command: Creating command 'NoOpCommand'.",
                    "1 NoOpCommand/NoOpCommand: Creating a No-Op Command.",
                    "1 Macro/add: Adding command 'NoOpCommand' to macro command "
                    "'TerminateTaskMacro'."));
}

TEST(TerminateTaskMacroTrace, OfExecution)
{
    StepRecorder recorder;
    Queue queue("q", 1);
    auto* const macro = new TerminateTaskMacro(&queue);
    recorder.setLevel(2);
    macro->execute();
    recorder.setLevel(0);
    EXPECT_THAT(
        recorder.take(),
        ElementsAre("1 Command/execute: Executing command 'TerminateTaskMacro'.",
                    "1 Macro/myExecute: Executing macro command 'TerminateTaskMacro'.",
                    "1 Command/execute: Executing command 'WriteCommand'.",
                    "1 WriteCommand/myExecute: Writing macro 'TerminateTaskMacro' to queue 'q' - "
                    "wait = 0.",
                    "1 Queue/write: Writing macro 'TerminateTaskMacro' to queue 'q'.",
                    "1 Command/execute: Executed command 'WriteCommand' - status = 0.",
                    "2 Macro/myExecute: Stopping execution of macro command 'TerminateTaskMacro' "
                    "as specified by command 'WriteCommand'.",
                    "1 Command/execute: Executed command 'TerminateTaskMacro' - status = 0."));
}

// It continues on error, so there is one reason to stop, not two.
TEST(TerminateTaskMacroTrace, OfAnExecutionThatFails)
{
    StepRecorder recorder;
    Queue queue("q", 0);
    TerminateTaskMacro macro(&queue);
    recorder.setCommandLevel(2);
    macro.execute();
    recorder.setLevel(0);
    EXPECT_THAT(
        recorder.take(),
        ElementsAre("1 Command/execute: Executing command 'TerminateTaskMacro'.",
                    "1 Macro/myExecute: Executing macro command 'TerminateTaskMacro'.",
                    "1 Command/execute: Executing command 'WriteCommand'.",
                    "ERROR: QueueWriteError Queue/write: Could not write macro "
                    "'TerminateTaskMacro' to queue 'q'.",
                    "1 Command/execute: Executed command 'WriteCommand' - status = 1.",
                    "2 Macro/myExecute: Stopping execution of macro command 'TerminateTaskMacro' "
                    "as specified by command 'WriteCommand'.",
                    "1 Command/execute: Executed command 'TerminateTaskMacro' - status = 1."));
}

TEST(TerminateTaskMacroTrace, OfDestruction)
{
    StepRecorder recorder;
    Queue queue("q", 1);
    {
        const TerminateTaskMacro macro(&queue);
        recorder.setLevel(2);
    }
    recorder.setLevel(0);
    EXPECT_THAT(
        recorder.take(),
        ElementsAre("1 TerminateTaskMacro/~TerminateTaskMacro: Destroying a Terminate Task Macro "
                    "with queue 'q'.",
                    "1 WriteCommand/~WriteCommand: Destroying Write Command for queue 'q' and "
                    "macro 'TerminateTaskMacro'.",
                    "1 Command/~Command: Destroying command 'WriteCommand'.",
                    "1 NoOpCommand/~NoOpCommand: Destroying a No-Op Command.",
                    "1 Command/~Command: Destroying command 'NoOpCommand'.",
                    "1 Command/~Command: Destroying command 'TerminateTaskMacro'."));
}

using TerminateTaskMacroFatal = test::FatalTest;

TEST_F(TerminateTaskMacroFatal, ANullQueue)
{
    EXPECT_EXIT(TerminateTaskMacro(nullptr), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/task/src/TerminateTaskMacro",
                         "TerminateTaskMacro:\nNull pointer (taskEventQueuePtr) passed to "
                         "TerminateTaskMacro::TerminateTaskMacro."));
}

}  // namespace
