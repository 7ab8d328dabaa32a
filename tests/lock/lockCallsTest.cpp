// What a guard asks of the platform, in which order.
//
// - acquiring: begin() on the timing record, osMutexLock(handle, 0), end(), output()
// - releasing: osMutexUnlock(handle) and nothing else; no timing
// - both with the handle of the guarded mutex

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include <utils/lock/Lock.h>

#include "support/MutexCalls.h"

namespace
{

using testing::ElementsAre;
using utils::lock::Lock;

TEST(LockCalls, AcquireTimesTheWaitAndPassesZero)
{
    COsMutex mutex;
    std::optional<Lock> guard;

    const test::MutexCalls calls;
    guard.emplace(mutex);

    EXPECT_THAT(calls.getCalls(), ElementsAre("begin", "lock 0", "end", "output"));
    EXPECT_THAT(calls.getHandles(), ElementsAre(mutex.getHandle()));
}

TEST(LockCalls, ReleaseOnlyUnlocks)
{
    COsMutex mutex;
    std::optional<Lock> guard(std::in_place, mutex);

    const test::MutexCalls calls;
    guard.reset();

    EXPECT_THAT(calls.getCalls(), ElementsAre("unlock"));
    EXPECT_THAT(calls.getHandles(), ElementsAre(mutex.getHandle()));
}

TEST(LockCalls, EachMutexIsLockedByItsOwnHandle)
{
    COsMutex first;
    COsMutex second;
    const test::MutexCalls calls;
    {
        const Lock outer(first);
        const Lock inner(second);
    }
    EXPECT_THAT(calls.getHandles(), ElementsAre(first.getHandle(), second.getHandle(),
                                                second.getHandle(), first.getHandle()));
}

}  // namespace
