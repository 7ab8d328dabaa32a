// Process-wide instances of the older kind, with a lock and a trace.
//
// - one object by any number of calls, also by concurrent first calls
// - creation holds the mutex for singletons of Gs_Locks; later calls do not
// - creation is traced with the run-time type name, at level 1
// - a constructor that throws: the exception is passed on and the next call constructs
// - a strategy that is told of the creation may ask for the same instance
// - static destructors use the instance

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <utils/flagFlags.h>
#include <utils/gsFlags.h>
#include <utils/gsLocks.h>
#include <utils/gsSingleton.h>

#include "flag_legacy/RecordingOlderTraces.h"
#include "support/ConfigDirectory.h"

// Outside of any namespace, for a short run-time type name.
struct TracedType
{
    int m_value = 7;
};

namespace
{

using test::RecordingOlderTraces;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::Gs_Locks;
using utils::Gs_Singleton;
using utils::Std_Singleton;
using utils::flag::Flag_Flags;
using utils::flag::Flag_TraceMsg;
using utils::flag::Flag_TraceStrategy;
using utils::flag::Gs_Flags;

class GsSingleton : public testing::Test
{
  protected:
    void SetUp() override { setenv("USER", "marie", 1); }

    static void setLevel(int level)
    {
        Std_Singleton<Gs_Flags>::getInstancePtr()->m_traceSingletonSteps.setValue(level);
    }

    const test::ConfigDirectory m_config;
};

// Distinct types, so that every test has an instance of its own.
template <int Number>
struct Counted
{
    static inline std::atomic<int> constructed{0};

    Counted() { ++constructed; }

    int m_value = Number;
};

// Whether another thread can take the mutex for singletons at once.
bool isMutexFree()
{
    constexpr int SHORT_WAIT_MS = 1;
    bool isTaken = false;
    std::thread(
        [&isTaken]
        {
            COsMutex& mutex = Std_Singleton<Gs_Locks>::getInstancePtr()->m_singletonMutex;
            isTaken = osMutexLock(mutex.getHandle(), SHORT_WAIT_MS) != 0;
            if (isTaken)
            {
                osMutexUnlock(mutex.getHandle());
            }
        })
        .join();
    return isTaken;
}

TEST_F(GsSingleton, IsConstructedByTheFirstCall)
{
    using T = Counted<1>;
    EXPECT_EQ(T::constructed, 0);
    T* const instancePtr = Gs_Singleton<T>::getInstancePtr();
    ASSERT_NE(instancePtr, nullptr);
    EXPECT_EQ(instancePtr->m_value, 1);
    EXPECT_EQ(Gs_Singleton<T>::getInstancePtr(), instancePtr);
    EXPECT_EQ(T::constructed, 1);
}

TEST_F(GsSingleton, ConcurrentFirstCallsConstructOnce)
{
    using T = Counted<2>;
    setLevel(-1);
    constexpr int THREADS = 8;
    std::atomic<int> numReady{0};
    std::vector<T*> seen(THREADS);
    std::vector<std::thread> threads;
    for (T*& instancePtr : seen)
    {
        threads.emplace_back(
            [&]
            {
                ++numReady;
                while (numReady < THREADS)
                {
                    std::this_thread::yield();
                }
                instancePtr = Gs_Singleton<T>::getInstancePtr();
                EXPECT_EQ(instancePtr->m_value, 2);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(T::constructed, 1);
    EXPECT_THAT(seen, testing::Each(Gs_Singleton<T>::getInstancePtr()));
}

struct Locking
{
    Locking() : m_wasMutexFree(isMutexFree()) {}
    bool m_wasMutexFree;
};

TEST_F(GsSingleton, CreationHoldsTheMutex)
{
    EXPECT_FALSE(Gs_Singleton<Locking>::getInstancePtr()->m_wasMutexFree);
    EXPECT_TRUE(isMutexFree());
}

TEST_F(GsSingleton, LaterCallsTakeNoLock)
{
    using T = Counted<3>;
    T* const instancePtr = Gs_Singleton<T>::getInstancePtr();
    COsMutex& mutex = Std_Singleton<Gs_Locks>::getInstancePtr()->m_singletonMutex;
    const Gs_LockGuard guard(mutex);
    T* seenElsewhere = nullptr;
    std::thread([&] { seenElsewhere = Gs_Singleton<T>::getInstancePtr(); }).join();
    EXPECT_EQ(seenElsewhere, instancePtr);
}

TEST_F(GsSingleton, CreationIsTraced)
{
    const RecordingOlderTraces traces;
    Std_Singleton<Flag_Flags>::getInstancePtr()->m_traceMsgHeaderActive.setValue(0);
    setLevel(1);
    EXPECT_EQ(Gs_Singleton<TracedType>::getInstancePtr()->m_value, 7);
    EXPECT_EQ(Gs_Singleton<TracedType>::getInstancePtr()->m_value, 7);
    EXPECT_THAT(traces.getTexts(),
                ElementsAre("!(TRACE Name=Gs_Flags::m_traceSingletonSteps CurrLevel=1 "
                            "TraceLevel=1 ) by marie on TIME\n"
                            "Generated from generic/utils/include/utils/gsSingleton/109/"
                            "getInstancePtr:\n"
                            "Constructing Singleton (10TracedType)\n"));
}

TEST_F(GsSingleton, CreationIsNotTracedByDefault)
{
    const RecordingOlderTraces traces;
    Gs_Singleton<TracedType>::getInstancePtr();
    EXPECT_THAT(traces.getTexts(), IsEmpty());
}

TEST_F(GsSingleton, CreationIsNotTracedAtZero)
{
    const RecordingOlderTraces traces;
    setLevel(0);
    Gs_Singleton<TracedType>::getInstancePtr();
    EXPECT_THAT(traces.getTexts(), IsEmpty());
}

TEST_F(GsSingleton, CreationIsNotTracedWithTheSwitchOff)
{
    const RecordingOlderTraces traces;
    setLevel(1);
    Std_Singleton<Flag_Flags>::getInstancePtr()->m_traceMsgActive.setValue(false);
    Gs_Singleton<TracedType>::getInstancePtr();
    EXPECT_THAT(traces.getTexts(), IsEmpty());
}

struct Fragile
{
    static inline bool isBroken = true;

    Fragile()
    {
        if (isBroken)
        {
            throw std::runtime_error("not now");
        }
    }

    int m_value = 1;
};

TEST_F(GsSingleton, PassesOnTheExceptionOfTheConstructorAndTriesAgain)
{
    EXPECT_THROW(Gs_Singleton<Fragile>::getInstancePtr(), std::runtime_error);
    EXPECT_TRUE(isMutexFree());
    Fragile::isBroken = false;
    EXPECT_EQ(Gs_Singleton<Fragile>::getInstancePtr()->m_value, 1);
}

// Without care, each request traces again, without end.
TEST_F(GsSingleton, StrategyAsksForTheInstanceWhoseCreationIsTraced)
{
    using T = Counted<4>;
    class Asking : public Flag_TraceStrategy
    {
      public:
        Asking() : Flag_TraceStrategy("Asking") {}
        bool isInterested(const Flag_TraceMsg&) override { return true; }
        void processTrace(const Flag_TraceMsg&) override
        {
            ++m_numTraces;
            m_instancePtr = Gs_Singleton<T>::getInstancePtr();
        }
        int m_numTraces = 0;
        T* m_instancePtr = nullptr;
    };
    setLevel(1);
    const Asking strategy;
    T* const instancePtr = Gs_Singleton<T>::getInstancePtr();
    EXPECT_EQ(strategy.m_instancePtr, instancePtr);
    EXPECT_EQ(strategy.m_numTraces, 1);
    EXPECT_EQ(T::constructed, 1);
}

struct Talking
{
    ~Talking() { std::fprintf(stderr, "destroyed\n"); }

    // Longer than a short string, so that AddressSanitizer sees a destroyed one.
    std::string m_text = "a text that does not fit into the string object itself";
};

TEST_F(GsSingleton, StaticDestructorsUseTheInstance)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            struct AtExit
            {
                ~AtExit()
                {
                    std::fprintf(stderr, "%s\n",
                                 Gs_Singleton<Talking>::getInstancePtr()->m_text.c_str());
                }
            };
            static const AtExit atExit;
            Gs_Singleton<Talking>::getInstancePtr();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^a text that does not fit into the string object itself\n$");
}

}  // namespace
