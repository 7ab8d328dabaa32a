// The registry of flags used by several threads.
//
// - flags may be constructed, looked up, listed and destroyed by several threads at once
// - no lock is held while a flag's output or an error strategy runs: both may wait for another
//   thread that uses the registry

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <ostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <utils/error/Error.h>
#include <utils/flag/FlagT.h>

#include "support/ConfigDirectory.h"

namespace
{

using utils::flag::Flag;
using utils::flag::FlagT;

void runOnThreads(int threadCount, const std::function<void(int)>& work)
{
    std::latch start(threadCount);
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number)
    {
        threads.emplace_back(
            [&start, &work, number]
            {
                start.arrive_and_wait();
                work(number);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}

// Without a lock beside the map ThreadSanitizer reports a race, and the map breaks.
TEST(FlagRegistryThreads, FlagsComeAndGoOnSeveralThreads)
{
    const test::ConfigDirectory config;
    runOnThreads(4,
                 [](int number)
                 {
                     const std::string name = "flag " + std::to_string(number);
                     for (int round = 0; round < 300; ++round)
                     {
                         FlagT<int> flag(name, round);
                         EXPECT_EQ(Flag::getFlagPtr(name), &flag);
                         Flag::getFlagPtr("flag 9", true);
                     }
                 });
    std::ostringstream os;
    Flag::outputFlags(os);
    EXPECT_EQ(os.str(), "*** Current flags are:\n");
}

TEST(FlagRegistryThreads, ListingMayRunWhileOthersLookUpAndSetValues)
{
    const test::ConfigDirectory config;
    FlagT<int> a("a", 1);
    runOnThreads(3,
                 [&a](int number)
                 {
                     for (int round = 0; round < 100; ++round)
                     {
                         if (number == 0)
                         {
                             std::ostringstream os;
                             Flag::outputFlags(os);
                             continue;
                         }
                         a.setValue(round);
                         EXPECT_EQ(Flag::getFlagPtr("a"), &a);
                     }
                 });
}

void useRegistryOnAnotherThread()
{
    std::thread(
        []
        {
            const FlagT<int> flag("made elsewhere", 1);
            EXPECT_NE(Flag::getFlagPtr("made elsewhere"), nullptr);
        })
        .join();
}

class WaitingFlag : public FlagT<int>
{
  public:
    using FlagT::FlagT;

    void output(std::ostream& os) const override
    {
        useRegistryOnAnotherThread();
        FlagT::output(os);
    }
};

// Deadlocks when the listing holds the lock while it writes.
TEST(FlagRegistryThreads, NoLockIsHeldWhileAFlagIsWritten)
{
    const test::ConfigDirectory config;
    const WaitingFlag flag("waiting", 1);
    std::ostringstream os;
    Flag::outputFlags(os);
    EXPECT_EQ(os.str(),
              "*** Current flags are:\n"
              "Name  = 'waiting'\n"
              "Value = 1\n"
              "\n");
}

class WaitingStrategy : public utils::strategy::StrategyT<utils::error::Error>
{
  public:
    WaitingStrategy() : StrategyT("Error", "waiting", false) {}

    bool isInterested(const utils::error::Error&) override { return true; }
    void processClientObject(utils::error::Error&) override
    {
        useRegistryOnAnotherThread();
        ++m_processed;
    }

    int m_processed = 0;
};

// Deadlocks when the look-up holds the lock while it reports.
TEST(FlagRegistryThreads, NoLockIsHeldWhileAMissIsReported)
{
    const test::ConfigDirectory config;
    const WaitingStrategy strategy;
    EXPECT_EQ(Flag::getFlagPtr("nobody"), nullptr);
    EXPECT_EQ(strategy.m_processed, 1);
}

// Deadlocks when the registration holds the lock while it reports.
TEST(FlagRegistryThreads, NoLockIsHeldWhileADuplicateIsReported)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const test::ConfigDirectory config;
            const WaitingStrategy strategy;
            const FlagT<int> first("twice", 1);
            const FlagT<int> second("twice", 2);
        },
        testing::ExitedWithCode(1), "");
}

}  // namespace
