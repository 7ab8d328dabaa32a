// Trace strategies that use the library while they are called.
//
// - one that traces at the very call site that called it: both messages stay whole
// - one that reports an error, makes a flag, switches tracing off
// - one that unregisters itself
// - one that throws: the call site still traces afterwards
// - none of it while a lock is held: another thread may trace at the call site meanwhile

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <utils/flag/Flags.h>
#include <utils/flag/Trace.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::ElementsAre;
using utils::flag::FlagT;
using utils::flag::TraceMsg;

// On its first message it does what it is told, and then keeps the message.
class ActingStrategy : public test::RecordingTraceStrategy
{
  public:
    void processClientObject(TraceMsg& message) override
    {
        if (const auto action = std::exchange(m_action, nullptr))
        {
            action();
        }
        RecordingTraceStrategy::processClientObject(message);
    }

    std::function<void()> m_action;
};

class TraceReentry : public testing::Test
{
  protected:
    // The same call site whenever it is called.
    void trace(const std::string& words) const
    {
        GENERIC_UTILS_TRACE(m_level, 1, "<" << words << ">");
    }

    const test::ConfigDirectory m_config;
    const FlagT<int> m_level{"app::m_traceSteps", 1};
    ActingStrategy m_strategy;
};

// The naive version empties and fills the message that is being handled.
TEST_F(TraceReentry, StrategyMayTraceAtTheSameCallSite)
{
    m_strategy.m_action = [this] { trace("inner"); };
    trace("outer, which is longer");
    EXPECT_THAT(m_strategy.getTexts(),
                ElementsAre("2001-02-03 04:05:06: <inner>",
                            "2001-02-03 04:05:06: <outer, which is longer>"));
    trace("later");
    EXPECT_THAT(m_strategy.getWords(),
                ElementsAre("<inner>", "<outer, which is longer>", "<later>"));
}

TEST_F(TraceReentry, StrategyMayTraceAtTheSameCallSiteSeveralLevelsDeep)
{
    m_strategy.m_action = [this]
    {
        m_strategy.m_action = [this] { trace("innermost"); };
        trace("inner");
    };
    trace("outer");
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<innermost>", "<inner>", "<outer>"));
}

// A lock per call site held over the delivery would let this thread wait for ever.
TEST_F(TraceReentry, AnotherThreadMayTraceAtTheSameCallSiteMeanwhile)
{
    m_strategy.m_action = [this] { std::thread([this] { trace("elsewhere"); }).join(); };
    trace("here");
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<elsewhere>", "<here>"));
}

TEST_F(TraceReentry, StrategyMayReportAnError)
{
    const test::RecordingErrorStrategy errors;
    m_strategy.m_action = [] { utils::flag::Flag::getFlagPtr("nobody"); };
    trace("words");
    EXPECT_THAT(errors.getWords(), ElementsAre("Flag 'nobody' does not exist."));
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<words>"));
}

TEST_F(TraceReentry, StrategyMayMakeAFlag)
{
    m_strategy.m_action = []
    {
        const FlagT<int> made("made", 3);
        EXPECT_EQ(utils::flag::Flag::getFlagPtr("made"), &made);
    };
    trace("words");
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<words>"));
}

TEST_F(TraceReentry, StrategyMaySwitchTracingOff)
{
    m_strategy.m_action = []
    {
        utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()
            ->m_enableTraceMsgs.setValue(false);
    };
    trace("last");
    trace("not emitted");
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<last>"));
}

TEST_F(TraceReentry, StrategyMayUnregisterItself)
{
    const test::RecordingTraceStrategy other;
    m_strategy.m_action = [this] { m_strategy.cleanUp(); };
    trace("first");
    trace("second");
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<first>"));
    EXPECT_THAT(other.getWords(), ElementsAre("<first>", "<second>"));
}

TEST_F(TraceReentry, StrategyMayWriteIntoTheMessage)
{
    class Adding : public utils::strategy::StrategyT<TraceMsg>
    {
      public:
        Adding() : StrategyT("Trace", "adding", false) {}
        bool isInterested(const TraceMsg&) override { return true; }
        void processClientObject(TraceMsg& message) override { message.getStream() << " added"; }
    };
    const Adding adding;
    const test::RecordingTraceStrategy behind;
    trace("words");
    trace("more");
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<words>", "<more>"));
    EXPECT_THAT(behind.getWords(), ElementsAre("<words> added", "<more> added"));
}

// A call site that stayed claimed would still trace, but build a message each time; a lock would
// stay locked.
TEST_F(TraceReentry, StrategyMayThrow)
{
    m_strategy.m_action = [] { throw std::runtime_error("cannot"); };
    EXPECT_THROW(trace("lost"), std::runtime_error);
    trace("words");
    std::thread([this] { trace("elsewhere"); }).join();
    EXPECT_THAT(m_strategy.getWords(), ElementsAre("<words>", "<elsewhere>"));
}

}  // namespace
