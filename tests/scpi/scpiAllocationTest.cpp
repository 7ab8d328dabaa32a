// A comparison allocates nothing.

#include <gtest/gtest.h>

#include <string>

#include <utils/scpi/ScpiString.h>

#include "support/AllocationCounter.h"
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

    const unsigned long before = test::countAllocations();
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

}  // namespace
