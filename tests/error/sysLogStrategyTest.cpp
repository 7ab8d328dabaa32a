// Errors sent to the system log.
//
// - name, type, listed, interested in everything
// - each severity's priority: FATAL and CRITICAL share one; unknown severities are notices
// - one record an error, with the whole report through "%s"; no openlog()
// - nothing goes to the log stream
// - texts with per cent signs, long texts, empty texts
// - the severity's text is lower-cased by the global locale

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <syslog.h>

#include <cstdarg>
#include <cstdio>
#include <locale>
#include <string>
#include <vector>

#include <utils/error/SysLogStrategy.h>

#include "support/ClogCapture.h"

namespace
{

struct Record
{
    int priority;
    std::string format;
    std::string text;
};

std::vector<Record>& records()
{
    static std::vector<Record> theRecords;
    return theRecords;
}

int openlogCalls = 0;

}  // namespace

// In place of the C library's.
extern "C" {
__attribute__((visibility("default"))) void syslog(int priority, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    const int size = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(static_cast<std::size_t>(size) + 1, '\0');
    std::vsnprintf(text.data(), text.size(), format, again);
    va_end(again);
    text.pop_back();
    records().push_back({priority, format, text});
}

__attribute__((visibility("default"))) void openlog(const char*, int, int)
{
    ++openlogCalls;
}
}

namespace
{

using utils::error::Error;
using utils::error::SysLogStrategy;

void report(int severity, const std::string& words)
{
    Error error("file", 1, "f", "Name", static_cast<Error::Severity>(severity));
    error.getStream() << words;
    utils::strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

int priorityOf(int severity)
{
    records().clear();
    report(severity, "words");
    return records().size() == 1 ? records()[0].priority : -1;
}

TEST(SysLogStrategyTest, HasNameAndType)
{
    const SysLogStrategy strategy;
    EXPECT_EQ(strategy.getName(), "SysLog");
    EXPECT_EQ(strategy.getType(), "Error");
}

TEST(SysLogStrategyTest, IsInterestedInEverything)
{
    SysLogStrategy strategy;
    for (const int severity : {0, 1, 2, 3, 4, 5, 9})
    {
        const Error error("file", 1, "f", "Name", static_cast<Error::Severity>(severity));
        EXPECT_TRUE(strategy.isInterested(error));
    }
}

TEST(SysLogStrategyTest, LogsTheWholeReportAsOneRecord)
{
    const SysLogStrategy strategy;
    report(Error::ERROR, "words");
    ASSERT_EQ(records().size(), 1U);
    EXPECT_EQ(records()[0].priority, 3);
    EXPECT_EQ(records()[0].format, "%s");
    EXPECT_EQ(records()[0].text,
              "!ERROR: Name by tester on 2001-02-03 04:05:06.\n"
              "Generated from file/1/f:\n"
              "words");
    EXPECT_EQ(openlogCalls, 0);
}

TEST(SysLogStrategyTest, WritesNothingToTheLogStream)
{
    const test::ClogCapture clog;
    const SysLogStrategy strategy;
    report(Error::ERROR, "words");
    EXPECT_EQ(records().size(), 1U);
    EXPECT_EQ(clog.getText(), "");
}

TEST(SysLogStrategyTest, MapsSeveritiesToPriorities)
{
    const SysLogStrategy strategy;
    EXPECT_EQ(priorityOf(Error::FATAL), 2);
    EXPECT_EQ(priorityOf(Error::CRITICAL), 2);
    EXPECT_EQ(priorityOf(Error::ERROR), 3);
    EXPECT_EQ(priorityOf(Error::WARNING), 4);
    EXPECT_EQ(priorityOf(Error::INFO), 6);
}

TEST(SysLogStrategyTest, LogsUnknownSeveritiesAsNotices)
{
    const SysLogStrategy strategy;
    EXPECT_EQ(priorityOf(0), 5);
    EXPECT_EQ(priorityOf(6), 5);
    EXPECT_EQ(priorityOf(-1), 5);
}

TEST(SysLogStrategyTest, TakesPerCentSignsAsText)
{
    const SysLogStrategy strategy;
    report(Error::INFO, "100 %s %n %d%%");
    ASSERT_EQ(records().size(), 1U);
    EXPECT_THAT(records()[0].text, testing::EndsWith("\n100 %s %n %d%%"));
}

TEST(SysLogStrategyTest, LogsLongTextsWhole)
{
    const SysLogStrategy strategy;
    const std::string words(100000, 'w');
    report(Error::INFO, words);
    ASSERT_EQ(records().size(), 1U);
    EXPECT_THAT(records()[0].text, testing::EndsWith("\n" + words));
}

TEST(SysLogStrategyTest, LogsTheErrorThroughItsVirtualOutput)
{
    class Loud : public Error
    {
      public:
        using Error::Error;
        void output(std::ostream& os) override { os << "own output"; }
    };
    const SysLogStrategy strategy;
    Loud error("file", 1, "f", "Name", Error::WARNING);
    utils::strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
    ASSERT_EQ(records().size(), 1U);
    EXPECT_EQ(records()[0].priority, 4);
    EXPECT_EQ(records()[0].text, "own output");
}

TEST(SysLogStrategyTest, IsSilentAfterItsDestruction)
{
    const test::ClogCapture clog;
    {
        const SysLogStrategy strategy;
    }
    report(Error::ERROR, "words");
    EXPECT_TRUE(records().empty());
    EXPECT_THAT(clog.getText(), testing::EndsWith("words\n"));
}

// Keeps capital letters, so that no severity's text is found.
class WithoutLowerCase : public std::ctype<char>
{
  protected:
    char do_tolower(char character) const override { return character; }
    const char* do_tolower(char*, const char* end) const override { return end; }
};

TEST(SysLogStrategyTest, LowerCasesTheSeverityByTheGlobalLocale)
{
    const SysLogStrategy strategy;
    const std::locale original =
        std::locale::global(std::locale(std::locale(), new WithoutLowerCase));
    EXPECT_EQ(priorityOf(Error::ERROR), 5);
    std::locale::global(original);
    EXPECT_EQ(priorityOf(Error::ERROR), 3);
}

}  // namespace
