// Where errors go.
//
// - by default to the standard log stream: the error and an end of line, flushed; nothing to
//   standard output
// - the default strategy is not interested, and speaks all the same while nothing else is listed
// - StandardOutStrategy: name, listed, interested in everything, writes to the log stream as well
// - a listed strategy silences the default, interested or not; the default speaks again afterwards
// - several listed strategies all get the error, in order
// - an error that nobody takes is dropped silently
// - errors of many threads: lines do not mix

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <latch>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <utils/error/DefaultStrategy.h>
#include <utils/error/StandardOutStrategy.h>

#include "support/ClogCapture.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using utils::error::DefaultStrategy;
using utils::error::Error;
using utils::error::StandardOutStrategy;
using utils::strategy::StrategyT;

constexpr const char* REPORT =
    "!ERROR: Name by tester on 2001-02-03 04:05:06.\n"
    "Generated from file/1/f:\n"
    "words\n";

void report(Error& error)
{
    StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

void reportWords()
{
    Error error("file", 1, "f", "Name", Error::ERROR);
    error.getStream() << "words";
    report(error);
}

DefaultStrategy& defaultStrategy()
{
    return *utils::singleton::SingletonT<DefaultStrategy>::getInstancePtr();
}

TEST(ErrorDefaultStrategy, WritesTheErrorAndAnEndOfLineToTheLogStream)
{
    const test::ClogCapture clog;
    reportWords();
    EXPECT_EQ(clog.getText(), REPORT);
    reportWords();
    EXPECT_EQ(clog.getText(), std::string(REPORT) + REPORT);
}

TEST(ErrorDefaultStrategy, SpeaksWhateverTheSeverity)
{
    const test::ClogCapture clog;
    for (const int severity : {1, 2, 3, 4, 5, 9})
    {
        Error error("file", 1, "f", "Name", static_cast<Error::Severity>(severity));
        error.getStream().str(std::to_string(severity));
        report(error);
    }
    EXPECT_EQ(clog.getText(), "1\n2\n3\n4\n5\n9\n");
}

TEST(ErrorDefaultStrategy, IsNeverInterested)
{
    EXPECT_FALSE(defaultStrategy().isInterested(Error("file", 1, "f", "Name", Error::FATAL)));
}

TEST(ErrorDefaultStrategy, IsTheDefaultOfItsType)
{
    EXPECT_EQ(defaultStrategy().getName(), "Default Error Strategy");
    EXPECT_EQ(defaultStrategy().getType(), "Error");
}

TEST(ErrorDefaultStrategy, FormatsOfTheLogStreamNeitherApplyNorChange)
{
    const test::ClogCapture clog;
    std::clog.width(200);
    std::clog.fill('*');
    reportWords();
    EXPECT_EQ(clog.getText(), REPORT);
    EXPECT_EQ(std::clog.width(), 200);
    EXPECT_EQ(std::clog.fill(), '*');
    std::clog.width(0);
    std::clog.fill(' ');
}

TEST(ErrorDefaultStrategy, WritesTheErrorThroughItsVirtualOutput)
{
    class Loud : public Error
    {
      public:
        using Error::Error;
        void output(std::ostream& os) override { os << "own output"; }
    };
    const test::ClogCapture clog;
    Loud error("file", 1, "f", "Name", Error::ERROR);
    report(error);
    EXPECT_EQ(clog.getText(), "own output\n");
}

TEST(ErrorDefaultStrategy, EmptyErrorIsAnEmptyLineAndTheLogStreamStaysGood)
{
    const test::ClogCapture clog;
    Error error("file", 1, "f", "Name", Error::ERROR);
    error.getStream().str("");
    report(error);
    EXPECT_EQ(clog.getText(), "\n");
    EXPECT_TRUE(std::clog.good());
}

class CountingBuffer : public std::stringbuf
{
  public:
    int m_flushed = 0;

  protected:
    int sync() override
    {
        ++m_flushed;
        return 0;
    }
};

TEST(ErrorDefaultStrategy, Flushes)
{
    CountingBuffer buffer;
    std::streambuf* const original = std::clog.rdbuf(&buffer);
    reportWords();
    std::clog.rdbuf(original);
    EXPECT_EQ(buffer.m_flushed, 1);
}

TEST(ErrorStandardOutStrategy, HasNameAndType)
{
    const StandardOutStrategy strategy;
    EXPECT_EQ(strategy.getName(), "StandardOut");
    EXPECT_EQ(strategy.getType(), "Error");
}

TEST(ErrorStandardOutStrategy, IsInterestedInEverything)
{
    StandardOutStrategy strategy;
    for (const int severity : {0, 1, 2, 3, 4, 5, 9})
    {
        const Error error("file", 1, "f", "Name", static_cast<Error::Severity>(severity));
        EXPECT_TRUE(strategy.isInterested(error));
    }
}

// The log stream, in spite of the name; and once, since the default is silent.
TEST(ErrorStandardOutStrategy, WritesToTheLogStreamInPlaceOfTheDefault)
{
    const test::ClogCapture clog;
    std::ostringstream standardOutput;
    std::streambuf* const original = std::cout.rdbuf(standardOutput.rdbuf());
    const StandardOutStrategy strategy;
    reportWords();
    std::cout.rdbuf(original);
    EXPECT_EQ(clog.getText(), REPORT);
    EXPECT_EQ(standardOutput.str(), "");
}

TEST(ErrorStandardOutStrategy, IsListed)
{
    const test::ClogCapture clog;
    const StandardOutStrategy first;
    const StandardOutStrategy second;
    reportWords();
    EXPECT_EQ(clog.getText(), std::string(REPORT) + REPORT);
}

TEST(ErrorStandardOutStrategy, FlushesAndEndsTheLine)
{
    CountingBuffer buffer;
    const StandardOutStrategy strategy;
    std::streambuf* const original = std::clog.rdbuf(&buffer);
    reportWords();
    std::clog.rdbuf(original);
    EXPECT_EQ(buffer.str(), REPORT);
    EXPECT_EQ(buffer.m_flushed, 1);
}

TEST(ErrorStrategies, ListedOneSilencesTheDefaultWhileItLives)
{
    const test::ClogCapture clog;
    {
        const test::RecordingErrorStrategy errors;
        reportWords();
        EXPECT_THAT(errors.getWords(), testing::ElementsAre("words"));
    }
    EXPECT_EQ(clog.getText(), "");
    reportWords();
    EXPECT_EQ(clog.getText(), REPORT);
}

class BoredStrategy : public StrategyT<Error>
{
  public:
    BoredStrategy() : StrategyT("Error", "bored", false) {}

    bool isInterested(const Error&) override { return false; }
    void processClientObject(Error&) override { ADD_FAILURE() << "was not interested"; }
};

TEST(ErrorStrategies, ErrorThatNobodyTakesIsDropped)
{
    const test::ClogCapture clog;
    const BoredStrategy strategy;
    reportWords();
    EXPECT_EQ(clog.getText(), "");
}

TEST(ErrorStrategies, ErrorWithoutAnyStrategyIsDropped)
{
    const test::ClogCapture clog;
    defaultStrategy().cleanUp();
    reportWords();
    EXPECT_EQ(clog.getText(), "");
}

TEST(ErrorStrategies, SeveralListedOnesGetTheError)
{
    const test::ClogCapture clog;
    const test::RecordingErrorStrategy first;
    const BoredStrategy second;
    const StandardOutStrategy third;
    reportWords();
    EXPECT_THAT(first.getWords(), testing::ElementsAre("words"));
    EXPECT_EQ(clog.getText(), REPORT);
}

TEST(ErrorStrategies, LinesOfSeveralThreadsDoNotMix)
{
    constexpr int THREADS = 4;
    constexpr int ROUNDS = 100;
    const test::ClogCapture clog;
    std::latch start(THREADS);
    std::vector<std::thread> threads;
    for (int number = 0; number < THREADS; ++number)
    {
        threads.emplace_back(
            [&start]
            {
                start.arrive_and_wait();
                for (int round = 0; round < ROUNDS; ++round)
                {
                    reportWords();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    std::string expected;
    for (int i = 0; i < THREADS * ROUNDS; ++i)
    {
        expected += REPORT;
    }
    EXPECT_EQ(clog.getText(), expected);
}

}  // namespace
