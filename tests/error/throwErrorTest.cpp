// throwError(): the end of the process.
//
// - exit status 1, also inside a try block, and on another thread than main's
// - nothing is written; nothing behind the call runs; static destructors run, automatic ones do not
// - two threads at once: status 1, static destructors run once
// - again from a static destructor while the process ends: status 1, at once
// - from a static destructor of a process that ends by itself: status 1
// - another thread while the process ends: it waits and does not return
// - another thread that a static destructor waits for: status 1 all the same, no deadlock

#include <gtest/gtest.h>
#include <libos/osTask.h>

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <latch>
#include <thread>

#include <utils/error/Error.h>
#include <utils/flag/FlagT.h>

#include "support/ConfigDirectory.h"

namespace
{

// Whether a wait for the end of the process ends first.
std::atomic<bool> isWaitShort{false};

}  // namespace

// In place of the platform's, so that no case depends on how long the wait is.
int osTaskSleep(osTaskHandle_t, unsigned long)
{
    if (!isWaitShort)
    {
        std::latch(1).wait();
    }
    std::cerr << "waited;";
    return 1;
}

namespace
{

using testing::ExitedWithCode;
using utils::error::Error;

template <typename Action>
struct AtDestruction
{
    explicit AtDestruction(Action action) : m_action(action) {}
    ~AtDestruction() { m_action(); }

    Action m_action;
};

[[noreturn]] void fail()
{
    Error("file", 1, "f", "Name", Error::FATAL).throwError();
}

class ThrowError : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(ThrowError, EndsTheProcessWithStatus1)
{
    EXPECT_EXIT(
        {
            fail();
            std::cerr << "goes on";
        },
        ExitedWithCode(1), "^$");
}

TEST_F(ThrowError, EndsTheProcessWhateverTheSeverity)
{
    EXPECT_EXIT(Error("file", 1, "f", "Name", Error::INFO).throwError(), ExitedWithCode(1), "^$");
}

TEST_F(ThrowError, ThrowsNothing)
{
    EXPECT_EXIT(
        {
            try
            {
                fail();
            }
            catch (...)
            {
                std::cerr << "caught";
            }
        },
        ExitedWithCode(1), "^$");
}

TEST_F(ThrowError, RunsStaticDestructorsButNoAutomaticOnes)
{
    EXPECT_EXIT(
        {
            static const AtDestruction staticObject([] { std::cerr << "static"; });
            const AtDestruction automaticObject([] { std::cerr << "automatic"; });
            fail();
        },
        ExitedWithCode(1), "^static$");
}

TEST_F(ThrowError, EndsTheProcessFromAnotherThread)
{
    EXPECT_EXIT(
        {
            static const AtDestruction staticObject([] { std::cerr << "static"; });
            std::thread(fail).join();
            std::cerr << "goes on";
        },
        ExitedWithCode(1), "^static$");
}

// The naive version enters exit() on each thread: destructors run twice, or the process hangs.
TEST_F(ThrowError, TwoThreadsAtOnce)
{
    EXPECT_EXIT(
        {
            static const AtDestruction staticObject([] { std::cerr << "static;"; });
            constexpr int THREADS = 8;
            std::latch start(THREADS);
            for (int i = 0; i < THREADS - 1; ++i)
            {
                std::thread(
                    [&start]
                    {
                        start.arrive_and_wait();
                        fail();
                    })
                    .detach();
            }
            start.arrive_and_wait();
            fail();
        },
        ExitedWithCode(1), "^static;$");
}

TEST_F(ThrowError, TwoThreadsMakeADuplicateFlagAtOnce)
{
    EXPECT_EXIT(
        {
            const test::ConfigDirectory config;
            const utils::flag::FlagT<int> first("twice", 1);
            std::latch start(2);
            std::thread(
                [&start]
                {
                    start.arrive_and_wait();
                    const utils::flag::FlagT<int> second("twice", 2);
                })
                .detach();
            start.arrive_and_wait();
            const utils::flag::FlagT<int> third("twice", 3);
        },
        ExitedWithCode(1), "Flag 'twice' is already in the Flag Collection ");
}

// "At once": the destructors that would come next do not run.
TEST_F(ThrowError, AgainFromAStaticDestructorEndsTheProcessAtOnce)
{
    EXPECT_EXIT(
        {
            static const AtDestruction later([] { std::cerr << "later;"; });
            static const AtDestruction failing(
                []
                {
                    std::cerr << "failing;";
                    fail();
                });
            fail();
        },
        ExitedWithCode(1), "^failing;$");
}

TEST_F(ThrowError, AgainFromAStaticDestructorOnAnotherThreadsExit)
{
    EXPECT_EXIT(
        {
            static const AtDestruction failing(
                []
                {
                    std::cerr << "failing;";
                    fail();
                });
            std::thread(fail).join();
        },
        ExitedWithCode(1), "^failing;$");
}

TEST_F(ThrowError, FromAStaticDestructorOfAProcessThatEndsByItself)
{
    EXPECT_EXIT(
        {
            static const AtDestruction failing(
                []
                {
                    std::cerr << "failing;";
                    fail();
                });
            std::exit(0);
        },
        ExitedWithCode(1), "^failing;$");
}

TEST_F(ThrowError, TwiceFromStaticDestructorsOfAProcessThatEndsByItself)
{
    EXPECT_EXIT(
        {
            static const AtDestruction second(
                []
                {
                    std::cerr << "second;";
                    fail();
                });
            static const AtDestruction first(
                []
                {
                    std::cerr << "first;";
                    fail();
                });
            std::exit(0);
        },
        ExitedWithCode(1), "^first;second;$");
}

// The destructor knows that the other thread has come to throwError(), and goes on to the end:
// neither thread returns, and the status is the one of the first.
TEST_F(ThrowError, AnotherThreadWhileTheProcessEnds)
{
    EXPECT_EXIT(
        {
            static std::latch teardownBegan(1);
            static std::latch aboutToFail(1);
            static const AtDestruction teardown(
                []
                {
                    teardownBegan.count_down();
                    aboutToFail.wait();
                    std::cerr << "end;";
                });
            std::thread(
                []
                {
                    teardownBegan.wait();
                    aboutToFail.count_down();
                    fail();
                })
                .detach();
            fail();
        },
        ExitedWithCode(1), "^end;$");
}

// Neither thread can go on by itself, so the failing one ends the process after a while.
TEST_F(ThrowError, AnotherThreadThatAStaticDestructorWaitsFor)
{
    EXPECT_EXIT(
        {
            isWaitShort = true;
            static const AtDestruction waiting([] { std::thread(fail).join(); });
            fail();
        },
        ExitedWithCode(1), "^waited;$");
}

}  // namespace
