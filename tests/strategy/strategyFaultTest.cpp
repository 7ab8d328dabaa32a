// Strategies for whose registration there is not enough memory.
//
// - the exception reaches who makes the strategy, which is not registered
// - the registry can be listed, and a strategy of the same type made, whichever allocation failed

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <string>

#include "strategy/Client.h"
#include "support/AllocationStandIn.h"

namespace
{

using test::ClientStrategy;
using test::deliver;
using testing::ElementsAre;
using testing::IsEmpty;

// Whether a strategy can be made, and is registered, although one allocation fails.
bool isMadeInSpiteOfAFailure(const std::string& type, long numToSucceed)
{
    const std::string name = "a name that is too long to be kept in the string object itself";
    test::setAllocationFailing(numToSucceed);
    try
    {
        const ClientStrategy strategy(name, false, type);
        test::setAllocationFailing(-1);
        EXPECT_THAT(deliver(type), ElementsAre(name));
        return true;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

// A type's entry that holds no list crashes the listing.
TEST(StrategyFault, RegistryStaysWholeWhicheverAllocationFails)
{
    constexpr long LEAST_ALLOCATIONS = 5;  // type, name, entry, its key, its list
    long numToSucceed = 0;
    bool isMade = false;
    while (!isMade)
    {
        const std::string type =
            "a type that is too long to be kept in a string " + std::to_string(numToSucceed);
        isMade = isMadeInSpiteOfAFailure(type, numToSucceed);
        EXPECT_THAT(deliver(type), IsEmpty());

        std::ostringstream os;
        utils::strategy::Strategy::outputStrategyTypes(os);
        EXPECT_THAT(os.str(), testing::EndsWith("... Done.\n"));

        const ClientStrategy another("another", false, type);
        EXPECT_THAT(deliver(type), ElementsAre("another"));
        ++numToSucceed;
    }
    EXPECT_GT(numToSucceed, LEAST_ALLOCATIONS);
}

}  // namespace
