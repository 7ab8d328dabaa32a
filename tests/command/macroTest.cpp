// Macros as containers of commands:
// - flags default to off; size counts the commands, and null never enters;
// - a bad index yields null and a report;
// - the macro owns its commands and deletes them in order, those added meanwhile included;
// - output writes the settings, the position and every command, and flushes each line;
// - reset resets every command in order, those added meanwhile included, then begins at the first
//   one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "support/Commands.h"
#include "support/FlushedPieces.h"
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

// Adds another command to its macro, often enough for the macro's list to move, when it is reset
// and when it is deleted.
class ProlificCommand : public JournalCommand
{
  public:
    ProlificCommand(Macro& macro, Journal& journal, int numToCome)
        : JournalCommand(std::to_string(numToCome), journal),
          m_macro(macro),
          m_journal(journal),
          m_numToCome(numToCome)
    {
    }
    ~ProlificCommand() override { addNext(); }
    void myReset() override
    {
        JournalCommand::myReset();
        addNext();
    }

  private:
    void addNext()
    {
        if (m_numToCome > 0)
        {
            m_macro.add(new ProlificCommand(m_macro, m_journal, m_numToCome - 1));
            m_numToCome = 0;
        }
    }

    Macro& m_macro;
    Journal& m_journal;
    int m_numToCome;
};

// A walk that is not by index goes on in freed memory: AddressSanitizer reports it.
TEST(Macro, DeletesCommandsAddedByTheDestructorsOfOthers)
{
    Journal journal;
    {
        Macro macro("m");
        macro.add(new ProlificCommand(macro, journal, 3));
    }
    EXPECT_THAT(journal, ElementsAre("delete 3", "delete 2", "delete 1", "delete 0"));
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

TEST(Macro, OutputFlushesEachLine)
{
    Macro macro("m");
    macro.add(new NoOpCommand);
    test::FlushedPieces os;
    macro.output(os.getStream());
    EXPECT_THAT(os.getPieces(), ElementsAre("Name = 'm'\n", "Continue on error? = 0\n",
                                            "Auto delete? = 0\n", "Current index = 0\n",
                                            "Constituent commands:\n", "Name = 'NoOpCommand'\n"));
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

TEST(Macro, ResetReachesCommandsAddedByTheResetOfOthers)
{
    Journal journal;
    Macro macro("m");
    macro.add(new ProlificCommand(macro, journal, 3));
    macro.reset();
    EXPECT_THAT(journal, ElementsAre("reset 3", "reset 2", "reset 1", "reset 0"));
    EXPECT_EQ(macro.size(), 4U);
    journal.clear();

    macro.execute();
    EXPECT_THAT(journal, ElementsAre("run 3", "run 2", "run 1", "run 0"));
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
