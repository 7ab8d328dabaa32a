// What a singleton asks of the platform.
//
// - the first call locks once, around the construction, and unlocks, also when construction fails
// - later calls take no lock
// - the mutexes of singletons are not destroyed at exit: threads may still use them

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include <utils/command/Flags.h>
#include <utils/flag/Flags.h>
#include <utils/singleton/SingletonT.h>

#include "support/ConfigDirectory.h"
#include "support/MutexCalls.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using utils::singleton::SingletonT;

test::MutexCalls* theCallsPtr = nullptr;

struct Plain
{
    Plain() { theCallsPtr->add("construct"); }
};

TEST(SingletonCalls, FirstCallLocksAroundTheConstruction)
{
    test::MutexCalls calls;
    theCallsPtr = &calls;
    SingletonT<Plain>::getInstancePtr();
    EXPECT_THAT(calls.getCalls(),
                ElementsAre("begin", "lock 0", "end", "output", "construct", "unlock"));
}

TEST(SingletonCalls, LaterCallsTakeNoLock)
{
    test::MutexCalls firstCalls;
    theCallsPtr = &firstCalls;
    SingletonT<Plain>::getInstancePtr();

    const test::MutexCalls laterCalls;
    SingletonT<Plain>::getInstancePtr();
    SingletonT<Plain>::getInstancePtr();
    EXPECT_THAT(laterCalls.getCalls(), IsEmpty());
}

struct Failing
{
    Failing() { throw std::runtime_error("never"); }
};

TEST(SingletonCalls, FailedConstructionUnlocks)
{
    const test::MutexCalls calls;
    EXPECT_THROW(SingletonT<Failing>::getInstancePtr(), std::runtime_error);
    EXPECT_THAT(calls.getCalls(), ElementsAre("begin", "lock 0", "end", "output", "unlock"));
}

// A mutex that is destroyed at exit would be locked by static destructors, and by threads that run
// past main's end, after it has gone.
TEST(SingletonCalls, NoMutexOfTheLibraryIsDestroyedAtExit)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const test::ConfigDirectory config;
            SingletonT<utils::flag::Flags>::getInstancePtr();
            SingletonT<utils::command::Flags>::getInstancePtr();
            test::MutexCalls::announceDestruction();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^$");
}

}  // namespace
