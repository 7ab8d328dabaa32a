// The initial values file: where it is, when it is read, what its pairs do.
//
// - pairs of trimmed lines; comments and blank lines are skipped; values keep inner blanks
// - the last of several values of a name wins; a last name without value has an empty one
// - a look-up hands out the text, or answers false and leaves the caller's text alone
// - the file is read once, when the first flag is constructed
// - reading it again merges: new values replace, absent names stay, existing flags do not change
// - a missing file is reported once, with its whole text, and every flag keeps its default
// - the file's path is the platform's directory, "/" and the name; a trailing slash is doubled
// - every type of flag takes its value from the file

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <type_traits>

#include <libstd/system.h>
#include <utils/flag/FlagT.h>
#include <utils/flag/InitialValues.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using testing::IsEmpty;
using utils::flag::FlagT;
using utils::flag::InitialValues;

InitialValues& initialValues()
{
    return *utils::singleton::SingletonT<InitialValues>::getInstancePtr();
}

// The text of a name, or "(none)".
std::string valueOf(const std::string& name)
{
    std::string value = "(none)";
    initialValues().getInitialValue(name, value);
    return value;
}

TEST(InitialValues, IsPolymorphicWithAVirtualDestructor)
{
    static_assert(std::has_virtual_destructor_v<InitialValues>);
}

TEST(InitialValues, AreReadAsPairsOfLines)
{
    const test::ConfigDirectory config(
        "# trace settings\n"
        "utils::queue::m_traceSteps\n"
        "3\n"
        "\n"
        "utils::xml::m_xmlDeclaration\n"
        "<?xml version='1.0' encoding='UTF-8'?>\n");
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(valueOf("utils::queue::m_traceSteps"), "3");
    EXPECT_EQ(valueOf("utils::xml::m_xmlDeclaration"), "<?xml version='1.0' encoding='UTF-8'?>");
    EXPECT_EQ(valueOf("# trace settings"), "(none)");
    EXPECT_EQ(valueOf(""), "(none)");
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST(InitialValues, LookUpAnswersWhetherTheNameIsThere)
{
    const test::ConfigDirectory config("a\n1\n");
    std::string value = "before";
    EXPECT_FALSE(initialValues().getInitialValue("b", value));
    EXPECT_EQ(value, "before");
    EXPECT_TRUE(initialValues().getInitialValue("a", value));
    EXPECT_EQ(value, "1");
}

TEST(InitialValues, LookUpComparesWholeNames)
{
    const test::ConfigDirectory config("utils::a\n1\n");
    EXPECT_EQ(valueOf("utils::A"), "(none)");
    EXPECT_EQ(valueOf("utils::"), "(none)");
    EXPECT_EQ(valueOf("utils::a "), "(none)");
}

TEST(InitialValues, LinesAreTrimmed)
{
    const test::ConfigDirectory config("  name  \n\tvalue \n");
    EXPECT_EQ(valueOf("name"), "value");
}

TEST(InitialValues, InnerBlanksBelongToNamesAndValues)
{
    const test::ConfigDirectory config(" a  name \n two  words\tand more \n");
    EXPECT_EQ(valueOf("a  name"), "two  words\tand more");
}

TEST(InitialValues, HashIntroducesACommentOnlyAtTheStartOfATrimmedLine)
{
    const test::ConfigDirectory config(
        "  # not a name\n"
        "a#b\n"
        "\t# not a value\n"
        "c # d\n"
        "#\n"
        "e\n"
        "x#\n");
    EXPECT_EQ(valueOf("a#b"), "c # d");
    EXPECT_EQ(valueOf("e"), "x#");
}

// The value that looks like a comment is skipped, so the next line takes its place.
TEST(InitialValues, ValueCannotBeginWithAHash)
{
    const test::ConfigDirectory config("a\n#1\nb\n2\n");
    EXPECT_EQ(valueOf("a"), "b");
    EXPECT_EQ(valueOf("2"), "");
}

TEST(InitialValues, BlankLinesMayStandBetweenNameAndValue)
{
    const test::ConfigDirectory config("\n\na\n \n\t\n1\n\n");
    EXPECT_EQ(valueOf("a"), "1");
}

TEST(InitialValues, LastValueOfANameWins)
{
    const test::ConfigDirectory config("a\n1\nb\n2\na\n3\n");
    EXPECT_EQ(valueOf("a"), "3");
    EXPECT_EQ(valueOf("b"), "2");
}

TEST(InitialValues, LastNameWithoutValueHasAnEmptyOne)
{
    const test::ConfigDirectory config("a\n1\nb\n");
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(valueOf("a"), "1");
    EXPECT_EQ(valueOf("b"), "");
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST(InitialValues, NameRepeatedWithoutValueBecomesEmpty)
{
    const test::ConfigDirectory config("a\n1\na");
    EXPECT_EQ(valueOf("a"), "");
}

TEST(InitialValues, LastLineNeedsNoLineFeed)
{
    const test::ConfigDirectory config("a\n1");
    const test::RecordingErrorStrategy errors;
    EXPECT_EQ(valueOf("a"), "1");
    EXPECT_THAT(errors.getReports(), IsEmpty());
}

TEST(InitialValues, FileIsReadWhenTheFirstFlagIsConstructed)
{
    const test::ConfigDirectory config("a\n1\n");
    config.writeValues("a\n2\n");
    const FlagT<int> first("first", 0);
    config.writeValues("a\n3\n");
    const FlagT<int> flag("a", 0);
    EXPECT_EQ(flag(), 2);
}

TEST(InitialValues, ReadingAgainReplacesAndAddsAndKeeps)
{
    const test::ConfigDirectory config("a\n1\nb\n2\n");
    EXPECT_EQ(valueOf("a"), "1");

    config.writeValues("b\n3\nc\n4\n");
    initialValues().redoInitialValuesCollection();

    EXPECT_EQ(valueOf("a"), "1");
    EXPECT_EQ(valueOf("b"), "3");
    EXPECT_EQ(valueOf("c"), "4");
}

TEST(InitialValues, ReadingAgainChangesNoExistingFlag)
{
    const test::ConfigDirectory config("a\n1\n");
    const FlagT<int> flag("a", 0);

    config.writeValues("a\n2\nb\n3\n");
    initialValues().redoInitialValuesCollection();

    EXPECT_EQ(flag(), 1);
    const FlagT<int> later("b", 0);
    EXPECT_EQ(later(), 3);
}

TEST(InitialValues, FailureToReadAgainIsReportedAndKeepsThePairs)
{
    const test::ConfigDirectory config("a\n1\n");
    EXPECT_EQ(valueOf("a"), "1");
    const test::RecordingErrorStrategy errors;
    config.removeValues();

    initialValues().redoInitialValuesCollection();
    initialValues().redoInitialValuesCollection();

    EXPECT_EQ(errors.getReports().size(), 2U);
    EXPECT_EQ(valueOf("a"), "1");
}

TEST(InitialValues, ObjectOfItsOwnReadsTheFileToo)
{
    const test::ConfigDirectory config("a\n1\n");
    EXPECT_EQ(valueOf("a"), "1");
    config.writeValues("a\n2\n");
    const InitialValues other;
    std::string value;
    EXPECT_TRUE(other.getInitialValue("a", value));
    EXPECT_EQ(value, "2");
    EXPECT_EQ(valueOf("a"), "1");
}

TEST(InitialValues, MissingFileIsReported)
{
    const test::ConfigDirectory config;
    config.removeValues();
    const test::RecordingErrorStrategy errors;

    const FlagT<int> flag("a", 7);

    ASSERT_EQ(errors.getReports().size(), 1U);
    const test::ErrorReport report = errors.getReports()[0];
    EXPECT_EQ(report.name, "Read Error");
    EXPECT_EQ(report.severity, utils::error::Error::ERROR);
    EXPECT_EQ(report.getLocation(),
              "generic/utils/src/flag/src/InitialValues/183/redoInitialValuesCollection");
    EXPECT_EQ(report.getWords(), "Could not read initial flag values from file '" +
                                     config.getPath() + "/generic_flags.txt' - stream read error.");
    EXPECT_EQ(flag(), 7);
}

TEST(InitialValues, MissingFileIsReportedOnceForAllFlags)
{
    const test::ConfigDirectory config;
    config.removeValues();
    const test::RecordingErrorStrategy errors;
    const FlagT<int> first("first", 1);
    const FlagT<int> second("second", 2);
    EXPECT_EQ(first(), 1);
    EXPECT_EQ(second(), 2);
    EXPECT_EQ(errors.getReports().size(), 1U);
    EXPECT_EQ(valueOf("first"), "(none)");
    EXPECT_EQ(valueOf(""), "(none)");
}

TEST(InitialValues, MissingFileIsReportedOnTheLogStreamByDefault)
{
    const test::ConfigDirectory config;
    config.removeValues();
    const test::ClogCapture clog;
    const FlagT<int> flag("a", 7);
    EXPECT_THAT(clog.getText(),
                testing::MatchesRegex(
                    "!ERROR: Read Error by " + std::getUserName() +
                    " on [0-9: -]*\\.\n"
                    "Generated from "
                    "generic/utils/src/flag/src/InitialValues/183/redoInitialValuesCollection:\n"
                    "Could not read initial flag values from file '" +
                    config.getPath() + "/generic_flags\\.txt' - stream read error\\.\n"));
}

TEST(InitialValues, DirectoryAndNameAreJoinedByASlashWhateverTheDirectory)
{
    const test::ConfigDirectory config;
    config.removeValues();
    setenv("GENERIC_CONFIG_DIR", (config.getPath() + "/").c_str(), 1);
    const test::RecordingErrorStrategy errors;
    initialValues();
    EXPECT_THAT(
        errors.getWords(),
        testing::ElementsAre("Could not read initial flag values from file '" + config.getPath() +
                             "//generic_flags.txt' - stream read error."));
}

TEST(InitialValues, DirectoryWithATrailingSlashIsRead)
{
    const test::ConfigDirectory config("a\n1\n");
    setenv("GENERIC_CONFIG_DIR", (config.getPath() + "/").c_str(), 1);
    EXPECT_EQ(valueOf("a"), "1");
}

TEST(InitialValues, EveryTypeOfFlagTakesItsValueFromTheFile)
{
    const test::ConfigDirectory config(
        "b\n1\n"
        "i\n-5\n"
        "u\n18446744073709551615\n"
        "s\n  <?xml version='1.0'  encoding='UTF-8'?> \n");
    const FlagT<bool> flagOfBool("b", false);
    const FlagT<int> flagOfInt("i", 1);
    const FlagT<unsigned long> flagOfUnsignedLong("u", 1);
    const FlagT<std::string> flagOfString("s", "default");
    const FlagT<int> flagNotNamed("n", 9);
    EXPECT_EQ(flagOfBool(), true);
    EXPECT_EQ(flagOfInt(), -5);
    EXPECT_EQ(flagOfUnsignedLong(), 18446744073709551615UL);
    EXPECT_EQ(flagOfString(), "<?xml version='1.0'  encoding='UTF-8'?>");
    EXPECT_EQ(flagNotNamed(), 9);
}

TEST(InitialValues, FlagMadeAgainStartsFromTheFileAgain)
{
    const test::ConfigDirectory config("a\n5\n");
    {
        FlagT<int> flag("a", 1);
        flag.setValue(6);
    }
    const FlagT<int> flag("a", 1);
    EXPECT_EQ(flag(), 5);
}

}  // namespace
