// What macros trace, level, source file, function and order:
// - adding and getting a command at level 1, creation only by the base;
// - a whole execution at levels 1 and 2, suspended, failing, continuing, auto-deleting;
// - names come from copies, also when macro and command are gone.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Commands.h"
#include "support/StepRecorder.h"
#include "utils/command/NoOpCommand.h"

namespace
{

using test::Journal;
using test::JournalCommand;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;

constexpr bool STOPS = true;

class MacroTrace : public testing::Test
{
  protected:
    JournalCommand* makeCommand(const std::string& name, int status = 0, bool stops = false)
    {
        return new JournalCommand(name, m_journal, status, stops);
    }

    StepRecorder m_recorder;
    Journal m_journal;
};

TEST_F(MacroTrace, OfCreationComesFromTheBaseAlone)
{
    m_recorder.setCommandLevel(2);
    {
        const Macro macro("m");
    }
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Command/Command: Creating command 'm'.",
                                               "1 Command/~Command: Destroying command 'm'."));
}

TEST_F(MacroTrace, OfAdding)
{
    Macro macro("m");
    auto* const command = makeCommand("a");
    m_recorder.setCommandLevel(1);
    macro.add(command);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Macro/add: Adding command 'a' to macro command 'm'."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfGettingACommand)
{
    Macro macro("m");
    macro.add(makeCommand("a"));
    macro.add(makeCommand("b"));
    m_recorder.setCommandLevel(1);
    macro.getCommandPtr(1);
    EXPECT_THAT(
        m_recorder.take(),
        ElementsAre("1 Macro/getCommandPtr: Getting command with index 1 from macro command 'm'."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfRejectedCallsIsTheReportAlone)
{
    Macro macro("m");
    m_recorder.setCommandLevel(2);
    macro.add(nullptr);
    macro.getCommandPtr(0);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("ERROR: NullPtr Macro/add: Null pointer (commandPtr) passed to "
                            "Macro::add for macro command 'm'.",
                            "ERROR: InvalidArgument Macro/getCommandPtr: Invalid index (0) "
                            "specified for macro command 'm'."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfAnEmptyMacro)
{
    Macro macro("m");
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executed command 'm' - status = 0."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfAnEmptyAutoDeleteMacro)
{
    auto* const macro = new Macro("m", false, true);
    m_recorder.setCommandLevel(2);
    macro->execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/~Command: Destroying command 'm'.",
                            "1 Command/execute: Executed command 'm' - status = 0."));
}

TEST_F(MacroTrace, OfASuccessfulExecution)
{
    Macro macro("m");
    macro.add(makeCommand("a"));
    macro.add(new utils::command::NoOpCommand);
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'a'.",
                            "1 Command/execute: Executed command 'a' - status = 0.",
                            "1 Command/execute: Executing command 'NoOpCommand'.",
                            "1 NoOpCommand/myExecute: Executing a No-Op Command.",
                            "1 Command/execute: Executed command 'NoOpCommand' - status = 0.",
                            "1 Command/execute: Executed command 'm' - status = 0."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfAFailureAtLevelTwo)
{
    Macro macro("m");
    macro.add(makeCommand("a", 5));
    macro.add(makeCommand("b"));
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'a'.",
                            "1 Command/execute: Executed command 'a' - status = 5.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm'. Error "
                            "encountered while executing command 'a' - status = 5.",
                            "1 Command/execute: Executed command 'm' - status = 5."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfAFailureAtLevelOne)
{
    Macro macro("m");
    macro.add(makeCommand("a", 5));
    m_recorder.setCommandLevel(1);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'a'.",
                            "1 Command/execute: Executed command 'a' - status = 5.",
                            "1 Command/execute: Executed command 'm' - status = 5."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfAFailureThatIsPassedOver)
{
    Macro macro("m", true);
    macro.add(makeCommand("a", 5));
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'a'.",
                            "1 Command/execute: Executed command 'a' - status = 5.",
                            "1 Command/execute: Executed command 'm' - status = 5."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfASuspensionAndWhatFollows)
{
    Macro macro("m");
    macro.add(makeCommand("s", 0, STOPS));
    macro.add(makeCommand("b"));
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 's'.",
                            "1 Command/execute: Executed command 's' - status = 0.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm' as "
                            "specified by command 's'.",
                            "1 Command/execute: Executed command 'm' - status = 0."));
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'b'.",
                            "1 Command/execute: Executed command 'b' - status = 0.",
                            "1 Command/execute: Executed command 'm' - status = 0."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfASuspensionByAFailingCommandHasBothReasons)
{
    Macro macro("m");
    macro.add(makeCommand("s", 9, STOPS));
    macro.add(makeCommand("b"));
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 's'.",
                            "1 Command/execute: Executed command 's' - status = 9.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm' as "
                            "specified by command 's'.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm'. Error "
                            "encountered while executing command 's' - status = 9.",
                            "1 Command/execute: Executed command 'm' - status = 9."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfASuspensionByAFailingCommandThatIsPassedOver)
{
    Macro macro("m", true);
    macro.add(makeCommand("s", 9, STOPS));
    macro.add(makeCommand("b"));
    m_recorder.setCommandLevel(2);
    macro.execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 's'.",
                            "1 Command/execute: Executed command 's' - status = 9.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm' as "
                            "specified by command 's'.",
                            "1 Command/execute: Executed command 'm' - status = 9."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, OfAnAutoDeleteMacroWhoseLastCommandStops)
{
    auto* const macro = new Macro("m", false, true);
    macro->add(makeCommand("s", 0, STOPS));
    m_recorder.setCommandLevel(2);
    macro->execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 's'.",
                            "1 Command/execute: Executed command 's' - status = 0.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm' as "
                            "specified by command 's'.",
                            "1 Command/~Command: Destroying command 's'.",
                            "1 Command/~Command: Destroying command 'm'.",
                            "1 Command/execute: Executed command 'm' - status = 0."));
}

TEST_F(MacroTrace, OfAnAutoDeleteMacroWhoseLastCommandStopsAndFails)
{
    auto* const macro = new Macro("m", false, true);
    macro->add(makeCommand("s", 9, STOPS));
    m_recorder.setCommandLevel(2);
    macro->execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 's'.",
                            "1 Command/execute: Executed command 's' - status = 9.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm' as "
                            "specified by command 's'.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm'. Error "
                            "encountered while executing command 's' - status = 9.",
                            "1 Command/~Command: Destroying command 's'.",
                            "1 Command/~Command: Destroying command 'm'.",
                            "1 Command/execute: Executed command 'm' - status = 9."));
}

TEST_F(MacroTrace, OfAFailingAutoDeleteMacro)
{
    auto* const macro = new Macro("m", false, true);
    macro->add(makeCommand("a", 5));
    macro->add(makeCommand("b"));
    m_recorder.setCommandLevel(2);
    macro->execute();
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Command/execute: Executing command 'm'.",
                            "1 Macro/myExecute: Executing macro command 'm'.",
                            "1 Command/execute: Executing command 'a'.",
                            "1 Command/execute: Executed command 'a' - status = 5.",
                            "2 Macro/myExecute: Stopping execution of macro command 'm'. Error "
                            "encountered while executing command 'a' - status = 5.",
                            "1 Command/~Command: Destroying command 'a'.",
                            "1 Command/~Command: Destroying command 'b'.",
                            "1 Command/~Command: Destroying command 'm'.",
                            "1 Command/execute: Executed command 'm' - status = 5."));
}

// A nested macro that deletes itself is gone when its outer macro names it.
TEST_F(MacroTrace, NamesMacroAndCommandThatAreGone)
{
    class SuicidalMacro : public utils::command::Command
    {
      public:
        explicit SuicidalMacro(std::function<void()> lastAct)
            : Command("a name that is too long for any small string optimisation"),
              m_lastAct(std::move(lastAct))
        {
        }
        bool stopMacro() const override { return true; }
        int myExecute() override
        {
            m_lastAct();  // deletes the macro and this command with it
            return 4;
        }

      private:
        std::function<void()> m_lastAct;
    };

    const std::string macroName(300, 'm');
    auto* const macro = new Macro(macroName);
    macro->add(new SuicidalMacro([macro] { delete macro; }));
    macro->add(makeCommand("never"));
    m_recorder.setCommandLevel(2);
    EXPECT_EQ(macro->execute(), 4);
    EXPECT_THAT(
        m_recorder.take(),
        ElementsAre("1 Command/execute: Executing command '" + macroName + "'.",
                    "1 Macro/myExecute: Executing macro command '" + macroName + "'.",
                    "1 Command/execute: Executing command 'a name that is too long for any small "
                    "string optimisation'.",
                    "1 Command/~Command: Destroying command 'a name that is too long for any small "
                    "string optimisation'.",
                    "1 Command/~Command: Destroying command 'never'.",
                    "1 Command/~Command: Destroying command '" + macroName + "'.",
                    "1 Command/execute: Executed command 'a name that is too long for any small "
                    "string optimisation' - status = 4.",
                    "2 Macro/myExecute: Stopping execution of macro command '" + macroName +
                        "' as specified by command 'a name that is too long for any small string "
                        "optimisation'.",
                    "2 Macro/myExecute: Stopping execution of macro command '" + macroName +
                        "'. Error encountered while executing command 'a name that is too long "
                        "for any small string optimisation' - status = 4.",
                    "1 Command/execute: Executed command '" + macroName + "' - status = 4."));
}

TEST_F(MacroTrace, OfResetGoesThroughTheCommands)
{
    Macro macro("m");
    macro.add(makeCommand("a"));
    macro.add(makeCommand("b"));
    m_recorder.setCommandLevel(1);
    macro.reset();
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Command/reset: Resetting command 'm'.",
                                               "1 Command/reset: Resetting command 'a'.",
                                               "1 Command/reset: Resetting command 'b'."));
    m_recorder.setCommandLevel(0);
}

TEST_F(MacroTrace, IsSilentAtLevelZero)
{
    {
        Macro macro("m", false, false);
        macro.add(makeCommand("a", 5));
        macro.getCommandPtr(0);
        macro.execute();
        macro.reset();
    }
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

}  // namespace
