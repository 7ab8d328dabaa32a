// Registration of strategies.
//
// - a strategy keeps its type and name and cannot be copied
// - the first strategy of a type creates the type's entry; listed ones are appended, in order
// - a default is kept apart from the list and replaces an earlier default silently
// - cleanUp of the default leaves the list alone; of a listed one removes every element of it
// - a replaced default that is destroyed leaves its successor in place
// - the entry of a type stays when it becomes empty
// - cleanUp twice, of a replaced default or of an unknown type does nothing
// - the library's defaults are registered when the library is loaded

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <type_traits>

#include <utils/error/DefaultStrategy.h>
#include <utils/flag/DefaultStrategy.h>

#include "strategy/Client.h"
#include "support/ClogCapture.h"

namespace
{

using test::ClientStrategy;
using test::deliver;
using test::strategyRegistry;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::strategy::Strategy;

TEST(Strategy, KeepsTypeAndName)
{
    const ClientStrategy strategy("a name", false, "a type");
    EXPECT_EQ(strategy.getType(), "a type");
    EXPECT_EQ(strategy.getName(), "a name");
}

TEST(Strategy, IsAnAbstractBaseThatCannotBeCopied)
{
    static_assert(std::is_abstract_v<Strategy>);
    static_assert(std::is_abstract_v<utils::strategy::StrategyT<test::Client>>);
    static_assert(std::has_virtual_destructor_v<Strategy>);
    static_assert(!std::is_copy_constructible_v<ClientStrategy>);
    static_assert(!std::is_copy_assignable_v<ClientStrategy>);
    static_assert(std::is_nothrow_destructible_v<ClientStrategy>);
}

TEST(Strategy, FirstOfATypeCreatesTheEntry)
{
    EXPECT_EQ(strategyRegistry().count("client"), 0U);
    ClientStrategy strategy("first");
    ASSERT_EQ(strategyRegistry().count("client"), 1U);
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, nullptr);
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, ElementsAre(&strategy));
}

TEST(Strategy, ListedOnesAreAppended)
{
    ClientStrategy first("z");
    ClientStrategy second("a");
    ClientStrategy third("m");
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, ElementsAre(&first, &second, &third));
}

TEST(Strategy, DefaultIsNotListed)
{
    ClientStrategy theDefault("default", true);
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, &theDefault);
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, IsEmpty());
}

TEST(Strategy, LaterDefaultReplacesTheEarlierSilently)
{
    const test::ClogCapture clog;
    ClientStrategy earlier("earlier", true);
    ClientStrategy later("later", true);
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, &later);
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, IsEmpty());
    EXPECT_THAT(deliver(), ElementsAre("later"));
    EXPECT_EQ(clog.getText(), "");
}

TEST(Strategy, DestroyingAReplacedDefaultKeepsItsSuccessor)
{
    auto earlier = std::make_unique<ClientStrategy>("earlier", true);
    ClientStrategy later("later", true);
    earlier.reset();
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, &later);
    EXPECT_THAT(deliver(), ElementsAre("later"));
}

TEST(Strategy, DestroyingTheSuccessorDoesNotBringTheReplacedDefaultBack)
{
    ClientStrategy earlier("earlier", true);
    {
        ClientStrategy later("later", true);
    }
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, nullptr);
    EXPECT_THAT(deliver(), IsEmpty());
}

TEST(Strategy, DestroyingTheDefaultLeavesAnEntryWithoutDefault)
{
    {
        ClientStrategy theDefault("default", true);
    }
    ASSERT_EQ(strategyRegistry().count("client"), 1U);
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, nullptr);
    EXPECT_THAT(deliver(), IsEmpty());
}

TEST(Strategy, DestroyingAListedOneRemovesOnlyThat)
{
    ClientStrategy first("first");
    auto second = std::make_unique<ClientStrategy>("second");
    ClientStrategy third("third");
    second.reset();
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, ElementsAre(&first, &third));
}

TEST(Strategy, EntryStaysWhenTheTypeBecomesEmpty)
{
    auto* const infoBefore = []
    {
        ClientStrategy strategy("only");
        return strategyRegistry()["client"];
    }();
    ASSERT_EQ(strategyRegistry().count("client"), 1U);
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, IsEmpty());

    ClientStrategy next("next");
    EXPECT_EQ(strategyRegistry()["client"], infoBefore);
}

TEST(Strategy, DefaultSpeaksAgainWhenTheLastListedOneHasGone)
{
    ClientStrategy theDefault("default", true);
    {
        ClientStrategy listed("listed");
        EXPECT_THAT(deliver(), ElementsAre("listed"));
    }
    EXPECT_THAT(deliver(), ElementsAre("default"));
}

TEST(StrategyCleanUp, UnregistersAheadOfTheDestructor)
{
    ClientStrategy strategy("listed");
    strategy.cleanUp();
    EXPECT_THAT(deliver(), IsEmpty());
    strategy.cleanUp();
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, IsEmpty());
}

TEST(StrategyCleanUp, OfAReplacedDefaultDoesNothing)
{
    ClientStrategy earlier("earlier", true);
    ClientStrategy later("later", true);
    ClientStrategy listed("listed");
    earlier.cleanUp();
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, &later);
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, ElementsAre(&listed));
}

TEST(StrategyCleanUp, OfAnUnknownTypeDoesNothing)
{
    ClientStrategy strategy("listed");
    const std::unique_ptr<Strategy::StrategyCollectionInfo> info(strategyRegistry()["client"]);
    strategyRegistry().erase("client");

    strategy.cleanUp();

    EXPECT_EQ(strategyRegistry().count("client"), 0U);
    EXPECT_THAT(info->m_strategies, ElementsAre(&strategy));
}

TEST(StrategyCleanUp, OfTheDefaultDoesNotSearchTheList)
{
    ClientStrategy strategy("both", true);
    strategyRegistry()["client"]->m_strategies.push_back(&strategy);

    strategy.cleanUp();
    EXPECT_EQ(strategyRegistry()["client"]->m_defaultStrategy, nullptr);
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, ElementsAre(&strategy));

    strategy.cleanUp();
    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, IsEmpty());
}

TEST(StrategyCleanUp, OfAListedOneRemovesEveryElementOfIt)
{
    ClientStrategy other("other");
    ClientStrategy twice("twice");
    strategyRegistry()["client"]->m_strategies.push_front(&twice);

    twice.cleanUp();

    EXPECT_THAT(strategyRegistry()["client"]->m_strategies, ElementsAre(&other));
}

// Taken while this program's static objects are initialised.
const test::StrategyRegistry theRegistryAtLoad = strategyRegistry();

TEST(StrategyDefaults, AreRegisteredWhenTheLibraryIsLoaded)
{
    using utils::singleton::SingletonT;
    ASSERT_EQ(theRegistryAtLoad.size(), 2U);
    ASSERT_EQ(theRegistryAtLoad.count("Trace"), 1U);
    ASSERT_EQ(theRegistryAtLoad.count("Error"), 1U);
    EXPECT_EQ(theRegistryAtLoad.at("Trace")->m_defaultStrategy,
              SingletonT<utils::flag::DefaultStrategy>::getInstancePtr());
    EXPECT_EQ(theRegistryAtLoad.at("Error")->m_defaultStrategy,
              SingletonT<utils::error::DefaultStrategy>::getInstancePtr());
    EXPECT_THAT(theRegistryAtLoad.at("Trace")->m_strategies, IsEmpty());
    EXPECT_THAT(theRegistryAtLoad.at("Error")->m_strategies, IsEmpty());
}

TEST(StrategyDefaults, CarryTheirNamesAndTypes)
{
    const Strategy* const trace = strategyRegistry()["Trace"]->m_defaultStrategy;
    EXPECT_EQ(trace->getName(), "Default Trace Message Strategy");
    EXPECT_EQ(trace->getType(), "Trace");
    const Strategy* const error = strategyRegistry()["Error"]->m_defaultStrategy;
    EXPECT_EQ(error->getName(), "Default Error Strategy");
    EXPECT_EQ(error->getType(), "Error");
}

}  // namespace
