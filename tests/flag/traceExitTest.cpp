// Traces while the process ends.
//
// - a static destructor traces, at a call site used before and at a new one
// - a thread that runs past main's end traces, by the default strategy
// - the strategy type may be used by static destructors

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <latch>
#include <string>
#include <thread>

#include <utils/flag/Trace.h>

#include "support/ConfigDirectory.h"

namespace
{

using testing::ExitedWithCode;

// The collection of an application.
class Flags
{
  public:
    utils::flag::FlagT<int> m_traceSteps{"app::m_traceSteps", 1};
};

void traceAtOneCallSite(const std::string& words)
{
    GENERIC_UTILS_TRACE_STEP(1, words << ", with more text than fits into a short string");
}

template <typename Action>
struct AtDestruction
{
    explicit AtDestruction(Action action) : m_action(action) {}
    ~AtDestruction() { m_action(); }

    Action m_action;
};

class TraceExit : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    const test::ConfigDirectory m_config;
};

// The static object is older than the call site's message, so that a message with a destructor of
// its own would be gone.
TEST_F(TraceExit, StaticDestructorTracesAtACallSiteUsedBefore)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user([] { traceAtOneCallSite("late"); });
            traceAtOneCallSite("early");
            std::exit(0);
        },
        ExitedWithCode(0),
        "^2001-02-03 04:05:06: early, with more text than fits into a short string\n"
        "2001-02-03 04:05:06: late, with more text than fits into a short string\n$");
}

TEST_F(TraceExit, StaticDestructorIsTheFirstToTrace)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user([] { traceAtOneCallSite("late"); });
            std::exit(0);
        },
        ExitedWithCode(0),
        "^2001-02-03 04:05:06: late, with more text than fits into a short string\n$");
}

TEST_F(TraceExit, ThreadRunningPastMainsEndTraces)
{
    EXPECT_EXIT(
        {
            static std::latch teardownBegan(1);
            static std::latch threadIsDone(1);
            static const AtDestruction teardown(
                []
                {
                    teardownBegan.count_down();
                    threadIsDone.wait();
                });
            traceAtOneCallSite("early");
            std::thread(
                []
                {
                    teardownBegan.wait();
                    traceAtOneCallSite("past the end");
                    threadIsDone.count_down();
                })
                .detach();
            std::exit(0);
        },
        ExitedWithCode(0),
        "early, with more text than fits into a short string\n"
        "2001-02-03 04:05:06: past the end, with more text than fits into a short string\n$");
}

TEST_F(TraceExit, StrategyTypeIsNotDestroyed)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user([]
                                            { std::cerr << utils::flag::TraceMsg::STRATEGY_TYPE; });
            std::exit(0);
        },
        ExitedWithCode(0), "^Trace$");
}

}  // namespace
