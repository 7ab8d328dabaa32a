// Commands, by themselves:
// - the name is kept, and need not be unique;
// - the base does not stop a macro, and its reset does nothing;
// - output, also through the stream operator, writes the name's line;
// - execute returns the status of the command's work, reset calls the command's own reset;
// - a command may delete itself while it is executed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <type_traits>

#include "support/Commands.h"
#include "utils/command/Command.h"

namespace
{

using test::FunctionCommand;
using test::Journal;
using test::JournalCommand;
using testing::ElementsAre;
using utils::command::Command;

// Fills in nothing but the work.
class PlainCommand : public Command
{
  public:
    explicit PlainCommand(const std::string& name) : Command(name) {}
    int myExecute() override { return 0; }
};

TEST(Command, IsAbstractAndNotCopyable)
{
    EXPECT_TRUE(std::is_abstract_v<Command>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Command>);
    EXPECT_FALSE(std::is_copy_constructible_v<Command>);
    EXPECT_FALSE(std::is_copy_assignable_v<Command>);
}

TEST(Command, KeepsItsName)
{
    const PlainCommand command("a name with 'quotes'");
    EXPECT_EQ(command.getName(), "a name with 'quotes'");
}

TEST(Command, MayHaveAnEmptyName)
{
    const PlainCommand command("");
    EXPECT_EQ(command.getName(), "");
}

TEST(Command, SharesItsNameWithOthers)
{
    PlainCommand first("same");
    PlainCommand second("same");
    EXPECT_EQ(first.execute(), 0);
    EXPECT_EQ(second.execute(), 0);
}

TEST(Command, DoesNotStopAMacro)
{
    const PlainCommand command("c");
    EXPECT_FALSE(command.stopMacro());
}

TEST(Command, ExecuteReturnsTheStatusOfTheWork)
{
    for (const int status : {0, 1, 5, -1, 2147483647, -2147483647 - 1})
    {
        FunctionCommand command("c", [status] { return status; });
        EXPECT_EQ(command.execute(), status);
    }
}

TEST(Command, ExecuteDoesTheWorkOnceEachTime)
{
    Journal journal;
    JournalCommand command("c", journal);
    command.execute();
    command.execute();
    EXPECT_THAT(journal, ElementsAre("run c", "run c"));
}

TEST(Command, ResetCallsTheCommandsOwnReset)
{
    Journal journal;
    JournalCommand command("c", journal);
    command.reset();
    EXPECT_THAT(journal, ElementsAre("reset c"));
}

TEST(Command, ResetOfTheBaseDoesNothing)
{
    PlainCommand command("c");
    command.reset();
    EXPECT_EQ(command.execute(), 0);
}

TEST(Command, OutputWritesTheNameAndReturnsTheStream)
{
    const PlainCommand command("c");
    std::ostringstream os;
    EXPECT_EQ(&command.output(os), &os);
    EXPECT_EQ(os.str(), "Name = 'c'\n");
}

TEST(Command, StreamOperatorCallsTheVirtualOutput)
{
    class TalkativeCommand : public PlainCommand
    {
      public:
        TalkativeCommand() : PlainCommand("c") {}
        std::ostream& output(std::ostream& os) const override { return os << "something else"; }
    };
    const TalkativeCommand command;
    std::ostringstream os;
    EXPECT_EQ(&(os << static_cast<const Command&>(command)), &os);
    EXPECT_EQ(os.str(), "something else");
}

TEST(Command, MayDeleteItselfWhileItIsExecuted)
{
    class Kamikaze : public Command
    {
      public:
        explicit Kamikaze(bool& isDeleted) : Command("kamikaze"), m_isDeleted(isDeleted) {}
        ~Kamikaze() override { m_isDeleted = true; }
        int myExecute() override
        {
            delete this;
            return 7;
        }

      private:
        bool& m_isDeleted;
    };

    bool isDeleted = false;
    Command* const command = new Kamikaze(isDeleted);
    EXPECT_EQ(command->execute(), 7);
    EXPECT_TRUE(isDeleted);
}

}  // namespace
