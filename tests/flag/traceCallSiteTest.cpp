// Call sites of traces.
//
// - the message is emitted when the flag is at least the message's level and the master switch is
//   on; otherwise no strategy is asked and no word is evaluated
// - the flag may be given by reference, by pointer, or be null: no trace
// - the flags of a namespace's collection register with its first call site
// - header and words, no end of line; the header names the call site's file from generic/utils on,
//   without extension, and its line and function
// - each emission starts from an empty stream in default format, whatever the words before did
// - words may themselves trace at the same call site, or throw

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <iomanip>
#include <stdexcept>
#include <string>

#include <utils/flag/Flags.h>
#include <utils/flag/Trace.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using utils::SourceLocation;
using utils::flag::FlagT;

utils::flag::Flags& traceFlags()
{
    return *utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr();
}

class TraceCallSiteTest : public testing::Test
{
  protected:
    // The same call site whenever it is called.
    void trace(const std::string& words) const { GENERIC_UTILS_TRACE(m_level, 2, words); }

    const test::ConfigDirectory m_config;
    FlagT<int> m_level{"app::m_traceSteps", 2};
    test::RecordingTraceStrategy m_traces;
};

TEST_F(TraceCallSiteTest, EmitsWhenTheFlagEqualsTheLevel)
{
    trace("words");
    EXPECT_THAT(m_traces.getTexts(), ElementsAre("2001-02-03 04:05:06: words"));
}

TEST_F(TraceCallSiteTest, EmitsWhenTheFlagIsAboveTheLevel)
{
    m_level.setValue(3);
    trace("words");
    EXPECT_THAT(m_traces.getTexts(), ElementsAre("2001-02-03 04:05:06: words"));
}

class WatchingStrategy : public test::RecordingTraceStrategy
{
  public:
    bool isInterested(const utils::flag::TraceMsg&) override
    {
        ++m_timesAsked;
        return true;
    }

    int m_timesAsked = 0;
};

TEST_F(TraceCallSiteTest, AsksNobodyWhenTheFlagIsBelowTheLevel)
{
    const WatchingStrategy strategy;
    const test::ClogCapture clog;
    m_level.setValue(1);
    trace("words");
    m_level.setValue(0);
    trace("words");
    m_level.setValue(-5);
    trace("words");
    EXPECT_EQ(strategy.m_timesAsked, 0);
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(TraceCallSiteTest, AsksNobodyWhenTheMasterSwitchIsOff)
{
    const WatchingStrategy strategy;
    traceFlags().m_enableTraceMsgs.setValue(false);
    for (const int level : {1, 2, 3, 1000})
    {
        m_level.setValue(level);
        trace("words");
    }
    EXPECT_EQ(strategy.m_timesAsked, 0);

    traceFlags().m_enableTraceMsgs.setValue(true);
    trace("words");
    EXPECT_EQ(strategy.m_timesAsked, 1);
}

TEST_F(TraceCallSiteTest, EvaluatesTheWordsOnlyWhenItEmits)
{
    int evaluated = 0;
    for (const int level : {0, 1})
    {
        m_level.setValue(level);
        GENERIC_UTILS_TRACE(m_level, 1, ++evaluated);
    }
    EXPECT_EQ(evaluated, 1);
    traceFlags().m_enableTraceMsgs.setValue(false);
    GENERIC_UTILS_TRACE(m_level, 1, ++evaluated);
    EXPECT_EQ(evaluated, 1);
}

TEST_F(TraceCallSiteTest, FlagMayBeGivenByPointer)
{
    const FlagT<int>* const levelPtr = &m_level;
    GENERIC_UTILS_TRACE(levelPtr, 1, "by pointer");
    EXPECT_THAT(m_traces.getWords(), ElementsAre("by pointer"));
}

TEST_F(TraceCallSiteTest, NullFlagTracesNothing)
{
    const FlagT<int>* const levelPtr = nullptr;
    GENERIC_UTILS_TRACE(levelPtr, -1000, "nothing");
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

TEST_F(TraceCallSiteTest, IsOneStatement)
{
    if (m_level() == 0)
        GENERIC_UTILS_TRACE(m_level, 1, "not here");
    else
        GENERIC_UTILS_TRACE(m_level, 1,
                            "here"
                                << ", " << std::string("comma"));
    EXPECT_THAT(m_traces.getWords(), ElementsAre("here, comma"));
}

TEST_F(TraceCallSiteTest, EachMessageHasOnlyItsOwnWords)
{
    trace("a longer first message");
    trace("second");
    trace("");
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre("2001-02-03 04:05:06: a longer first message",
                            "2001-02-03 04:05:06: second", "2001-02-03 04:05:06: "));
}

TEST_F(TraceCallSiteTest, HeaderIsChosenAnewForEachMessage)
{
    const SourceLocation where{"here", 8, "f"};
    for (const int headers : {0, -1, 2, 1})
    {
        traceFlags().m_enableTraceMsgHeaders.setValue(headers);
        GENERIC_UTILS_TRACE_AT(where, m_level, 2, "words");
    }
    const std::string full =
        "!TRACE (app::m_traceSteps = 2; trace level = 2) by tester on 2001-02-03 04:05:06.\n"
        "Generated from here/8/f:\n"
        "words";
    const std::string brief = "2001-02-03 04:05:06: words";
    EXPECT_THAT(m_traces.getTexts(), ElementsAre(full, brief, full, brief));
}

TEST_F(TraceCallSiteTest, NamesFilesFromTheRootWithoutExtension)
{
    traceFlags().m_enableTraceMsgHeaders.setValue(0);
    const SourceLocation inLibrary{"/any/where/generic/utils/src/flag/src/Flag.cpp", 7, "one"};
    const SourceLocation outside{"../app/main.file.cc", 8, "two"};
    const SourceLocation dotInFolder{"app.d/main", 9, "three"};
    GENERIC_UTILS_TRACE_AT(inLibrary, m_level, 1, "");
    GENERIC_UTILS_TRACE_AT(outside, m_level, 1, "");
    GENERIC_UTILS_TRACE_AT(dotInFolder, m_level, 1, "");
    const auto texts = m_traces.getTexts();
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(test::generatedFrom(texts[0]), "generic/utils/src/flag/src/Flag/7/one");
    EXPECT_EQ(test::generatedFrom(texts[1]), "../app/main.file/8/two");
    EXPECT_EQ(test::generatedFrom(texts[2]), "app.d/main/9/three");
}

void traceFromAFunction(const FlagT<int>& level, int& line)
{
    line = __LINE__ + 1;
    GENERIC_UTILS_TRACE(level, 1, "words");
}

TEST_F(TraceCallSiteTest, NamesWhereItStands)
{
    traceFlags().m_enableTraceMsgHeaders.setValue(0);
    int line = 0;
    traceFromAFunction(m_level, line);
    ASSERT_EQ(m_traces.getTexts().size(), 1U);
    EXPECT_EQ(test::generatedFrom(m_traces.getTexts()[0]),
              "tests/flag/traceCallSiteTest/" + std::to_string(line) + "/traceFromAFunction");
}

TEST_F(TraceCallSiteTest, ManipulatorsDoNotOutliveTheirMessage)
{
    for (int round = 0; round < 2; ++round)
    {
        GENERIC_UTILS_TRACE(m_level, 1,
                            10 << " " << 1.5 << std::hex << std::showbase << std::setfill('*')
                               << std::setprecision(2) << std::boolalpha << std::left << " " << 10
                               << std::setw(9));
    }
    EXPECT_THAT(m_traces.getWords(), ElementsAre("10 1.5 0xa", "10 1.5 0xa"));
}

TEST_F(TraceCallSiteTest, FailedStreamDoesNotSpoilTheNextMessage)
{
    for (const char* const words : {static_cast<const char*>(nullptr), "second"})
    {
        GENERIC_UTILS_TRACE(m_level, 1, words << " end");
    }
    EXPECT_THAT(m_traces.getWords(), ElementsAre("", "second end"));
}

TEST_F(TraceCallSiteTest, WordsMayBeLong)
{
    const std::string words(1 << 20, 'w');
    trace(words);
    trace("short");
    EXPECT_THAT(m_traces.getWords(), ElementsAre(words, "short"));
}

TEST_F(TraceCallSiteTest, WordsMayTraceAtTheSameCallSite)
{
    const std::function<std::string(int)> describe = [&](int depth)
    {
        if (depth > 0)
        {
            GENERIC_UTILS_TRACE(m_level, 1, "before, " << describe(depth - 1) << ", after");
        }
        return "depth " + std::to_string(depth);
    };
    describe(3);
    EXPECT_THAT(m_traces.getTexts(), ElementsAre("2001-02-03 04:05:06: before, depth 0, after",
                                                 "2001-02-03 04:05:06: before, depth 1, after",
                                                 "2001-02-03 04:05:06: before, depth 2, after"));
}

TEST_F(TraceCallSiteTest, WordsMayThrow)
{
    const auto words = [](bool isAble) -> std::string
    {
        if (!isAble)
        {
            throw std::runtime_error("no words");
        }
        return "words";
    };
    const auto emit = [&](bool isAble)
    { GENERIC_UTILS_TRACE(m_level, 1, "begun " << words(isAble)); };
    EXPECT_THROW(emit(false), std::runtime_error);
    emit(true);
    EXPECT_THAT(m_traces.getTexts(), ElementsAre("2001-02-03 04:05:06: begun words"));
}

// The collection of a namespace.
class Flags
{
  public:
    FlagT<int> m_traceSteps{"space::m_traceSteps", 0};
};

TEST_F(TraceCallSiteTest, FirstCallSiteOfANamespaceRegistersItsFlags)
{
    const auto step = [] { GENERIC_UTILS_TRACE_STEP(1, "a step"); };
    EXPECT_EQ(utils::flag::Flag::getFlagPtr("space::m_traceSteps", true), nullptr);
    step();
    EXPECT_NE(utils::flag::Flag::getFlagPtr("space::m_traceSteps", true), nullptr);
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());

    utils::singleton::SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(1);
    step();
    EXPECT_THAT(m_traces.getWords(), ElementsAre("a step"));
}

}  // namespace
