// Where traces go.
//
// - by default to the standard log stream: the message and an end of line, flushed
// - the default strategy is not interested, and speaks all the same while nothing else is listed
// - an application's strategy is asked first, and silences the default, interested or not
// - the default speaks again when the application's strategy has gone

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>

#include <utils/flag/DefaultStrategy.h>
#include <utils/flag/Flags.h>
#include <utils/flag/Trace.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using utils::flag::DefaultStrategy;
using utils::flag::FlagT;
using utils::flag::TraceMsg;

class TraceDefaultStrategy : public testing::Test
{
  protected:
    void trace() const { GENERIC_UTILS_TRACE(m_level, 1, "some words"); }

    const test::ConfigDirectory m_config;
    const FlagT<int> m_level{"app::m_traceSteps", 1};
};

TEST_F(TraceDefaultStrategy, WritesTheMessageAndAnEndOfLineToTheLogStream)
{
    const test::ClogCapture clog;
    trace();
    EXPECT_EQ(clog.getText(), "2001-02-03 04:05:06: some words\n");
    trace();
    EXPECT_EQ(clog.getText(),
              "2001-02-03 04:05:06: some words\n"
              "2001-02-03 04:05:06: some words\n");
}

TEST_F(TraceDefaultStrategy, WritesAFullHeaderAsItIs)
{
    utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()
        ->m_enableTraceMsgHeaders.setValue(0);
    const test::ClogCapture clog;
    GENERIC_UTILS_TRACE_AT((utils::SourceLocation{"here", 8, "f"}), m_level, 1, "words");
    EXPECT_EQ(clog.getText(),
              "!TRACE (app::m_traceSteps = 1; trace level = 1) by tester on "
              "2001-02-03 04:05:06.\n"
              "Generated from here/8/f:\n"
              "words\n");
}

TEST_F(TraceDefaultStrategy, FormatsOfTheLogStreamNeitherApplyNorChange)
{
    const test::ClogCapture clog;
    std::clog.width(60);
    std::clog.fill('*');
    trace();
    EXPECT_EQ(clog.getText(), "2001-02-03 04:05:06: some words\n");
    EXPECT_EQ(std::clog.width(), 60);
    EXPECT_EQ(std::clog.fill(), '*');
    std::clog.width(0);
    std::clog.fill(' ');
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

TEST_F(TraceDefaultStrategy, Flushes)
{
    CountingBuffer buffer;
    std::streambuf* const original = std::clog.rdbuf(&buffer);
    trace();
    std::clog.rdbuf(original);
    EXPECT_EQ(buffer.m_flushed, 1);
}

TEST_F(TraceDefaultStrategy, IsNeverInterested)
{
    DefaultStrategy& strategy = *utils::singleton::SingletonT<DefaultStrategy>::getInstancePtr();
    const TraceMsg message(m_level, 1, "file", 1, "function");
    EXPECT_FALSE(strategy.isInterested(message));
}

TEST_F(TraceDefaultStrategy, WritesTheMessageThroughItsVirtualOutput)
{
    class Loud : public TraceMsg
    {
      public:
        using TraceMsg::TraceMsg;
        void output(std::ostream& os) override { os << "own output"; }
    };
    const test::ClogCapture clog;
    Loud message(m_level, 1, "file", 1, "function");
    utils::singleton::SingletonT<DefaultStrategy>::getInstancePtr()->processClientObject(message);
    EXPECT_EQ(clog.getText(), "own output\n");
}

TEST_F(TraceDefaultStrategy, EmptyMessageIsAnEmptyLineAndTheLogStreamStaysGood)
{
    const test::ClogCapture clog;
    TraceMsg message(m_level, 1, "file", 1, "function");
    utils::strategy::StrategyT<TraceMsg>::invokeStrategies(TraceMsg::STRATEGY_TYPE, message);
    EXPECT_EQ(clog.getText(), "\n");
    EXPECT_TRUE(std::clog.good());
}

TEST_F(TraceDefaultStrategy, IsSilentWhileAnApplicationsStrategyLives)
{
    const test::ClogCapture clog;
    {
        const test::RecordingTraceStrategy traces;
        trace();
        EXPECT_THAT(traces.getWords(), testing::ElementsAre("some words"));
    }
    EXPECT_EQ(clog.getText(), "");
    trace();
    EXPECT_EQ(clog.getText(), "2001-02-03 04:05:06: some words\n");
}

class ChoosyStrategy : public test::RecordingTraceStrategy
{
  public:
    bool isInterested(const TraceMsg& message) override
    {
        std::ostringstream text;
        text << message;
        m_askedAbout.push_back(text.str());
        return false;
    }

    std::vector<std::string> m_askedAbout;
};

TEST_F(TraceDefaultStrategy, ApplicationsStrategyIsAskedAboutTheWholeMessageFirst)
{
    const test::ClogCapture clog;
    const ChoosyStrategy strategy;
    trace();
    EXPECT_THAT(strategy.m_askedAbout, testing::ElementsAre("2001-02-03 04:05:06: some words"));
    EXPECT_THAT(strategy.getTexts(), testing::IsEmpty());
    EXPECT_EQ(clog.getText(), "");
}

}  // namespace
