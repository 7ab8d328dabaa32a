// The older guard and the mutexes that the older classes share.
//
// - Gs_LockGuard acquires and releases as utils::lock::Lock does
// - it is released by an exception and through a base pointer, and cannot be copied
// - Gs_Locks has two mutexes, the one for singletons first, which are locked independently

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <type_traits>

#include <utils/gsLockGuard.h>
#include <utils/gsLocks.h>

#include "support/MutexCalls.h"

namespace
{

using testing::ElementsAre;
using utils::Gs_Locks;
using utils::Std_Singleton;

TEST(GsLockGuard, AcquireTimesTheWaitAndPassesZero)
{
    COsMutex mutex;
    std::optional<Gs_LockGuard> guard;

    const test::MutexCalls calls;
    guard.emplace(mutex);

    EXPECT_THAT(calls.getCalls(), ElementsAre("begin", "lock 0", "end", "output"));
    EXPECT_THAT(calls.getHandles(), ElementsAre(mutex.getHandle()));
}

TEST(GsLockGuard, ReleaseOnlyUnlocks)
{
    COsMutex mutex;
    std::optional<Gs_LockGuard> guard(std::in_place, mutex);

    const test::MutexCalls calls;
    guard.reset();

    EXPECT_THAT(calls.getCalls(), ElementsAre("unlock"));
    EXPECT_THAT(calls.getHandles(), ElementsAre(mutex.getHandle()));
}

TEST(GsLockGuard, IsReleasedByAnException)
{
    COsMutex mutex;
    const test::MutexCalls calls;
    try
    {
        const Gs_LockGuard guard(mutex);
        throw std::runtime_error("leaves the scope");
    }
    catch (const std::runtime_error&)
    {
    }
    EXPECT_THAT(calls.getCalls(), ElementsAre("begin", "lock 0", "end", "output", "unlock"));
}

TEST(GsLockGuard, IsAScopedGuard)
{
    static_assert(std::has_virtual_destructor_v<Gs_LockGuard>);
    static_assert(!std::is_copy_constructible_v<Gs_LockGuard>);
    static_assert(!std::is_copy_assignable_v<Gs_LockGuard>);
    static_assert(sizeof(Gs_LockGuard) == 2 * sizeof(void*));
}

TEST(GsLocks, HasTwoMutexesTheOneForSingletonsFirst)
{
    static_assert(std::has_virtual_destructor_v<Gs_Locks>);
    static_assert(sizeof(Gs_Locks) == sizeof(void*) + 2 * sizeof(COsMutex));
    Gs_Locks locks;
    EXPECT_LT(&locks.m_singletonMutex, &locks.m_applicationMutex);
    EXPECT_NE(locks.m_singletonMutex.getHandle(), nullptr);
    EXPECT_NE(locks.m_applicationMutex.getHandle(), nullptr);
    EXPECT_NE(locks.m_singletonMutex.getHandle(), locks.m_applicationMutex.getHandle());
}

TEST(GsLocks, BothCanBeHeldAtOnce)
{
    Gs_Locks& locks = *Std_Singleton<Gs_Locks>::getInstancePtr();
    const test::MutexCalls calls;
    {
        const Gs_LockGuard first(locks.m_singletonMutex);
        const Gs_LockGuard second(locks.m_applicationMutex);
    }
    EXPECT_THAT(
        calls.getHandles(),
        ElementsAre(locks.m_singletonMutex.getHandle(), locks.m_applicationMutex.getHandle(),
                    locks.m_applicationMutex.getHandle(), locks.m_singletonMutex.getHandle()));
}

}  // namespace
