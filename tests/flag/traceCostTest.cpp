// What a call site costs that does not emit.
//
// - below its level, or with the master switch off: no allocation, no lock, from the second pass on
// - an emission claims the call site's own message: it is built once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include <utils/flag/Flags.h>
#include <utils/flag/Trace.h>

#include "support/AllocationCounter.h"
#include "support/ConfigDirectory.h"
#include "support/MutexCalls.h"

namespace
{

using utils::flag::FlagT;

// The collection of an application.
class Flags
{
  public:
    FlagT<int> m_traceSteps{"app::m_traceSteps", 0};
};

void traceStep()
{
    GENERIC_UTILS_TRACE_STEP(1, "words");
}

Flags& flags()
{
    return *utils::singleton::SingletonT<Flags>::getInstancePtr();
}

void expectFree()
{
    const test::MutexCalls calls;
    const unsigned long before = test::countAllocations();
    for (int round = 0; round < 100; ++round)
    {
        traceStep();
    }
    EXPECT_EQ(test::countAllocations(), before);
    EXPECT_THAT(calls.getCalls(), testing::IsEmpty());
}

TEST(TraceCost, CallSiteBelowItsLevelLocksAndAllocatesNothing)
{
    const test::ConfigDirectory config;
    traceStep();
    expectFree();
}

TEST(TraceCost, CallSiteWithTheMasterSwitchOffLocksAndAllocatesNothing)
{
    const test::ConfigDirectory config;
    flags().m_traceSteps.setValue(5);
    utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgs.setValue(
        false);
    traceStep();
    expectFree();
}

class Watching : public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    Watching() : StrategyT("Trace", "watching", false) {}

    bool isInterested(const utils::flag::TraceMsg& message) override
    {
        m_messages.insert(&message);
        return false;
    }
    void processClientObject(utils::flag::TraceMsg&) override {}

    std::set<const utils::flag::TraceMsg*> m_messages;
};

TEST(TraceCost, MessageOfACallSiteIsBuiltOnce)
{
    const test::ConfigDirectory config;
    flags().m_traceSteps.setValue(1);
    const Watching strategy;
    for (int round = 0; round < 10; ++round)
    {
        traceStep();
    }
    EXPECT_EQ(strategy.m_messages.size(), 1U);
}

}  // namespace
