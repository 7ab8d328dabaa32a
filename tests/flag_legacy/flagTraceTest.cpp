// Call sites of older traces.
//
// - nothing happens, and no word is evaluated, below the level, with the switch off, or when nobody
//   is interested
// - header, words and a new-line are delivered; a place can be given
// - a call site's message shows the flag's value of its first trace
// - manipulators and failures of one emission do not reach the next
// - a strategy that comes by the same call site gets a message of its own, with the same value
// - a strategy that throws leaves the call site usable
// - threads pass a call site at once: messages stay whole
// - flags are set while other threads trace
// - a strategy that is told of a missing values file while the flags are made may trace
// - static destructors trace

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iomanip>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <utils/error/Error.h>
#include <utils/flagFlags.h>
#include <utils/flagTrace.h>
#include <utils/gsFlags.h>

#include "flag_legacy/RecordingOlderTraces.h"
#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::ClogCapture;
using test::RecordingOlderTraces;
using test::withoutTraceTime;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::flag::findGsFlag;
using utils::flag::Flag_Flag;
using utils::flag::Flag_Flags;
using utils::flag::Flag_TraceMsg;
using utils::flag::Flag_TraceStrategy;
using utils::flag::Gs_Flags;

constexpr utils::SourceLocation PLACE = {"somewhere/generic/utils/src/x.cpp", 7, "function"};

class FlagTrace : public testing::Test
{
  protected:
    void SetUp() override
    {
        setenv("USER", "marie", 1);
        level().setValue(2);
    }

    static Flag_Flags& switches() { return *utils::Std_Singleton<Flag_Flags>::getInstancePtr(); }

    static Flag_Flag<int>& level()
    {
        return utils::Std_Singleton<Gs_Flags>::getInstancePtr()->m_traceTimerSteps;
    }

    const test::ConfigDirectory m_config;
};

int theNumEvaluated = 0;

// A call site of level 2.
void trace(const std::string& words)
{
    const auto evaluate = [&]
    {
        ++theNumEvaluated;
        return words;
    };
    GENERIC_UTILS_OLDER_TRACE_AT(PLACE, findGsFlag(&Gs_Flags::m_traceTimerSteps), 2, evaluate());
}

// Does what the test says with every message.
class Scripted : public Flag_TraceStrategy
{
  public:
    using Action = std::function<void(const Flag_TraceMsg&)>;

    explicit Scripted(Action action) : Flag_TraceStrategy("Scripted"), m_action(std::move(action))
    {
    }
    bool isInterested(const Flag_TraceMsg&) override { return true; }
    void processTrace(const Flag_TraceMsg& traceMsg) override { m_action(traceMsg); }

  private:
    Action m_action;
};

TEST_F(FlagTrace, DeliversHeaderWordsAndNewLine)
{
    const RecordingOlderTraces traces;
    trace("words");
    EXPECT_THAT(traces.getTexts(), ElementsAre("TIME: words\n"));
}

TEST_F(FlagTrace, DefaultAddsALine)
{
    const ClogCapture clog;
    trace("words");
    EXPECT_EQ(withoutTraceTime(clog.getText()), "TIME: words\n\n");
}

TEST_F(FlagTrace, NothingHappensBelowTheLevel)
{
    const RecordingOlderTraces traces;
    level().setValue(1);
    trace("words");
    EXPECT_THAT(traces.getTexts(), IsEmpty());
    EXPECT_EQ(theNumEvaluated, 0);
}

TEST_F(FlagTrace, NothingHappensWithTheSwitchOff)
{
    const RecordingOlderTraces traces;
    switches().m_traceMsgActive.setValue(false);
    trace("words");
    EXPECT_THAT(traces.getTexts(), IsEmpty());
    EXPECT_EQ(theNumEvaluated, 0);
}

TEST_F(FlagTrace, NothingHappensWhenNobodyIsInterested)
{
    class Uninterested : public RecordingOlderTraces
    {
      public:
        bool isInterested(const Flag_TraceMsg&) override { return false; }
    };
    const ClogCapture clog;
    const Uninterested traces;
    trace("words");
    EXPECT_THAT(traces.getTexts(), IsEmpty());
    EXPECT_EQ(clog.getText(), "");
    EXPECT_EQ(theNumEvaluated, 0);
}

TEST_F(FlagTrace, NullFlagIsNoTrace)
{
    const RecordingOlderTraces traces;
    const Flag_Flag<int>* const none = nullptr;
    // cppcheck-suppress nullPointer ; the macro asks first
    GENERIC_UTILS_OLDER_TRACE(none, 1, ++theNumEvaluated);
    EXPECT_THAT(traces.getTexts(), IsEmpty());
    EXPECT_EQ(theNumEvaluated, 0);
}

TEST_F(FlagTrace, FullHeaderNamesThePlace)
{
    const RecordingOlderTraces traces;
    switches().m_traceMsgHeaderActive.setValue(0);
    trace("words");
    EXPECT_THAT(traces.getTexts(),
                ElementsAre("!(TRACE Name=Gs_Flags::m_traceTimerSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/x/7/function:\n"
                            "words\n"));
}

TEST_F(FlagTrace, FullHeaderNamesThePlaceOfTheCallSite)
{
    const RecordingOlderTraces traces;
    switches().m_traceMsgHeaderActive.setValue(0);
    const int line = __LINE__ + 1;
    GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceTimerSteps), 1, "a" << 16);
    EXPECT_THAT(traces.getTexts(),
                ElementsAre("!(TRACE Name=Gs_Flags::m_traceTimerSteps CurrLevel=2 TraceLevel=1 ) "
                            "by marie on TIME\n"
                            "Generated from tests/flag_legacy/flagTraceTest/" +
                            std::to_string(line) +
                            "/TestBody:\n"
                            "a16\n"));
}

TEST_F(FlagTrace, ShowsTheFlagsValueOfTheFirstTrace)
{
    const RecordingOlderTraces traces;
    switches().m_traceMsgHeaderActive.setValue(0);
    trace("first");
    level().setValue(5);
    trace("second");
    EXPECT_THAT(traces.getTexts(),
                ElementsAre("!(TRACE Name=Gs_Flags::m_traceTimerSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/x/7/function:\n"
                            "first\n",
                            "!(TRACE Name=Gs_Flags::m_traceTimerSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/x/7/function:\n"
                            "second\n"));
}

TEST_F(FlagTrace, EveryEmissionStartsAfresh)
{
    const RecordingOlderTraces traces;
    const auto emit = [](const char* text)
    {
        GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceTimerSteps), 1,
                                  255 << std::hex << std::setfill('*') << text << std::setw(5));
    };
    emit(nullptr);
    emit("words");
    EXPECT_THAT(traces.getTexts(), ElementsAre("TIME: 255", "TIME: 255words\n"));
}

TEST_F(FlagTrace, StrategyComesByTheSameCallSite)
{
    switches().m_traceMsgHeaderActive.setValue(0);
    std::vector<std::string> texts;
    const Scripted strategy(
        [&](const Flag_TraceMsg& traceMsg)
        {
            if (texts.empty())
            {
                texts.emplace_back("outer begins");
                level().setValue(3);
                trace("inner");
            }
            texts.push_back(withoutTraceTime(traceMsg.getString()));
        });
    trace("outer");
    EXPECT_THAT(texts,
                ElementsAre("outer begins",
                            "!(TRACE Name=Gs_Flags::m_traceTimerSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/x/7/function:\n"
                            "inner\n",
                            "!(TRACE Name=Gs_Flags::m_traceTimerSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/x/7/function:\n"
                            "outer\n"));
}

TEST_F(FlagTrace, StrategyThatThrowsLeavesTheCallSiteUsable)
{
    {
        const Scripted strategy([](const Flag_TraceMsg&) { throw std::runtime_error("no"); });
        EXPECT_THROW(trace("lost"), std::runtime_error);
    }
    const RecordingOlderTraces traces;
    trace("words");
    EXPECT_THAT(traces.getTexts(), ElementsAre("TIME: words\n"));
}

// With one message object for all, texts mix, and ThreadSanitizer reports the stream.
TEST_F(FlagTrace, ThreadsPassACallSiteAtOnce)
{
    const RecordingOlderTraces traces;
    constexpr int THREADS = 4;
    constexpr int TRACES = 200;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
    {
        threads.emplace_back(
            [i]
            {
                for (int k = 0; k < TRACES; ++k)
                {
                    const std::string words(40, static_cast<char>('a' + i));
                    GENERIC_UTILS_OLDER_TRACE(findGsFlag(&Gs_Flags::m_traceTimerSteps), 1, words);
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    const std::vector<std::string> texts = traces.getTexts();
    EXPECT_EQ(texts.size(), THREADS * TRACES);
    for (const std::string& text : texts)
    {
        ASSERT_EQ(text, "TIME: " + std::string(40, text[6]) + "\n");
    }
}

// ThreadSanitizer reports plain accesses.
TEST_F(FlagTrace, FlagsAreSetWhileAnotherThreadTraces)
{
    const RecordingOlderTraces traces;
    std::thread setter(
        []
        {
            for (int i = 0; i < 500; ++i)
            {
                level().setValue(i % 4);
                switches().m_traceMsgActive.setValue(i % 3 != 0);
                switches().m_traceMsgHeaderActive.setValue(i % 5 - 1);
            }
        });
    for (int i = 0; i < 500; ++i)
    {
        trace("words");
    }
    setter.join();
}

// A newer strategy that does what the test says.
class ScriptedErrors : public utils::strategy::StrategyT<utils::error::Error>
{
  public:
    explicit ScriptedErrors(std::function<void()> action)
        : StrategyT("Error", "Scripted", false), m_action(std::move(action))
    {
    }
    bool isInterested(const utils::error::Error&) override { return true; }
    void processClientObject(utils::error::Error&) override { m_action(); }

  private:
    std::function<void()> m_action;
};

// Without care, the trace makes the collection of flags a second time, inside its own construction.
TEST(FlagTraceReentry, StrategyToldOfAMissingFileTraces)
{
    const test::ConfigDirectory config;
    config.removeValues();
    const RecordingOlderTraces traces;
    int numReports = 0;
    const ScriptedErrors strategy(
        [&]
        {
            ++numReports;
            trace("inside");
        });
    Gs_Flags* const flags = utils::Std_Singleton<Gs_Flags>::getInstancePtr();
    EXPECT_EQ(numReports, 1);
    EXPECT_THAT(traces.getTexts(), IsEmpty());

    flags->m_traceTimerSteps.setValue(2);
    trace("afterwards");
    EXPECT_THAT(traces.getTexts(), ElementsAre("TIME: afterwards\n"));
}

TEST(FlagTraceExit, StaticDestructorsTrace)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const test::ConfigDirectory config(
        "Gs_Flags::m_traceTimerSteps\n2\nFlag_Flags::m_traceMsgHeaderActive\n0\n");
    EXPECT_EXIT(
        {
            struct AtExit
            {
                ~AtExit() { trace("late"); }
            };
            static const AtExit atExit;
            trace("early");
            std::exit(0);
        },
        testing::ExitedWithCode(0), "x/7/function:\nearly\n\n.*\n.*x/7/function:\nlate\n\n$");
}

}  // namespace
