// Error strategies that use the library while they are called.
//
// - one that reports an error in its turn
// - one that traces, and makes flags
// - one that unregisters itself
// - one that throws: the next report is complete

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <utility>

#include <utils/error/Error.h>
#include <utils/flag/Trace.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::ElementsAre;
using utils::error::Error;

void report(const std::string& words)
{
    Error error("file", 1, "f", "Name", Error::ERROR);
    error.getStream() << words;
    utils::strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

// On its first error it does what it is told, and then keeps the error.
class ActingStrategy : public test::RecordingErrorStrategy
{
  public:
    void processClientObject(Error& error) override
    {
        if (const auto action = std::exchange(m_action, nullptr))
        {
            action();
        }
        RecordingErrorStrategy::processClientObject(error);
    }

    std::function<void()> m_action;
};

TEST(ErrorReentry, StrategyMayReport)
{
    ActingStrategy strategy;
    strategy.m_action = [] { report("inner"); };
    report("outer");
    EXPECT_THAT(strategy.getWords(), ElementsAre("inner", "outer"));
}

TEST(ErrorReentry, StrategyMayMakeAFlagAndTrace)
{
    const test::ConfigDirectory config("level\n1\n");
    const test::RecordingTraceStrategy traces;
    ActingStrategy strategy;
    strategy.m_action = []
    {
        const utils::flag::FlagT<int> level("level", 0);
        GENERIC_UTILS_TRACE(level, 1, "a step");
    };
    report("words");
    EXPECT_THAT(traces.getWords(), ElementsAre("a step"));
    EXPECT_THAT(strategy.getWords(), ElementsAre("words"));
}

TEST(ErrorReentry, StrategyMayUnregisterItself)
{
    ActingStrategy strategy;
    const test::RecordingErrorStrategy behind;
    strategy.m_action = [&strategy] { strategy.cleanUp(); };
    report("first");
    report("second");
    EXPECT_THAT(strategy.getWords(), ElementsAre("first"));
    EXPECT_THAT(behind.getWords(), ElementsAre("first", "second"));
}

TEST(ErrorReentry, StrategyMayThrow)
{
    ActingStrategy strategy;
    strategy.m_action = [] { throw std::runtime_error("cannot"); };
    EXPECT_THROW(report("lost"), std::runtime_error);
    report("words");
    EXPECT_THAT(strategy.getWords(), ElementsAre("words"));
}

}  // namespace
