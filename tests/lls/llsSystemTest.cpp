// Calendar times, environment variables and users, seen from the system's side.
//
// - the text of a time is whole, or construction fails
// - none of them locks the platform's mutexes

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include <utils/llsCalendarTime.h>
#include <utils/llsEnvVar.h>
#include <utils/llsUser.h>

#include "support/AllocationStandIn.h"
#include "support/MutexCalls.h"

namespace
{

using utils::Lls_CalendarTime;

TEST(LlsSystem, TextIsWholeOrConstructionFails)
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

TEST(LlsSystem, HasNoLocks)
{
    const test::MutexCalls calls;
    const Lls_CalendarTime time(0);
    const utils::Lls_EnvVar variable("PATH");
    EXPECT_TRUE(variable.isDefined());
    const utils::Lls_User user;
    EXPECT_TRUE(calls.getCalls().empty());
}

}  // namespace
