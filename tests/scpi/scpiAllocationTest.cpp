// Memory.
//
// - a comparison allocates nothing
// - a name that cannot be set for lack of memory leaves the old one as it was

#include <gtest/gtest.h>

#include <new>
#include <string>

#include <utils/scpi/ScpiString.h>

#include "support/AllocationStandIn.h"
#include "support/ConfigDirectory.h"

namespace
{

using utils::scpi::ScpiString;

TEST(ScpiAllocation, IsNotNeededForComparing)
{
    const test::ConfigDirectory emptyConfiguration;
    const ScpiString command("measure:voltage:direct:current");
    const std::string header = "MEASURE:VOLT:DIRECT:CURRENT";
    ASSERT_TRUE(command.isCompliant(header));

    const long before = test::countAllocations();
    int numCompliant = 0;
    for (int i = 0; i < 100; ++i)
    {
        numCompliant += command.isCompliant(header) ? 1 : 0;
        numCompliant += command.isCompliant("meas:volt:dir:curr") ? 1 : 0;
        numCompliant += command.isCompliant("meas:curr") ? 1 : 0;
    }
    EXPECT_EQ(test::countAllocations(), before);
    EXPECT_EQ(numCompliant, 200);
}

TEST(ScpiAllocation, ThatFailsLeavesTheNameAsItWas)
{
    const test::ConfigDirectory emptyConfiguration;
    const std::string newName = "measure:voltage:direct:current?";
    long numToSucceed = 0;
    for (bool isSet = false; !isSet; ++numToSucceed)
    {
        ScpiString command("frequency:power");
        test::setAllocationFailing(numToSucceed);
        try
        {
            command.setName(newName);
            test::setAllocationFailing(-1);
            isSet = true;
            EXPECT_EQ(command.getName(), newName);
            EXPECT_EQ(command.getLongName(), "MEASure:VOLTage:DIRect:CURRent?");
        }
        catch (const std::bad_alloc&)
        {
            EXPECT_EQ(command.getName(), "frequency:power");
            EXPECT_EQ(command.getLongName(), "FREQuency:POWer");
            EXPECT_EQ(command.getShortName(), "FREQ:POW");
            EXPECT_FALSE(command.isQuery());
        }
    }
    EXPECT_GT(numToSucceed, 3);
}

}  // namespace
