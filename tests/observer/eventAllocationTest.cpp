// Events and memory.
//
// - a notification allocates nothing, with a lock or without
// - a registration that runs out of memory passes std::bad_alloc on, registers nothing and
//   releases the lock, whichever of its allocations fails, and however many are registered

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

#include <utils/observer/Event.h>

#include "observer/MutexStandIn.h"
#include "support/AllocationStandIn.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using test::countAllocations;
using test::setAllocationFailing;
using testing::ElementsAre;
using utils::observer::Event;

class CountingNotifier : public utils::observer::Notifier
{
  public:
    void notify(void*) override { ++m_numCalls; }

    int m_numCalls = 0;
};

class EventAllocation : public testing::TestWithParam<bool>
{
  protected:
    EventAllocation()
    {
        if (GetParam())
        {
            m_event.enableLock();
        }
    }

    const test::ConfigDirectory m_emptyConfiguration;
    test::RecordingErrorStrategy m_errors;
    CountingNotifier m_notifier;
    Event m_event;
};

INSTANTIATE_TEST_SUITE_P(LockedOrNot, EventAllocation, testing::Bool(),
                         [](const auto& lock) { return lock.param ? "WithLock" : "WithoutLock"; });

TEST_P(EventAllocation, IsNotNeededForNotifying)
{
    m_event.registerInterest(&m_notifier, 1);
    m_event.registerInterest(&m_notifier, 2);
    m_event.notify(nullptr);
    const long before = countAllocations();
    for (int i = 0; i < 100; ++i)
    {
        m_event.notify(nullptr);
    }
    EXPECT_EQ(countAllocations(), before);
    EXPECT_EQ(m_notifier.m_numCalls, 202);
}

TEST_P(EventAllocation, ThatFailsRegistersNothingAndReleasesTheLock)
{
    m_event.notify(nullptr);
    for (long numToSucceed = 0; numToSucceed < 3; ++numToSucceed)
    {
        setAllocationFailing(numToSucceed);
        EXPECT_THROW(m_event.registerInterest(&m_notifier, 1), std::bad_alloc);
        setAllocationFailing(-1);
        EXPECT_EQ(test::countHeldLocks(), 0);
    }
    m_event.notify(nullptr);
    EXPECT_EQ(m_notifier.m_numCalls, 0);

    // There is no empty table left behind.
    EXPECT_FALSE(m_event.unregisterInterest(&m_notifier, 1));
    EXPECT_THAT(m_errors.getWords(),
                ElementsAre(testing::StartsWith("No notifiers have been registered")));
}

// Fails each allocation of each registration once.
TEST_P(EventAllocation, ThatFailsAmongManyRegistrationsRegistersNothing)
{
    constexpr int count = 200;
    int numFailures = 0;
    for (int i = 0; i < count; ++i)
    {
        for (long numToSucceed = 0;; ++numToSucceed)
        {
            try
            {
                setAllocationFailing(numToSucceed);
                m_event.registerInterest(&m_notifier, i / 2);
                setAllocationFailing(-1);
                break;
            }
            catch (const std::bad_alloc&)
            {
                setAllocationFailing(-1);
                ++numFailures;
            }
        }
    }
    EXPECT_EQ(test::countHeldLocks(), 0);
    EXPECT_GT(numFailures, count + count / 2);
    m_event.notify(nullptr);
    EXPECT_EQ(m_notifier.m_numCalls, count);
    for (int i = 0; i < count; ++i)
    {
        EXPECT_TRUE(m_event.unregisterInterest(&m_notifier, i / 2));
    }
    EXPECT_THAT(m_errors.getWords(), testing::IsEmpty());
}

TEST_P(EventAllocation, ThatFailsLeavesOtherRegistrationsAlone)
{
    m_event.registerInterest(&m_notifier, 1);
    setAllocationFailing(0);
    EXPECT_THROW(m_event.registerInterest(&m_notifier, 2), std::bad_alloc);
    setAllocationFailing(-1);
    EXPECT_EQ(test::countHeldLocks(), 0);
    m_event.notify(nullptr);
    EXPECT_EQ(m_notifier.m_numCalls, 1);
}

}  // namespace
