// What commands trace, all at level 1, with source file, function and order:
// - creating, executing, resetting and destroying;
// - the name and the status of a command that deleted itself, whatever the length of its name;
// - the no-op command's own steps after and before those of the base;
// - nothing of its own for the sleep command;
// - nothing at level 0, nothing with the master switch off.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "support/Commands.h"
#include "support/StepRecorder.h"
#include "utils/command/NoOpCommand.h"
#include "utils/command/SleepCommand.h"

namespace
{

using test::FunctionCommand;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Command;
using utils::command::NoOpCommand;
using utils::command::SleepCommand;

TEST(CommandTrace, FollowsALifeFromCreationToDestruction)
{
    StepRecorder recorder;
    recorder.setCommandLevel(1);

    std::optional<FunctionCommand> command(std::in_place, "c", [] { return 0; });
    EXPECT_THAT(recorder.take(), ElementsAre("1 Command/Command: Creating command 'c'."));

    command->execute();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'c'.",
                            "1 Command/execute: Executed command 'c' - status = 0."));

    command->reset();
    EXPECT_THAT(recorder.take(), ElementsAre("1 Command/reset: Resetting command 'c'."));

    command.reset();
    EXPECT_THAT(recorder.take(), ElementsAre("1 Command/~Command: Destroying command 'c'."));
}

TEST(CommandTrace, ShowsTheStatusInDecimal)
{
    StepRecorder recorder;
    FunctionCommand command("c", [] { return -17; });
    recorder.setCommandLevel(1);
    command.execute();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'c'.",
                            "1 Command/execute: Executed command 'c' - status = -17."));
}

TEST(CommandTrace, AnnouncesTheResetBeforeItHappens)
{
    class TracedReset : public FunctionCommand
    {
      public:
        explicit TracedReset(StepRecorder& recorder)
            : FunctionCommand("c", [] { return 0; }), m_recorder(recorder)
        {
        }
        void myReset() override
        {
            EXPECT_THAT(m_recorder.take(), ElementsAre("1 Command/reset: Resetting command 'c'."));
        }

      private:
        StepRecorder& m_recorder;
    };

    StepRecorder recorder;
    TracedReset command(recorder);
    recorder.setCommandLevel(1);
    command.reset();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

// Deletes itself; its name is passed on execution.
class Kamikaze : public Command
{
  public:
    explicit Kamikaze(const std::string& name) : Command(name) {}
    int myExecute() override
    {
        delete this;
        return 3;
    }
};

TEST(CommandTrace, NamesACommandThatDeletedItself)
{
    StepRecorder recorder;
    Command* const command = new Kamikaze("kamikaze");
    recorder.setCommandLevel(1);
    command->execute();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'kamikaze'.",
                            "1 Command/~Command: Destroying command 'kamikaze'.",
                            "1 Command/execute: Executed command 'kamikaze' - status = 3."));
}

TEST(CommandTrace, NamesACommandThatDeletedItselfWhateverTheLengthOfItsName)
{
    for (const std::size_t length : {0U, 1U, 127U, 128U, 129U, 1000U})
    {
        const std::string name(length, 'n');
        StepRecorder recorder;
        Command* const command = new Kamikaze(name);
        recorder.setCommandLevel(1);
        command->execute();
        EXPECT_THAT(
            recorder.take(),
            ElementsAre("1 Command/execute: Executing command '" + name + "'.",
                        "1 Command/~Command: Destroying command '" + name + "'.",
                        "1 Command/execute: Executed command '" + name + "' - status = 3."));
        recorder.setCommandLevel(0);
    }
}

TEST(CommandTrace, NoOpCommandAddsItsOwnSteps)
{
    StepRecorder recorder;
    recorder.setCommandLevel(1);

    std::optional<NoOpCommand> command(std::in_place);
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/Command: Creating command 'NoOpCommand'.",
                            "1 NoOpCommand/NoOpCommand: Creating a No-Op Command."));

    command->execute();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'NoOpCommand'.",
                            "1 NoOpCommand/myExecute: Executing a No-Op Command.",
                            "1 Command/execute: Executed command 'NoOpCommand' - status = 0."));

    command.reset();
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 NoOpCommand/~NoOpCommand: Destroying a No-Op Command.",
                            "1 Command/~Command: Destroying command 'NoOpCommand'."));
}

TEST(CommandTrace, SleepCommandAddsNothing)
{
    StepRecorder recorder;
    recorder.setCommandLevel(2);
    {
        SleepCommand command(0);
        command.execute();
    }
    EXPECT_THAT(recorder.take(),
                ElementsAre("1 Command/Command: Creating command 'Sleep'.",
                            "1 Command/execute: Executing command 'Sleep'.",
                            "1 Command/execute: Executed command 'Sleep' - status = 0.",
                            "1 Command/~Command: Destroying command 'Sleep'."));
}

TEST(CommandTrace, IsSilentAtLevelZero)
{
    StepRecorder recorder;
    NoOpCommand command;
    command.execute();
    command.reset();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(CommandTrace, IsSilentWhileTheMasterSwitchIsOff)
{
    StepRecorder recorder;
    recorder.setCommandLevel(9);
    utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgs.setValue(
        false);
    {
        NoOpCommand command;
        command.execute();
        command.reset();
    }
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(CommandTrace, IsGovernedByTheFlagOfCommandsAlone)
{
    StepRecorder recorder;
    recorder.setQueueLevel(9);
    recorder.setTaskLevel(9);
    NoOpCommand command;
    command.execute();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

}  // namespace
