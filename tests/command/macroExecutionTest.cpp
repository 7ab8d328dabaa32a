// What executing a macro does:
// - commands run in order; the status is that of the last one executed, 0 without any;
// - a failure ends the execution unless the macro continues on error;
// - a stopping command suspends the macro, which goes on from there;
// - the position is kept until reset;
// - when an auto-delete macro deletes itself and when it does not;
// - commands added while the macro is executed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "support/Commands.h"

namespace
{

using test::CountedMacro;
using test::FunctionCommand;
using test::Journal;
using test::JournalCommand;
using testing::ElementsAre;
using testing::HasSubstr;
using utils::command::Macro;

constexpr bool CONTINUE_ON_ERROR = true;
constexpr bool STOP_ON_ERROR = false;
constexpr bool AUTO_DELETE = true;
constexpr bool STOPS = true;

std::string toText(const Macro& macro)
{
    std::ostringstream os;
    os << macro;
    return os.str();
}

TEST(MacroExecution, OfAnEmptyMacroSucceeds)
{
    Macro macro("m");
    EXPECT_EQ(macro.execute(), 0);
}

TEST(MacroExecution, DeletesAnEmptyAutoDeleteMacro)
{
    std::atomic<int> numDeleted{0};
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
}

TEST(MacroExecution, RunsCommandsInOrder)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal));
    macro.add(new JournalCommand("b", journal));
    macro.add(new JournalCommand("c", journal));
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run b", "run c"));
}

TEST(MacroExecution, EndsAtAFailure)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal, 0));
    macro.add(new JournalCommand("b", journal, 5));
    macro.add(new JournalCommand("c", journal, 0));
    EXPECT_EQ(macro.execute(), 5);
    EXPECT_THAT(journal, ElementsAre("run a", "run b"));
    EXPECT_THAT(toText(macro), HasSubstr("Current index = 2\n"));
}

TEST(MacroExecution, TakesANegativeStatusForAFailure)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal, -1));
    macro.add(new JournalCommand("b", journal));
    EXPECT_EQ(macro.execute(), -1);
    EXPECT_THAT(journal, ElementsAre("run a"));
}

TEST(MacroExecution, GoesOnBehindTheFailedCommand)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal, 5));
    macro.add(new JournalCommand("b", journal, 6));
    EXPECT_EQ(macro.execute(), 5);
    EXPECT_EQ(macro.execute(), 6);
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run b"));
}

TEST(MacroExecution, ContinuesOnErrorWhenToldTo)
{
    Journal journal;
    Macro macro("m", CONTINUE_ON_ERROR);
    macro.add(new JournalCommand("a", journal, 0));
    macro.add(new JournalCommand("b", journal, 5));
    macro.add(new JournalCommand("c", journal, 0));
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run b", "run c"));
}

TEST(MacroExecution, ReturnsTheLastStatusWhenItContinuesOnError)
{
    Journal journal;
    Macro macro("m", CONTINUE_ON_ERROR);
    macro.add(new JournalCommand("a", journal, 4));
    macro.add(new JournalCommand("b", journal, 5));
    EXPECT_EQ(macro.execute(), 5);
}

TEST(MacroExecution, OfAFinishedMacroDoesNothingUntilReset)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal, 5));
    EXPECT_EQ(macro.execute(), 5);
    EXPECT_THAT(toText(macro), HasSubstr("Current index = 1\n"));
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a"));
}

TEST(MacroExecution, ReachesCommandsAddedToAFinishedMacro)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal));
    macro.execute();
    macro.add(new JournalCommand("b", journal));
    macro.execute();
    EXPECT_THAT(journal, ElementsAre("run a", "run b"));
}

TEST(MacroExecution, RunsNestedMacrosAsCommands)
{
    Journal journal;
    Macro outer("outer");
    auto* const inner = new Macro("inner");
    inner->add(new JournalCommand("a", journal));
    inner->add(new JournalCommand("b", journal, 3));
    outer.add(inner);
    outer.add(new JournalCommand("c", journal));
    EXPECT_EQ(outer.execute(), 3);
    EXPECT_THAT(journal, ElementsAre("run a", "run b"));
}

TEST(MacroExecution, IsSuspendedByAStoppingCommandAndGoesOnBehindIt)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal, 0, STOPS));
    macro.add(new JournalCommand("b", journal));
    macro.add(new JournalCommand("c", journal));

    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a"));
    EXPECT_THAT(toText(macro), HasSubstr("Current index = 1\n"));

    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run b", "run c"));
}

TEST(MacroExecution, KeepsASuspendedAutoDeleteMacroUntilItsEnd)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new JournalCommand("a", journal, 0, STOPS));
    macro->add(new JournalCommand("b", journal));
    macro->add(new JournalCommand("c", journal));

    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 0);

    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(journal,
                ElementsAre("run a", "run b", "run c", "delete a", "delete b", "delete c"));
}

TEST(MacroExecution, ReturnsTheStatusOfTheStoppingCommand)
{
    Journal journal;
    Macro macro("m");
    macro.add(new JournalCommand("a", journal, 9, STOPS));
    macro.add(new JournalCommand("b", journal));
    EXPECT_EQ(macro.execute(), 9);
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run b"));
}

TEST(MacroExecution, KeepsAnAutoDeleteMacroWhoseStoppingCommandFailedBeforeTheEnd)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new JournalCommand("a", journal, 9, STOPS));
    macro->add(new JournalCommand("b", journal));
    EXPECT_EQ(macro->execute(), 9);
    EXPECT_EQ(numDeleted, 0);
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
}

TEST(MacroExecution, DeletesAnAutoDeleteMacroThatStopsAtItsLastCommand)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new JournalCommand("a", journal));
    macro->add(new JournalCommand("b", journal, 0, STOPS));
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
}

TEST(MacroExecution, DeletesAnAutoDeleteMacroWhoseLastStoppingCommandFails)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new JournalCommand("a", journal, 9, STOPS));
    EXPECT_EQ(macro->execute(), 9);
    EXPECT_EQ(numDeleted, 1);
}

TEST(MacroExecution, DeletesAnAutoDeleteMacroAtAFailure)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new JournalCommand("a", journal, 5));
    macro->add(new JournalCommand("b", journal));
    EXPECT_EQ(macro->execute(), 5);
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(journal, ElementsAre("run a", "delete a", "delete b"));
}

TEST(MacroExecution, KeepsAMacroThatDoesNotDeleteItself)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    {
        CountedMacro macro("m", numDeleted, false);
        macro.add(new JournalCommand("a", journal, 5));
        macro.execute();
        macro.execute();
        EXPECT_EQ(numDeleted, 0);
    }
    EXPECT_EQ(numDeleted, 1);
}

TEST(MacroExecution, AsksForTheStopBeforeTheCommandRuns)
{
    class ChangingCommand : public JournalCommand
    {
      public:
        explicit ChangingCommand(Journal& journal) : JournalCommand("changing", journal) {}
        bool stopMacro() const override { return m_stops; }
        int myExecute() override
        {
            m_stops = !m_stops;
            return JournalCommand::myExecute();
        }

      private:
        bool m_stops = false;
    };

    Journal journal;
    Macro macro("m");
    macro.add(new ChangingCommand(journal));
    macro.add(new JournalCommand("b", journal));
    macro.execute();
    EXPECT_THAT(journal, ElementsAre("run changing", "run b"));
    macro.reset();
    journal.clear();

    macro.execute();
    EXPECT_THAT(journal, ElementsAre("run changing"));
}

TEST(MacroExecution, AsksEachCommandForTheStopOnce)
{
    class AskedCommand : public FunctionCommand
    {
      public:
        explicit AskedCommand(int& numAsked)
            : FunctionCommand("asked", [] { return 0; }), m_numAsked(numAsked)
        {
        }
        bool stopMacro() const override
        {
            ++m_numAsked;
            return false;
        }

      private:
        int& m_numAsked;
    };

    int numAsked = 0;
    Macro macro("m");
    macro.add(new AskedCommand(numAsked));
    macro.execute();
    EXPECT_EQ(numAsked, 1);
}

TEST(MacroExecution, RunsCommandsAddedByTheLastCommand)
{
    Journal journal;
    Macro macro("m");
    macro.add(new FunctionCommand("adder",
                                  [&]
                                  {
                                      for (const char* const name : {"a", "b", "c"})
                                      {
                                          macro.add(new JournalCommand(name, journal));
                                      }
                                      return 0;
                                  }));
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run b", "run c"));
    EXPECT_EQ(macro.size(), 4U);
}

TEST(MacroExecution, RunsCommandsAddedBehindAFailureOnlyWhenItContinues)
{
    for (const bool continueOnError : {STOP_ON_ERROR, CONTINUE_ON_ERROR})
    {
        Journal journal;
        Macro macro("m", continueOnError);
        macro.add(new FunctionCommand("adder",
                                      [&]
                                      {
                                          macro.add(new JournalCommand("a", journal));
                                          return 1;
                                      }));
        EXPECT_EQ(macro.execute(), continueOnError ? 0 : 1);
        EXPECT_EQ(journal.size(), continueOnError ? 1U : 0U);
    }
}

TEST(MacroExecution, IsSuspendedByAnAddedStoppingCommandThatIsNotTheLast)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new FunctionCommand("adder",
                                   [&]
                                   {
                                       macro->add(new JournalCommand("s", journal, 0, STOPS));
                                       macro->add(new JournalCommand("b", journal));
                                       return 0;
                                   }));
    macro->add(new JournalCommand("a", journal));

    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 0);
    EXPECT_THAT(journal, ElementsAre("run a", "run s"));
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
}

// The end counts as reached once a command was the last when it was taken, whatever it adds.
TEST(MacroExecution, EndsAtAnAddedStoppingCommandOnceItsLastCommandWasReached)
{
    std::atomic<int> numDeleted{0};
    Journal journal;
    auto* const macro = new CountedMacro("m", numDeleted, AUTO_DELETE);
    macro->add(new FunctionCommand("adder",
                                   [&]
                                   {
                                       macro->add(new JournalCommand("s", journal, 0, STOPS));
                                       macro->add(new JournalCommand("b", journal));
                                       return 0;
                                   }));
    EXPECT_EQ(macro->execute(), 0);
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(journal, ElementsAre("run s", "delete s", "delete b"));
}

TEST(MacroExecution, OfACommandThatResetsItsMacroBeginsAgain)
{
    Journal journal;
    Macro macro("m");
    bool isFirst = true;
    macro.add(new JournalCommand("a", journal));
    macro.add(new FunctionCommand("rewinder",
                                  [&]
                                  {
                                      if (std::exchange(isFirst, false))
                                      {
                                          macro.reset();
                                      }
                                      return 0;
                                  }));
    EXPECT_EQ(macro.execute(), 0);
    EXPECT_THAT(journal, ElementsAre("run a", "reset a", "run a"));
}

}  // namespace
