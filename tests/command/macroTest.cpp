// Macros as containers of commands:
// - flags default to off; size counts the commands, and null never enters;
// - a bad index yields null and a report;
// - the macro owns its commands and deletes them in order;
// - output writes the settings, the position and every command;
// - reset resets every command in order, then begins at the first one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

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
using utils::command::NoOpCommand;

TEST(Macro, IsEmptyAndNotAutoDeletingAtFirst)
{
    const Macro macro("m");
    EXPECT_EQ(macro.getName(), "m");
    EXPECT_EQ(macro.size(), 0U);
    EXPECT_FALSE(macro.isAutoDelete());
    EXPECT_FALSE(macro.stopMacro());
}

TEST(Macro, TellsWhetherItDeletesItself)
{
    EXPECT_FALSE(Macro("m", true, false).isAutoDelete());
    EXPECT_TRUE(Macro("m", false, true).isAutoDelete());
}

TEST(Macro, KeepsItsCommandsInOrder)
{
    Macro macro("m");
    auto* const first = new NoOpCommand;
    auto* const second = new NoOpCommand;
    macro.add(first);
    macro.add(second);
    EXPECT_EQ(macro.size(), 2U);
    EXPECT_EQ(macro.getCommandPtr(0), first);
    EXPECT_EQ(macro.getCommandPtr(1), second);
}

TEST(Macro, ReportsANullCommandAndAddsNothing)
{
    StepRecorder recorder;
    Macro macro("m");
    macro.add(nullptr);
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: NullPtr Macro/add: Null pointer (commandPtr) passed to "
                            "Macro::add for macro command 'm'."));
    EXPECT_EQ(macro.size(), 0U);
    EXPECT_EQ(macro.execute(), 0);
}

TEST(Macro, ReportsAnIndexBehindTheLastCommand)
{
    StepRecorder recorder;
    Macro macro("m");
    macro.add(new NoOpCommand);
    EXPECT_EQ(macro.getCommandPtr(1), nullptr);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: InvalidArgument Macro/getCommandPtr: Invalid "
                                             "index (1) specified for macro command 'm'."));
}

TEST(Macro, ReportsEveryIndexOfAnEmptyMacro)
{
    StepRecorder recorder;
    const Macro macro("m");
    EXPECT_EQ(macro.getCommandPtr(0), nullptr);
    EXPECT_EQ(macro.getCommandPtr(18446744073709551615UL), nullptr);
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: InvalidArgument Macro/getCommandPtr: Invalid index (0) "
                            "specified for macro command 'm'.",
                            "ERROR: InvalidArgument Macro/getCommandPtr: Invalid index "
                            "(18446744073709551615) specified for macro command 'm'."));
}

TEST(Macro, DeletesItsCommandsInOrder)
{
    Journal journal;
    {
        Macro macro("m");
        macro.add(new JournalCommand("a", journal));
        macro.add(new JournalCommand("b", journal));
        macro.add(new JournalCommand("c", journal));
        EXPECT_THAT(journal, IsEmpty());
    }
    EXPECT_THAT(journal, ElementsAre("delete a", "delete b", "delete c"));
}

TEST(Macro, DeletesCommandsOfNestedMacros)
{
    Journal journal;
    {
        Macro outer("outer");
        auto* const inner = new Macro("inner");
        inner->add(new JournalCommand("a", journal));
        outer.add(inner);
    }
    EXPECT_THAT(journal, ElementsAre("delete a"));
}

TEST(Macro, OutputWritesSettingsPositionAndCommands)
{
    Journal journal;
    Macro macro("m", true, false);
    macro.add(new JournalCommand("a", journal));
    macro.add(new NoOpCommand);
    std::ostringstream os;
    EXPECT_EQ(&macro.output(os), &os);
    EXPECT_EQ(os.str(),
              "Name = 'm'\n"
              "Continue on error? = 1\n"
              "Auto delete? = 0\n"
              "Current index = 0\n"
              "Constituent commands:\n"
              "Name = 'a'\n"
              "Name = 'NoOpCommand'\n");
}

TEST(Macro, OutputOfAnEmptyAutoDeleteMacro)
{
    const Macro macro("m", false, true);
    std::ostringstream os;
    os << macro;
    EXPECT_EQ(os.str(),
              "Name = 'm'\n"
              "Continue on error? = 0\n"
              "Auto delete? = 1\n"
              "Current index = 0\n"
              "Constituent commands:\n");
}

TEST(Macro, OutputWritesBoolsAsTheStreamDoes)
{
    const Macro macro("m", true, false);
    std::ostringstream os;
    os << std::boolalpha << macro;
    EXPECT_EQ(os.str(),
              "Name = 'm'\n"
              "Continue on error? = true\n"
              "Auto delete? = false\n"
              "Current index = 0\n"
              "Constituent commands:\n");
}

TEST(Macro, OutputOfNestedMacrosIsNested)
{
    Macro outer("outer");
    auto* const inner = new Macro("inner");
    inner->add(new NoOpCommand);
    outer.add(inner);
    std::ostringstream os;
    os << outer;
    EXPECT_EQ(os.str(),
              "Name = 'outer'\n"
              "Continue on error? = 0\n"
              "Auto delete? = 0\n"
              "Current index = 0\n"
              "Constituent commands:\n"
              "Name = 'inner'\n"
              "Continue on error? = 0\n"
              "Auto delete? = 0\n"
              "Current index = 0\n"
              "Constituent commands:\n"
              "Name = 'NoOpCommand'\n");
}

TEST(Macro, ResetResetsEveryCommandInOrderAndBeginsAgain)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal));
    macro.add(new JournalCommand("b", journal));
    macro.execute();
    journal.clear();

    macro.reset();
    EXPECT_THAT(journal, ElementsAre("reset a", "reset b"));
    journal.clear();

    macro.execute();
    EXPECT_THAT(journal, ElementsAre("run a", "run b"));
}

TEST(Macro, ResetReachesNestedMacros)
{
    Journal journal;
    Macro outer("outer");
    auto* const inner = new Macro("inner");
    inner->add(new JournalCommand("a", journal));
    outer.add(inner);
    outer.execute();
    outer.reset();
    outer.execute();
    EXPECT_THAT(journal, ElementsAre("run a", "reset a", "run a"));
}

}  // namespace
