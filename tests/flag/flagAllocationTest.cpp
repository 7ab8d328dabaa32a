// Texts when memory runs out.
//
// - the text of a value is whole, or asking for it fails
// - a trace message has its whole location, or cannot be constructed

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <string>

#include <utils/flag/FlagT.h>
#include <utils/flag/Flags.h>
#include <utils/flag/TraceMsg.h>

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

TEST(FlagAllocation, LocationOfATraceIsWholeOrConstructionFails)
{
    const test::ConfigDirectory emptyConfiguration;
    utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()
        ->m_enableTraceMsgHeaders.setValue(0);
    const utils::flag::FlagT<int> flag("i", 1);
    const std::string file(100, 'f');
    for (long numToSucceed = 0; numToSucceed < 5; ++numToSucceed)
    {
        test::setAllocationFailing(numToSucceed);
        try
        {
            utils::flag::TraceMsg message(flag, 1, file.c_str(), 12, "function");
            test::setAllocationFailing(-1);
            std::ostringstream header;
            message.header(header);
            EXPECT_THAT(header.str(), testing::EndsWith(file + "/12/function:\n")) << numToSucceed;
        }
        catch (const std::bad_alloc&)
        {
            test::setAllocationFailing(-1);
            EXPECT_LT(numToSucceed, 4);
        }
    }
}

}  // namespace
