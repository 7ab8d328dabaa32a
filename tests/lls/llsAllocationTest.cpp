// Calendar times when memory runs out.
//
// - the text is whole, or construction fails

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include <utils/llsCalendarTime.h>

#include "support/AllocationStandIn.h"

namespace
{

using utils::Lls_CalendarTime;

TEST(LlsAllocation, TextIsWholeOrConstructionFails)
{
    setenv("TZ", "UTC0", 1);
    EXPECT_EQ(Lls_CalendarTime(0).getStr(), "Thu Jan  1 00:00:00 1970");
    test::setAllocationFailing(0);
    EXPECT_THROW(Lls_CalendarTime(0), std::bad_alloc);
    test::setAllocationFailing(-1);
    for (int numToSucceed = 1; numToSucceed < 10; ++numToSucceed)
    {
        test::setAllocationFailing(numToSucceed);
        try
        {
            const Lls_CalendarTime time(0);
            test::setAllocationFailing(-1);
            EXPECT_EQ(time.getStr(), "Thu Jan  1 00:00:00 1970");
        }
        catch (const std::bad_alloc&)
        {
        }
    }
}

}  // namespace
