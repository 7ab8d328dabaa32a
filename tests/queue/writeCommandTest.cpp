// The command that writes a macro to a queue:
// - name, stop request, status of success and failure, the queue's virtual write;
// - null arguments are fatal;
// - a macro that writes itself is suspended and resumed by the reader;
// - traces, and what a macro does whose WriteCommand fails.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "support/Commands.h"
#include "support/FatalTest.h"
#include "support/StepRecorder.h"
#include "utils/queue/WriteCommand.h"

namespace
{

using test::CountedMacro;
using test::isReport;
using test::Journal;
using test::JournalCommand;
using test::StepRecorder;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::IsEmpty;
using utils::command::Macro;
using utils::queue::Queue;
using utils::queue::WriteCommand;

TEST(WriteCommand, HasItsNameAndStopsItsMacro)
{
    Queue queue("q", 1);
    Macro macro("m");
    const WriteCommand command(&queue, &macro, 0);
    EXPECT_EQ(command.getName(), "WriteCommand");
    EXPECT_TRUE(command.stopMacro());
    std::ostringstream os;
    os << command;
    EXPECT_EQ(os.str(), "Name = 'WriteCommand'\n");
}

TEST(WriteCommand, WritesTheMacroWhenExecuted)
{
    Queue queue("q", 1);
    Macro macro("m");
    WriteCommand command(&queue, &macro, 0);
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_EQ(command.execute(), 0);
    Macro* read = nullptr;
    EXPECT_TRUE(queue.read(read, 0));
    EXPECT_EQ(read, &macro);
}

TEST(WriteCommand, FailsWithStatusOneWhenTheQueueIsFull)
{
    StepRecorder recorder;
    Queue queue("q", 0);
    Macro macro("m");
    WriteCommand command(&queue, &macro, 0);
    EXPECT_EQ(command.execute(), 1);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: QueueWriteError Queue/write: Could not write "
                                             "macro 'm' to queue 'q'."));
}

TEST(WriteCommand, CallsTheVirtualWriteWithItsMacroAndWait)
{
    class SpyQueue : public Queue
    {
      public:
        SpyQueue() : Queue("spy", 1) {}
        bool write(const Macro* macroPtr, int waitInMs) override
        {
            m_macroPtr = macroPtr;
            m_waitInMs = waitInMs;
            return true;
        }
        const Macro* m_macroPtr = nullptr;
        int m_waitInMs = 0;
    };

    SpyQueue queue;
    Macro macro("m");
    WriteCommand command(&queue, &macro, -1);
    EXPECT_EQ(command.execute(), 0);
    EXPECT_EQ(queue.m_macroPtr, &macro);
    EXPECT_EQ(queue.m_waitInMs, -1);
}

TEST(WriteCommand, OwnsNeitherQueueNorMacro)
{
    std::atomic<int> numDeleted{0};
    Queue queue("q", 1);
    CountedMacro macro("m", numDeleted, true);
    {
        const WriteCommand command(&queue, &macro, 0);
    }
    EXPECT_EQ(numDeleted, 0);
    EXPECT_EQ(Queue::getQueuePtr("q"), &queue);
}

TEST(WriteCommand, MovesAMacroThatWritesItselfOn)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    Queue queue("q", 1);
    auto* const macro = new CountedMacro("m", numDeleted, true);
    macro->add(new JournalCommand("A", journal));
    macro->add(new WriteCommand(&queue, macro, -1));
    macro->add(new JournalCommand("B", journal));

    EXPECT_EQ(macro->execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run A"));
    EXPECT_EQ(numDeleted, 0);

    Macro* read = nullptr;
    ASSERT_TRUE(queue.read(read, 0));
    EXPECT_EQ(read, macro);
    EXPECT_EQ(read->execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run A", "run B", "delete A", "delete B"));
    EXPECT_EQ(numDeleted, 1);
}

TEST(WriteCommand, WritesAgainAfterAReset)
{
    Macro other("other");
    Queue queue("q", 2);
    Macro macro("m");
    macro.add(new WriteCommand(&queue, &other, 0));
    EXPECT_EQ(macro.execute(), 0);
    macro.reset();
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_EQ(queue.size(), 2U);
}

TEST(WriteCommand, FailingBeforeTheEndStopsTheMacroButKeepsIt)
{
    StepRecorder recorder;
    std::atomic<int> numDeleted{0};
    Journal journal;
    Queue queue("q", 0);
    auto* const macro = new CountedMacro("m", numDeleted, true);
    macro->add(new WriteCommand(&queue, macro, 0));
    macro->add(new JournalCommand("B", journal));

    recorder.setCommandLevel(2);
    EXPECT_EQ(macro->execute(), 1);
    recorder.setCommandLevel(0);
    EXPECT_EQ(numDeleted, 0);
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'WriteCommand'.",
                            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to "
                            "queue 'q'.",
                            "1 Command/execute: Executed command 'WriteCommand' - status = 1.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm' as "
                            "specified by command 'WriteCommand'.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm'. Error "
                            "encountered while executing command 'WriteCommand' - status = 1.",
                            "1 Command/execute: Executed command 'm' - status = 1."));
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(journal, ElementsAre("run B", "delete B"));
}

TEST(WriteCommandTrace, FollowsALifeFromCreationToDestruction)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 1);
    recorder.setCommandLevel(2);
    recorder.setQueueLevel(2);

    std::optional<WriteCommand> command(std::in_place, &queue, &macro, -1);
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/Command: Creating command 'WriteCommand'.",
                            "1 WriteCommand/WriteCommand: Creating Write Command for queue 'q' and "
                            "macro 'm' - wait -1 ms."));

    command->execute();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'WriteCommand'.",
                            "1 WriteCommand/myExecute: Writing macro 'm' to queue 'q' - wait = -1.",
                            "1 Queue/write: Writing macro 'm' to queue 'q'.",
                            "1 Command/execute: Executed command 'WriteCommand' - status = 0."));

    command.reset();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 WriteCommand/~WriteCommand: Destroying Write Command for queue 'q' "
                            "and macro 'm'.",
                            "1 Command/~Command: Destroying command 'WriteCommand'."));
    recorder.setLevel(0);
}

TEST(WriteCommandTrace, IsGovernedByTheFlagOfQueues)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 1);
    recorder.setCommandLevel(2);
    {
        WriteCommand command(&queue, &macro, 0);
        command.execute();
    }
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/Command: Creating command 'WriteCommand'.",
                            "1 Command/execute: Executing command 'WriteCommand'.",
                            "1 Command/execute: Executed command 'WriteCommand' - status = 0.",
                            "1 Command/~Command: Destroying command 'WriteCommand'."));
    recorder.setLevel(0);
}

using WriteCommandFatal = test::FatalTest;

TEST_F(WriteCommandFatal, ANullQueue)
{
    Macro macro("m");
    EXPECT_EXIT(WriteCommand(nullptr, &macro, 0), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/queue/src/WriteCommand",
                         "WriteCommand:\nNull pointer (queuePtr) passed to "
                         "WriteCommand::WriteCommand."));
}

TEST_F(WriteCommandFatal, ANullMacro)
{
    Queue queue("q", 1);
    EXPECT_EXIT(WriteCommand(&queue, nullptr, 0), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/queue/src/WriteCommand",
                         "WriteCommand:\nNull pointer (macroPtr) passed to "
                         "WriteCommand::WriteCommand."));
}

TEST_F(WriteCommandFatal, NullForBothNamesTheQueue)
{
    EXPECT_EXIT(WriteCommand(nullptr, nullptr, 0), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/queue/src/WriteCommand",
                         "WriteCommand:\nNull pointer (queuePtr) passed to "
                         "WriteCommand::WriteCommand."));
}

}  // namespace
