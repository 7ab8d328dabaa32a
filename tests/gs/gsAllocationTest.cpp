// Subjects and memory.
//
// - a notification allocates nothing
// - an attachment that runs out of memory passes std::bad_alloc on, attaches nothing and leaves
//   either side in order, whichever of its allocations fails

#include <gtest/gtest.h>

#include <new>
#include <sstream>

#include <utils/gsSubject.h>

#include "gs/Actors.h"
#include "support/AllocationStandIn.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::Observer;
using test::setAllocationFailing;
using test::Subject;
using utils::Gs_Aspect;

class GsAllocation : public testing::Test
{
  protected:
    const test::ConfigDirectory m_config;
    Gs_Aspect m_level{"Level"};
};

// Whether the attachment could be made when one allocation fails.
bool isAttachedWithFailure(Subject& subject, Observer& observer, Gs_Aspect& aspect,
                           long numToSucceed)
{
    setAllocationFailing(numToSucceed);
    try
    {
        subject.attach(&observer, &aspect, 1);
    }
    catch (const std::bad_alloc&)
    {
        setAllocationFailing(-1);
        return false;
    }
    setAllocationFailing(-1);
    return true;
}

TEST_F(GsAllocation, IsNotNeededForNotifying)
{
    Subject subject("mixer");
    Observer observer("panel");
    subject.attach(&observer, &m_level, 1);
    subject.attach(&observer, &Observer::react, &m_level, 2);
    subject.notify(&m_level);
    const long before = test::countAllocations();
    for (int i = 0; i < 100; ++i)
    {
        subject.notify(&m_level);
    }
    EXPECT_EQ(test::countAllocations(), before);
    EXPECT_EQ(observer.m_numUpdates, 101);
}

TEST_F(GsAllocation, ThatFailsAttachesNothing)
{
    long numToSucceed = 0;
    for (bool isAttached = false; !isAttached; ++numToSucceed)
    {
        ASSERT_LT(numToSucceed, 100);
        Subject subject("mixer");
        Observer observer("panel");
        isAttached = isAttachedWithFailure(subject, observer, m_level, numToSucceed);
        EXPECT_EQ(subject.isObserverAttached(&observer, &m_level, 1), isAttached);
        std::ostringstream text;
        text << observer;
        EXPECT_EQ(text.str(), isAttached ? "Observer (panel)    Subject (mixer)"
                                         : "Observer (panel)    Subject --none-- ");
        subject.notify(&m_level);
        EXPECT_EQ(observer.m_numUpdates, isAttached ? 1 : 0);
    }
    EXPECT_GT(numToSucceed, 3);
}

// AddressSanitizer sees an observer that is still told after its end.
TEST_F(GsAllocation, ThatFailsLeavesTheObserverFreeToEnd)
{
    for (long numToSucceed = 0; numToSucceed < 10; ++numToSucceed)
    {
        Subject subject("mixer");
        {
            Observer observer("panel");
            subject.attach(&observer, &m_level, 2);
            isAttachedWithFailure(subject, observer, m_level, numToSucceed);
        }
        subject.notify(&m_level);
    }
}

}  // namespace
