// Strategies that use the framework while they are called.
//
// - one that unregisters itself: first, last or alone, those behind it still get the object
// - one that deletes itself, also when it is only asked
// - one that ends others: those that come later are not called
// - one that unregisters itself inside of a delivery that an earlier one makes
// - one that registers another: that one gets the next object
// - one that delivers in its turn
// - one that throws: the exception reaches who delivers, and the next delivery is complete

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "strategy/Client.h"

namespace
{

using test::ClientStrategy;
using test::deliver;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(StrategyReentry, OnlyOneMayUnregisterItself)
{
    ClientStrategy only("only");
    only.m_action = [&only] { only.cleanUp(); };
    EXPECT_THAT(deliver(), ElementsAre("only"));
    EXPECT_THAT(deliver(), IsEmpty());
}

// A walk that advances after the call reads the freed list element: AddressSanitizer reports it.
TEST(StrategyReentry, FirstMayUnregisterItself)
{
    ClientStrategy first("first");
    const ClientStrategy second("second");
    first.m_action = [&first] { first.cleanUp(); };
    EXPECT_THAT(deliver(), ElementsAre("first", "second"));
    EXPECT_THAT(deliver(), ElementsAre("second"));
}

TEST(StrategyReentry, LastMayUnregisterItself)
{
    const ClientStrategy first("first");
    ClientStrategy last("last");
    last.m_action = [&last] { last.cleanUp(); };
    EXPECT_THAT(deliver(), ElementsAre("first", "last"));
    EXPECT_THAT(deliver(), ElementsAre("first"));
}

TEST(StrategyReentry, DefaultMayUnregisterItself)
{
    ClientStrategy theDefault("default", true);
    theDefault.m_action = [&theDefault] { theDefault.cleanUp(); };
    EXPECT_THAT(deliver(), ElementsAre("default"));
    EXPECT_THAT(deliver(), IsEmpty());
}

// A walk that knows only its next strategy stands on a freed list element.
TEST(StrategyReentry, MayEndTheNextOne)
{
    ClientStrategy first("first");
    auto second = std::make_unique<ClientStrategy>("second");
    const ClientStrategy third("third");
    first.m_action = [&second] { second.reset(); };
    EXPECT_THAT(deliver(), ElementsAre("first", "third"));
}

TEST(StrategyReentry, MayEndAllThatFollow)
{
    ClientStrategy first("first");
    auto second = std::make_unique<ClientStrategy>("second");
    auto third = std::make_unique<ClientStrategy>("third");
    first.m_action = [&]
    {
        third.reset();
        second.reset();
    };
    EXPECT_THAT(deliver(), ElementsAre("first"));
}

TEST(StrategyReentry, MayEndAnEarlierOne)
{
    auto first = std::make_unique<ClientStrategy>("first");
    ClientStrategy second("second");
    const ClientStrategy third("third");
    second.m_action = [&first] { first.reset(); };
    EXPECT_THAT(deliver(), ElementsAre("first", "second", "third"));
}

// Inside of a delivery that the first makes, the next one leaves: the outer walk must not go there.
TEST(StrategyReentry, MayLeaveInsideOfADeliveryOfAnother)
{
    ClientStrategy first("first");
    ClientStrategy second("second");
    const ClientStrategy third("third");
    std::vector<std::string> innerSeenBy;
    first.m_action = [&]
    {
        first.m_action = nullptr;
        innerSeenBy = deliver();
    };
    second.m_action = [&second] { second.cleanUp(); };
    EXPECT_THAT(deliver(), ElementsAre("first", "third"));
    EXPECT_THAT(innerSeenBy, ElementsAre("first", "second", "third"));
}

class EndingWhenAsked : public utils::strategy::StrategyT<test::Client>
{
  public:
    EndingWhenAsked() : StrategyT("client", "ending", false) {}

    bool isInterested(const test::Client&) override
    {
        delete this;
        return true;
    }

    void processClientObject(test::Client& client) override
    {
        client.m_seenBy.push_back(getName());
    }
};

TEST(StrategyReentry, MayEndWhenItIsAsked)
{
    auto strategy = std::make_unique<EndingWhenAsked>();
    const ClientStrategy second("second");
    strategy.release();
    EXPECT_THAT(deliver(), ElementsAre("second"));
}

class DeletingItself : public utils::strategy::StrategyT<test::Client>
{
  public:
    DeletingItself() : StrategyT("client", "deleting", false) {}

    bool isInterested(const test::Client&) override { return true; }
    void processClientObject(test::Client& client) override
    {
        client.m_seenBy.push_back(getName());
        delete this;
    }
};

TEST(StrategyReentry, MayDeleteItself)
{
    auto strategy = std::make_unique<DeletingItself>();
    const ClientStrategy second("second");
    strategy.release();
    EXPECT_THAT(deliver(), ElementsAre("deleting", "second"));
    EXPECT_THAT(deliver(), ElementsAre("second"));
}

TEST(StrategyReentry, MayRegisterAnother)
{
    ClientStrategy first("first");
    std::unique_ptr<ClientStrategy> another;
    first.m_action = [&]
    {
        if (another == nullptr)
        {
            another = std::make_unique<ClientStrategy>("another");
        }
    };
    deliver();
    EXPECT_THAT(deliver(), ElementsAre("first", "another"));
}

TEST(StrategyReentry, DefaultMayRegisterAListedOne)
{
    ClientStrategy theDefault("default", true);
    std::unique_ptr<ClientStrategy> listed;
    theDefault.m_action = [&] { listed = std::make_unique<ClientStrategy>("listed"); };
    EXPECT_THAT(deliver(), ElementsAre("default"));
    EXPECT_THAT(deliver(), ElementsAre("listed"));
}

TEST(StrategyReentry, MayDeliverInItsTurn)
{
    ClientStrategy outer("outer");
    const ClientStrategy inner("inner", false, "inner type");
    std::vector<std::string> innerSeenBy;
    outer.m_action = [&] { innerSeenBy = deliver("inner type"); };
    EXPECT_THAT(deliver(), ElementsAre("outer"));
    EXPECT_THAT(innerSeenBy, ElementsAre("inner"));
}

TEST(StrategyReentry, ExceptionReachesWhoDelivers)
{
    ClientStrategy first("first");
    const ClientStrategy second("second");
    first.m_action = [] { throw std::runtime_error("cannot"); };
    EXPECT_THROW(deliver(), std::runtime_error);

    first.m_action = nullptr;
    EXPECT_THAT(deliver(), ElementsAre("first", "second"));
}

}  // namespace
