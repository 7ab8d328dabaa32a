// Names of flags, and the registry of all flags.
//
// - no flag exists before the first is constructed
// - a flag keeps its name, registers it when constructed and takes it out when destroyed
// - a name may be used again afterwards
// - cleanUp erases by name, whatever flag the name stands for, and may be repeated
// - a duplicate name, also of another type of flag, is reported and ends the process with status 1
// - look-up: found; a quiet miss; a miss reported as warning, with its whole text
// - listing: the banner, then the flags in byte-wise order, each followed by an empty line
// - output of each type of flag; the stream operator calls the virtual output; formatting of the
//   target stream is neither used nor changed; each line is flushed

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <map>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>

#include <libstd/system.h>
#include <utils/flag/FlagT.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/FlushedPieces.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::IsEmpty;
using utils::error::Error;
using utils::flag::Flag;
using utils::flag::FlagT;

using Registry = std::map<std::string, Flag*>;

Registry& registry()
{
    return *utils::singleton::SingletonT<Registry>::getInstancePtr();
}

std::string listing()
{
    std::ostringstream os;
    Flag::outputFlags(os);
    return os.str();
}

class FlagTest : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    const test::ConfigDirectory m_config;
};

TEST(FlagWithoutFile, NoneExistsBeforeTheFirstIsConstructed)
{
    EXPECT_THAT(registry(), IsEmpty());
    EXPECT_EQ(listing(), "*** Current flags are:\n");
}

TEST_F(FlagTest, IsAnAbstractBaseThatCannotBeCopied)
{
    static_assert(std::is_abstract_v<Flag>);
    static_assert(std::has_virtual_destructor_v<Flag>);
    static_assert(std::is_base_of_v<Flag, FlagT<int>>);
    static_assert(!std::is_copy_constructible_v<FlagT<int>>);
    static_assert(!std::is_copy_assignable_v<FlagT<int>>);
    static_assert(std::is_nothrow_destructible_v<FlagT<int>>);
}

TEST_F(FlagTest, KeepsItsName)
{
    const FlagT<int> flag("utils::some:m_flag", 1);
    EXPECT_EQ(flag.getName(), "utils::some:m_flag");
}

TEST_F(FlagTest, RegistersItself)
{
    FlagT<int> flag("a", 1);
    EXPECT_THAT(registry(), ElementsAre(testing::Pair("a", &flag)));
}

TEST_F(FlagTest, DestructionTakesTheNameOut)
{
    {
        const FlagT<int> flag("a", 1);
    }
    EXPECT_THAT(registry(), IsEmpty());
    EXPECT_EQ(Flag::getFlagPtr("a", true), nullptr);
}

TEST_F(FlagTest, NameMayBeUsedAgainAfterDestruction)
{
    {
        const FlagT<int> flag("a", 1);
    }
    FlagT<bool> successor("a", true);
    EXPECT_EQ(Flag::getFlagPtr("a"), &successor);
}

TEST_F(FlagTest, EmptyNameIsAName)
{
    FlagT<int> flag("", 1);
    EXPECT_EQ(Flag::getFlagPtr(""), &flag);
}

TEST_F(FlagTest, CleanUpTakesTheNameOut)
{
    FlagT<int> flag("a", 1);
    flag.cleanUp();
    EXPECT_EQ(Flag::getFlagPtr("a", true), nullptr);
    flag.cleanUp();
    EXPECT_THAT(registry(), IsEmpty());
}

TEST_F(FlagTest, CleanUpErasesByNameNotByObject)
{
    FlagT<int> flag("a", 1);
    flag.cleanUp();
    const FlagT<int> successor("a", 2);
    flag.cleanUp();
    EXPECT_EQ(Flag::getFlagPtr("a", true), nullptr);
}

TEST_F(FlagTest, DuplicateNameIsReportedAndEndsTheProcess)
{
    EXPECT_EXIT(
        {
            const FlagT<int> first("twice", 1);
            const FlagT<int> second("twice", 2);
            std::cerr << "goes on";
        },
        ExitedWithCode(1),
        "^!ERROR: AlreadyExists by [^\n]* on [^\n]*\\.\n"
        "Generated from generic/utils/src/flag/src/Flag/[0-9]+/Flag:\n"
        "Flag 'twice' is already in the Flag Collection \\(i\\.e\\., name is not unique\\)\\.\n$");
}

TEST_F(FlagTest, DuplicateNameOfAnotherTypeEndsTheProcess)
{
    EXPECT_EXIT(
        {
            const FlagT<int> first("twice", 1);
            const FlagT<std::string> second("twice", "two");
        },
        ExitedWithCode(1), "\nFlag 'twice' is already in the Flag Collection ");
}

class AnnouncingStrategy : public utils::strategy::StrategyT<Error>
{
  public:
    AnnouncingStrategy() : StrategyT("Error", "announcing", false) {}

    bool isInterested(const Error&) override { return true; }
    void processClientObject(Error& error) override
    {
        std::cerr << "name " << error.getName() << ", severity " << error.getSeverity();
    }
};

TEST_F(FlagTest, DuplicateNameReachesTheStrategiesFirst)
{
    EXPECT_EXIT(
        {
            const AnnouncingStrategy strategy;
            const FlagT<int> first("twice", 1);
            const FlagT<int> second("twice", 2);
        },
        ExitedWithCode(1), "^name AlreadyExists, severity 3$");
}

TEST_F(FlagTest, LookUpFindsTheFlag)
{
    const test::RecordingErrorStrategy errors;
    FlagT<int> a("a", 1);
    FlagT<bool> b("b", true);
    EXPECT_EQ(Flag::getFlagPtr("a", false), &a);
    EXPECT_EQ(Flag::getFlagPtr("b", true), &b);
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST_F(FlagTest, QuietMissIsNullWithoutReport)
{
    const test::RecordingErrorStrategy errors;
    const test::ClogCapture clog;
    EXPECT_EQ(Flag::getFlagPtr("nobody", true), nullptr);
    EXPECT_THAT(errors.getReports(), IsEmpty());
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(FlagTest, MissIsNullAndReported)
{
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(Flag::getFlagPtr("nobody", false), nullptr);
    ASSERT_EQ(errors.getReports().size(), 1U);
    const test::ErrorReport report = errors.getReports()[0];
    EXPECT_EQ(report.name, "DoesNotExist");
    EXPECT_EQ(report.severity, Error::WARNING);
    EXPECT_EQ(report.getLocation(), "generic/utils/src/flag/src/Flag/129/getFlagPtr");
    EXPECT_EQ(report.getWords(), "Flag 'nobody' does not exist.");
}

TEST_F(FlagTest, MissIsReportedUnlessAskedToBeQuiet)
{
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(Flag::getFlagPtr("nobody"), nullptr);
    EXPECT_THAT(errors.getWords(), ElementsAre("Flag 'nobody' does not exist."));
}

// With the platform's own user and time, as it stands on the log stream.
TEST_F(FlagTest, MissGoesToTheLogStreamByDefault)
{
    const test::ClogCapture clog;
    EXPECT_EQ(Flag::getFlagPtr("nobody"), nullptr);
    EXPECT_THAT(
        clog.getText(),
        testing::MatchesRegex("!WARNING: DoesNotExist by " + std::getUserName() +
                              " on [0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.\n"
                              "Generated from generic/utils/src/flag/src/Flag/129/getFlagPtr:\n"
                              "Flag 'nobody' does not exist\\.\n"));
}

TEST_F(FlagTest, LookUpComparesWholeNamesByteByByte)
{
    FlagT<int> flag("utils::a", 1);
    FlagT<int> withNul(std::string("utils::a\0b", 10), 2);
    EXPECT_EQ(Flag::getFlagPtr("utils::A", true), nullptr);
    EXPECT_EQ(Flag::getFlagPtr("utils::", true), nullptr);
    EXPECT_EQ(Flag::getFlagPtr("utils::a ", true), nullptr);
    EXPECT_EQ(Flag::getFlagPtr("utils::a"), &flag);
    EXPECT_EQ(Flag::getFlagPtr(std::string("utils::a\0b", 10)), &withNul);
}

TEST_F(FlagTest, ListingIsInByteOrderOfNames)
{
    const FlagT<int> small("a", 3);
    const FlagT<std::string> high("\xc3\xa9", "e acute");
    const FlagT<bool> capital("B", true);
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'B'\n"
              "Value = 1\n"
              "\n"
              "Name  = 'a'\n"
              "Value = 3\n"
              "\n"
              "Name  = '\xc3\xa9'\n"
              "Value = e acute\n"
              "\n");
}

TEST_F(FlagTest, ListingShowsCurrentValues)
{
    FlagT<int> flag("a", 3);
    flag.setValue(-4);
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'a'\n"
              "Value = -4\n"
              "\n");
}

TEST_F(FlagTest, ListingFlushesEachLine)
{
    const FlagT<int> flag("a", 3);
    test::FlushedPieces os;
    Flag::outputFlags(os.getStream());
    EXPECT_THAT(os.getPieces(),
                ElementsAre("*** Current flags are:\n", "Name  = 'a'\n", "Value = 3\n", "\n"));
}

TEST_F(FlagTest, ListingIgnoresAndKeepsTheFormatOfTheStream)
{
    const FlagT<int> flag("a", 30);
    std::ostringstream os;
    os << std::hex << std::showbase << std::setfill('*') << std::setw(40);
    Flag::outputFlags(os);
    EXPECT_EQ(os.str(),
              "*** Current flags are:\n"
              "Name  = 'a'\n"
              "Value = 30\n"
              "\n");
    EXPECT_EQ(os.width(), 40);
    EXPECT_EQ(os.fill(), '*');
    EXPECT_EQ(os.flags() & std::ios_base::basefield, std::ios_base::hex);
    EXPECT_TRUE(os.flags() & std::ios_base::showbase);
}

template <typename T>
std::string outputOf(const T& value)
{
    const FlagT<T> flag("f", value);
    std::ostringstream os;
    flag.output(os);
    return os.str();
}

TEST_F(FlagTest, OutputOfABool)
{
    EXPECT_EQ(outputOf<bool>(true), "Name  = 'f'\nValue = 1\n");
    EXPECT_EQ(outputOf<bool>(false), "Name  = 'f'\nValue = 0\n");
}

TEST_F(FlagTest, OutputOfAnInt)
{
    EXPECT_EQ(outputOf<int>(-2147483647 - 1), "Name  = 'f'\nValue = -2147483648\n");
}

TEST_F(FlagTest, OutputOfAnUnsignedLong)
{
    EXPECT_EQ(outputOf<unsigned long>(18446744073709551615UL),
              "Name  = 'f'\nValue = 18446744073709551615\n");
}

TEST_F(FlagTest, OutputOfAString)
{
    EXPECT_EQ(outputOf<std::string>("two  words "), "Name  = 'f'\nValue = two  words \n");
    EXPECT_EQ(outputOf<std::string>(""), "Name  = 'f'\nValue = \n");
}

TEST_F(FlagTest, OutputIgnoresAndKeepsTheFormatOfTheStream)
{
    const FlagT<bool> flag("f", true);
    std::ostringstream os;
    os << std::boolalpha << std::setfill('*') << std::setw(40);
    os << flag;
    EXPECT_EQ(os.str(), "Name  = 'f'\nValue = 1\n");
    EXPECT_EQ(os.width(), 40);
    EXPECT_TRUE(os.flags() & std::ios_base::boolalpha);
}

// Only the name, by the base class's own output.
class NameOnly : public Flag
{
  public:
    using Flag::Flag;

    bool setValueStr(const std::string&) override { return false; }
    std::string getValueStr() const override { return "none"; }
    void output(std::ostream& os) const override
    {
        Flag::output(os);
        os << "own\n";
    }
};

TEST_F(FlagTest, BaseOutputWritesTheName)
{
    const NameOnly flag("x");
    std::ostringstream os;
    const Flag& base = flag;
    std::ostream& result = os << base;
    EXPECT_EQ(&result, &os);
    EXPECT_EQ(os.str(), "Name  = 'x'\nown\n");
}

TEST_F(FlagTest, ApplicationsKindOfFlagIsRegisteredAndListed)
{
    NameOnly flag("x");
    EXPECT_EQ(Flag::getFlagPtr("x"), &flag);
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'x'\n"
              "own\n"
              "\n");
}

}  // namespace
