// One error report: constants, header, text, copies.
//
// - the constants, also while this program's static objects are initialised
// - severities: values, texts, and "UNKNOWN" for any other
// - header: severity, name, user, current time, place; whole texts
// - numbers are written without the grouping of the global locale
// - name and severity are kept
// - a null file or function leaves the stream in its bad state
// - output writes the text and nothing else; the stream operator calls the virtual output; an empty
//   text leaves the target stream good; formatting of the target stream is neither used nor changed
// - a copy has name, severity and text of its own, and is appended to
// - the library's own reports name the library's source

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <utils/error/Error.h>

#include "support/FixedUserAndTime.h"
#include "support/GroupedNumbers.h"

namespace
{

using utils::error::Error;

std::string textOf(const Error& error)
{
    std::ostringstream os;
    os << error;
    return os.str();
}

Error makeError()
{
    return {"some/file", 12, "function", "Some Name", Error::WARNING};
}

TEST(ErrorConstants, HaveTheirValues)
{
    EXPECT_EQ(Error::STRATEGY_TYPE, "Error");
    EXPECT_EQ(Error::ALREADY_EXISTS, "AlreadyExists");
    EXPECT_EQ(Error::DOES_NOT_EXIST, "DoesNotExist");
    EXPECT_EQ(Error::INVALID_ARGUMENT, "InvalidArgument");
    EXPECT_EQ(Error::NOT_IMPLEMENTED, "NotImplemented");
    EXPECT_EQ(Error::NULL_PTR, "NullPtr");
    EXPECT_EQ(Error::UNKNOWN_EXCEPTION, "UnknownException");
}

const std::vector<std::string> theConstantsAtLoad = {
    Error::STRATEGY_TYPE,     Error::ALREADY_EXISTS,  Error::DOES_NOT_EXIST,
    Error::INVALID_ARGUMENT,  Error::NOT_IMPLEMENTED, Error::NULL_PTR,
    Error::UNKNOWN_EXCEPTION,
};

TEST(ErrorConstants, ExistFromLibraryLoad)
{
    EXPECT_THAT(theConstantsAtLoad,
                testing::ElementsAre("Error", "AlreadyExists", "DoesNotExist", "InvalidArgument",
                                     "NotImplemented", "NullPtr", "UnknownException"));
}

TEST(ErrorSeverity, HasItsValues)
{
    EXPECT_EQ(static_cast<int>(Error::INFO), 1);
    EXPECT_EQ(static_cast<int>(Error::WARNING), 2);
    EXPECT_EQ(static_cast<int>(Error::ERROR), 3);
    EXPECT_EQ(static_cast<int>(Error::CRITICAL), 4);
    EXPECT_EQ(static_cast<int>(Error::FATAL), 5);
    static_assert(std::is_same_v<std::underlying_type_t<Error::Severity>, int>);
    static_assert(std::is_convertible_v<Error::Severity, int>, "unscoped");
}

TEST(ErrorSeverity, HasItsTexts)
{
    EXPECT_EQ(Error::severityToString(Error::INFO), "INFO");
    EXPECT_EQ(Error::severityToString(Error::WARNING), "WARNING");
    EXPECT_EQ(Error::severityToString(Error::ERROR), "ERROR");
    EXPECT_EQ(Error::severityToString(Error::CRITICAL), "CRITICAL");
    EXPECT_EQ(Error::severityToString(Error::FATAL), "FATAL");
}

TEST(ErrorSeverity, AnyOtherIsUnknown)
{
    for (const int value : {0, 6, 7, -1, 2147483647})
    {
        EXPECT_EQ(Error::severityToString(static_cast<Error::Severity>(value)), "UNKNOWN") << value;
    }
}

TEST(ErrorHeader, NamesSeverityNameUserTimeAndPlace)
{
    EXPECT_EQ(textOf(makeError()),
              "!WARNING: Some Name by tester on 2001-02-03 04:05:06.\n"
              "Generated from some/file/12/function:\n");
}

TEST(ErrorHeader, NamesEachSeverity)
{
    const std::vector<std::pair<int, std::string>> expectations = {
        {1, "!INFO: "},  {2, "!WARNING: "}, {3, "!ERROR: "},   {4, "!CRITICAL: "},
        {5, "!FATAL: "}, {7, "!UNKNOWN: "}, {0, "!UNKNOWN: "},
    };
    for (const auto& [value, opening] : expectations)
    {
        const Error error("file", 1, "f", "N", static_cast<Error::Severity>(value));
        EXPECT_EQ(textOf(error), opening +
                                     "N by tester on 2001-02-03 04:05:06.\n"
                                     "Generated from file/1/f:\n");
        EXPECT_EQ(static_cast<int>(error.getSeverity()), value);
    }
}

TEST(ErrorHeader, AsksForTheCurrentTime)
{
    const long before = std::time(nullptr);
    makeError();
    EXPECT_GE(test::lastTimeFormatted(), before);
    EXPECT_LE(test::lastTimeFormatted(), std::time(nullptr));
}

TEST(ErrorHeader, TakesTextsAsTheyAre)
{
    const Error error("", -3, "", "", Error::INFO);
    EXPECT_EQ(textOf(error),
              "!INFO:  by tester on 2001-02-03 04:05:06.\n"
              "Generated from /-3/:\n");
}

TEST(ErrorHeader, NumbersAreIndependentOfTheGlobalLocale)
{
    const test::GroupedNumbers locale;
    Error error("some/file", 1200, "function", "Name", Error::INFO);
    error.getStream() << 1234567;
    EXPECT_THAT(textOf(error), testing::EndsWith("/1200/function:\n1234567"));
    Error copy(error);
    copy.getStream() << 7654321;
    EXPECT_THAT(textOf(copy), testing::EndsWith("12345677654321"));
    copy = error;
    copy.getStream() << 7654321;
    EXPECT_THAT(textOf(copy), testing::EndsWith("12345677654321"));
}

TEST(ErrorTest, KeepsNameAndSeverity)
{
    const Error error = makeError();
    EXPECT_EQ(error.getName(), "Some Name");
    EXPECT_EQ(error.getSeverity(), Error::WARNING);
}

TEST(ErrorTest, HasAVirtualDestructor)
{
    static_assert(std::has_virtual_destructor_v<Error>);
}

TEST(ErrorTest, IsWrittenToBehindTheHeader)
{
    Error error = makeError();
    error.getStream() << "No room for " << 3 << ".";
    EXPECT_EQ(textOf(error),
              "!WARNING: Some Name by tester on 2001-02-03 04:05:06.\n"
              "Generated from some/file/12/function:\n"
              "No room for 3.");
}

TEST(ErrorTest, NullFileLeavesTheStreamBadInItsPlace)
{
    Error error(nullptr, 12, "function", "Name", Error::ERROR);
    EXPECT_TRUE(error.getStream().bad());
    error.getStream() << "not written";
    EXPECT_EQ(textOf(error),
              "!ERROR: Name by tester on 2001-02-03 04:05:06.\n"
              "Generated from ");
    EXPECT_EQ(error.getName(), "Name");
}

TEST(ErrorTest, NullFunctionLeavesTheStreamBadInItsPlace)
{
    Error error("file", 12, nullptr, "Name", Error::ERROR);
    EXPECT_TRUE(error.getStream().bad());
    EXPECT_EQ(textOf(error),
              "!ERROR: Name by tester on 2001-02-03 04:05:06.\n"
              "Generated from file/12/");
}

TEST(ErrorOutput, WritesTheTextOnly)
{
    Error error = makeError();
    error.getStream().str("only this");
    std::ostringstream os;
    error.output(os);
    EXPECT_EQ(os.str(), "only this");
}

class LoudError : public Error
{
  public:
    using Error::Error;

    void output(std::ostream& os) override { os << "own output"; }
};

TEST(ErrorOutput, StreamOperatorCallsTheVirtualOutput)
{
    const LoudError loud("file", 1, "f", "N", Error::INFO);
    const Error& base = loud;
    std::ostringstream os;
    EXPECT_EQ(&(os << base), &os);
    EXPECT_EQ(os.str(), "own output");
}

TEST(ErrorOutput, OfAnEmptyTextLeavesTheTargetStreamGood)
{
    Error error = makeError();
    error.getStream().str("");
    std::ostringstream os;
    os << error;
    error.output(os);
    EXPECT_TRUE(os.good());
    EXPECT_EQ(os.str(), "");
}

TEST(ErrorOutput, IgnoresAndKeepsTheFormatOfTheStream)
{
    Error error = makeError();
    error.getStream().str("text");
    std::ostringstream os;
    os << std::hex << std::setfill('*') << std::setw(40) << std::left;
    os << error;
    EXPECT_EQ(os.str(), "text");
    EXPECT_EQ(os.width(), 40);
    EXPECT_EQ(os.fill(), '*');
    EXPECT_EQ(os.flags() & std::ios_base::basefield, std::ios_base::hex);
}

TEST(ErrorCopy, HasNameSeverityAndText)
{
    Error original = makeError();
    original.getStream() << "words";
    const Error copy(original);
    EXPECT_EQ(copy.getName(), "Some Name");
    EXPECT_EQ(copy.getSeverity(), Error::WARNING);
    EXPECT_EQ(textOf(copy), textOf(original));
}

// A stream made from the text alone writes over its beginning.
TEST(ErrorCopy, IsAppendedTo)
{
    Error original = makeError();
    original.getStream() << "words";
    Error copy(original);
    copy.getStream() << " and more";
    EXPECT_EQ(textOf(copy),
              "!WARNING: Some Name by tester on 2001-02-03 04:05:06.\n"
              "Generated from some/file/12/function:\n"
              "words and more");
}

TEST(ErrorCopy, IsIndependentOfTheOriginal)
{
    Error original = makeError();
    Error copy(original);
    copy.getStream() << "copy";
    original.getStream() << "original";
    EXPECT_THAT(textOf(copy), testing::EndsWith("function:\ncopy"));
    EXPECT_THAT(textOf(original), testing::EndsWith("function:\noriginal"));
}

TEST(ErrorCopy, OfACopyIsAppendedTo)
{
    Error first = makeError();
    first.getStream() << "1";
    Error second(first);
    second.getStream() << "2";
    Error third(second);
    third.getStream() << "3";
    EXPECT_THAT(textOf(third), testing::EndsWith("function:\n123"));
}

TEST(ErrorCopy, OutlivesTheOriginal)
{
    const Error copy = []
    {
        Error original = makeError();
        original.getStream() << "words";
        return Error(original);
    }();
    EXPECT_THAT(textOf(copy), testing::EndsWith("function:\nwords"));
}

TEST(ErrorCopy, ByAssignmentIsAppendedToAsWell)
{
    Error original = makeError();
    original.getStream() << "words";
    Error other("other", 1, "g", "Other", Error::FATAL);
    other.getStream() << "a much longer text that must not shine through afterwards";
    other = original;
    other.getStream() << " and more";
    EXPECT_EQ(other.getName(), "Some Name");
    EXPECT_EQ(other.getSeverity(), Error::WARNING);
    EXPECT_EQ(textOf(other), textOf(original) + " and more");
}

TEST(ErrorCopy, AssignedToItselfStays)
{
    Error error = makeError();
    error.getStream() << "words";
    const Error& same = error;
    error = same;
    error.getStream() << " and more";
    EXPECT_THAT(textOf(error), testing::EndsWith("function:\nwords and more"));
    EXPECT_EQ(error.getName(), "Some Name");
}

}  // namespace
