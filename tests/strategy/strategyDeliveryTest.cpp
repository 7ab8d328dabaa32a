// Delivery of a client object to the strategies of a type.
//
// - a type without entry: nothing happens, and no entry appears
// - list empty: the default gets the object without being asked
// - list empty, default missing or for another kind of object: nothing happens
// - list not empty: every interested strategy gets the object, in order; the default is silent
//   whatever the listed ones answer, also when none is for this kind of object
// - every strategy gets the very object that was handed in
// - types are independent of each other
// - delivery on many threads at once is safe

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>
#include <vector>

#include "strategy/Client.h"

namespace
{

using test::Client;
using test::ClientStrategy;
using test::deliver;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::strategy::StrategyT;

TEST(StrategyDelivery, ToAnUnknownTypeDoesNothing)
{
    EXPECT_THAT(deliver("never registered"), IsEmpty());
    EXPECT_EQ(test::strategyRegistry().count("never registered"), 0U);
}

TEST(StrategyDelivery, DefaultIsCalledWithoutBeingAsked)
{
    ClientStrategy theDefault("default", true);
    theDefault.m_isInterested = false;
    EXPECT_THAT(deliver(), ElementsAre("default"));
    EXPECT_EQ(theDefault.m_timesAsked, 0);
}

TEST(StrategyDelivery, ListedOnesAreAskedOnceEach)
{
    ClientStrategy first("first");
    ClientStrategy second("second");
    second.m_isInterested = false;
    EXPECT_THAT(deliver(), ElementsAre("first"));
    EXPECT_EQ(first.m_timesAsked, 1);
    EXPECT_EQ(second.m_timesAsked, 1);
}

TEST(StrategyDelivery, EveryInterestedOneGetsTheObjectInOrder)
{
    const ClientStrategy first("first");
    ClientStrategy second("second");
    const ClientStrategy third("third");
    second.m_isInterested = false;
    EXPECT_THAT(deliver(), ElementsAre("first", "third"));
    second.m_isInterested = true;
    EXPECT_THAT(deliver(), ElementsAre("first", "second", "third"));
}

TEST(StrategyDelivery, ListedOneSilencesTheDefault)
{
    const ClientStrategy theDefault("default", true);
    const ClientStrategy listed("listed");
    EXPECT_THAT(deliver(), ElementsAre("listed"));
}

TEST(StrategyDelivery, ListedOneWithoutInterestSilencesTheDefaultToo)
{
    ClientStrategy theDefault("default", true);
    ClientStrategy listed("listed");
    listed.m_isInterested = false;
    EXPECT_THAT(deliver(), IsEmpty());
    EXPECT_EQ(theDefault.m_timesAsked, 0);
}

struct OtherClient
{
};

class OtherStrategy : public StrategyT<OtherClient>
{
  public:
    explicit OtherStrategy(bool isDefault) : StrategyT("client", "other", isDefault) {}

    bool isInterested(const OtherClient&) override { return true; }
    void processClientObject(OtherClient&) override { ++m_processed; }

    int m_processed = 0;
};

TEST(StrategyDelivery, DefaultForAnotherKindOfObjectIsPassedOver)
{
    const OtherStrategy other(true);
    EXPECT_THAT(deliver(), IsEmpty());
    EXPECT_EQ(other.m_processed, 0);
}

TEST(StrategyDelivery, ListedOnesForAnotherKindOfObjectArePassedOver)
{
    const ClientStrategy first("first");
    const OtherStrategy other(false);
    const ClientStrategy last("last");
    EXPECT_THAT(deliver(), ElementsAre("first", "last"));
    EXPECT_EQ(other.m_processed, 0);
}

TEST(StrategyDelivery, ListedOneForAnotherKindOfObjectSilencesTheDefault)
{
    const ClientStrategy theDefault("default", true);
    const OtherStrategy other(false);
    EXPECT_THAT(deliver(), IsEmpty());
}

TEST(StrategyDelivery, HandsOnTheVeryObject)
{
    class Keeping : public StrategyT<Client>
    {
      public:
        Keeping() : StrategyT("client", "keeping", false) {}

        bool isInterested(const Client& client) override
        {
            m_askedAbout = &client;
            return true;
        }
        void processClientObject(Client& client) override { m_processed = &client; }

        const Client* m_askedAbout = nullptr;
        Client* m_processed = nullptr;
    };

    const Keeping strategy;
    Client client;
    StrategyT<Client>::invokeStrategies("client", client);
    EXPECT_EQ(strategy.m_askedAbout, &client);
    EXPECT_EQ(strategy.m_processed, &client);
}

TEST(StrategyDelivery, TypesAreIndependent)
{
    const ClientStrategy red("red", false, "red");
    const ClientStrategy green("green", true, "green");
    EXPECT_THAT(deliver("red"), ElementsAre("red"));
    EXPECT_THAT(deliver("green"), ElementsAre("green"));
    EXPECT_THAT(deliver("Red"), IsEmpty());
}

class Counting : public StrategyT<Client>
{
  public:
    explicit Counting(bool isDefault) : StrategyT("client", "counting", isDefault) {}

    bool isInterested(const Client&) override { return true; }
    void processClientObject(Client&) override { ++m_processed; }

    std::atomic<int> m_processed{0};
};

void deliverOnManyThreads(int threadCount, int rounds)
{
    std::latch start(threadCount);
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
    {
        threads.emplace_back(
            [&start, rounds]
            {
                start.arrive_and_wait();
                for (int round = 0; round < rounds; ++round)
                {
                    deliver();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}

TEST(StrategyDelivery, MayRunOnManyThreadsToListedOnes)
{
    const Counting first(false);
    const Counting second(false);
    deliverOnManyThreads(4, 500);
    EXPECT_EQ(first.m_processed, 2000);
    EXPECT_EQ(second.m_processed, 2000);
}

TEST(StrategyDelivery, MayRunOnManyThreadsToTheDefault)
{
    const Counting theDefault(true);
    deliverOnManyThreads(4, 500);
    EXPECT_EQ(theDefault.m_processed, 2000);
}

}  // namespace
