// Texts of values when memory runs out.
//
// - the text is whole, or asking for it fails

#include <gtest/gtest.h>

#include <new>
#include <string>

#include <utils/flag/FlagT.h>

#include "support/AllocationStandIn.h"
#include "support/ConfigDirectory.h"

namespace
{

// @return whether there was memory
bool isWholeWith(long numToSucceed, const utils::flag::FlagT<std::string>& flag,
                 const std::string& expected)
{
    test::setAllocationFailing(numToSucceed);
    try
    {
        const std::string text = flag.getValueStr();
        test::setAllocationFailing(-1);
        EXPECT_EQ(text, expected) << numToSucceed;
        return true;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

TEST(FlagAllocation, TextIsWholeOrAskingFails)
{
    const test::ConfigDirectory emptyConfiguration;
    const std::string value(100, 'x');
    const utils::flag::FlagT<std::string> flag("s", value);
    EXPECT_FALSE(isWholeWith(0, flag, value));
    for (long numToSucceed = 1; numToSucceed < 5; ++numToSucceed)
    {
        isWholeWith(numToSucceed, flag, value);
    }
}

}  // namespace
