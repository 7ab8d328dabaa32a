// Process-wide instances, created on first use.
//
// - nothing is constructed before the first call, one object by any number of calls
// - each type has an instance of its own
// - concurrent first calls construct once, and all get the constructed object
// - a constructor that throws: the exception is passed on, the storage is freed, the lock is
//   released and the next call constructs
// - allocation failure is passed on as std::bad_alloc
// - no trace is emitted

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <latch>
#include <new>
#include <stdexcept>
#include <thread>
#include <vector>

#include <utils/singleton/SingletonT.h>

#include "support/ClogCapture.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using utils::singleton::SingletonT;

// Distinct types, so that every test has an instance of its own.
template <int Number>
struct Counted
{
    static inline std::atomic<int> constructed{0};

    Counted() { ++constructed; }

    int m_value = Number;
};

TEST(Singleton, IsConstructedByTheFirstCall)
{
    using T = Counted<1>;
    EXPECT_EQ(T::constructed, 0);
    T* const instancePtr = SingletonT<T>::getInstancePtr();
    ASSERT_NE(instancePtr, nullptr);
    EXPECT_EQ(instancePtr->m_value, 1);
    EXPECT_EQ(T::constructed, 1);
}

TEST(Singleton, IsTheSameInEveryCall)
{
    using T = Counted<2>;
    T* const instancePtr = SingletonT<T>::getInstancePtr();
    EXPECT_EQ(SingletonT<T>::getInstancePtr(), instancePtr);
    EXPECT_EQ(SingletonT<T>::getInstancePtr(), instancePtr);
    EXPECT_EQ(T::constructed, 1);
}

TEST(Singleton, EachTypeHasItsOwn)
{
    EXPECT_EQ(SingletonT<Counted<3>>::getInstancePtr()->m_value, 3);
    EXPECT_EQ(SingletonT<Counted<4>>::getInstancePtr()->m_value, 4);
}

TEST(Singleton, EmitsNoTrace)
{
    const test::ClogCapture clog;
    const test::RecordingTraceStrategy traces;
    SingletonT<Counted<5>>::getInstancePtr();
    EXPECT_THAT(traces.getTexts(), testing::IsEmpty());
    EXPECT_EQ(clog.getText(), "");
}

// Its constructor lasts until every thread is about to ask, so that an unguarded version
// constructs several times, or hands out an object whose m_isReady is still false.
struct Slow
{
    static constexpr int THREADS = 8;
    static inline std::latch everybodyAsks{THREADS};
    static inline std::atomic<int> constructed{0};

    Slow()
    {
        ++constructed;
        everybodyAsks.wait();
        std::this_thread::yield();
        m_isReady = true;
    }

    bool m_isReady = false;
};

TEST(Singleton, ConcurrentFirstCallsConstructOnce)
{
    std::vector<Slow*> seen(Slow::THREADS);
    std::vector<std::thread> threads;
    for (Slow*& instancePtr : seen)
    {
        threads.emplace_back(
            [&instancePtr]
            {
                Slow::everybodyAsks.count_down();
                instancePtr = SingletonT<Slow>::getInstancePtr();
                EXPECT_TRUE(instancePtr->m_isReady);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(Slow::constructed, 1);
    EXPECT_THAT(seen, testing::Each(SingletonT<Slow>::getInstancePtr()));
}

struct Fragile
{
    static inline int failuresToCome = 0;
    static inline int allocated = 0;
    static inline int freed = 0;

    Fragile()
    {
        if (failuresToCome-- > 0)
        {
            throw std::runtime_error("not now");
        }
    }

    static void* operator new(std::size_t size)
    {
        ++allocated;
        return ::operator new(size);
    }

    static void operator delete(void* storage)
    {
        ++freed;
        ::operator delete(storage);
    }
};

TEST(Singleton, PassesOnTheExceptionOfTheConstructorAndTriesAgain)
{
    Fragile::failuresToCome = 2;
    EXPECT_THROW(SingletonT<Fragile>::getInstancePtr(), std::runtime_error);
    EXPECT_THROW(SingletonT<Fragile>::getInstancePtr(), std::runtime_error);
    EXPECT_EQ(Fragile::allocated, 2);
    EXPECT_EQ(Fragile::freed, 2);

    Fragile* const instancePtr = SingletonT<Fragile>::getInstancePtr();
    EXPECT_NE(instancePtr, nullptr);
    EXPECT_EQ(SingletonT<Fragile>::getInstancePtr(), instancePtr);
    EXPECT_EQ(Fragile::allocated, 3);
    EXPECT_EQ(Fragile::freed, 2);
}

TEST(Singleton, ThrowingConstructorReleasesTheLock)
{
    Fragile::failuresToCome = 1;
    EXPECT_THROW(SingletonT<Fragile>::getInstancePtr(), std::runtime_error);

    // On this thread the recursive mutex would let a second call through.
    Fragile* seenElsewhere = nullptr;
    std::thread([&] { seenElsewhere = SingletonT<Fragile>::getInstancePtr(); }).join();
    EXPECT_NE(seenElsewhere, nullptr);
    EXPECT_EQ(SingletonT<Fragile>::getInstancePtr(), seenElsewhere);
}

struct Homeless
{
    static inline bool isMemoryLeft = false;

    static void* operator new(std::size_t size)
    {
        if (!isMemoryLeft)
        {
            throw std::bad_alloc();
        }
        return ::operator new(size);
    }

    char m_content = 'x';
};

TEST(Singleton, PassesOnAllocationFailure)
{
    EXPECT_THROW(SingletonT<Homeless>::getInstancePtr(), std::bad_alloc);
    Homeless::isMemoryLeft = true;
    EXPECT_NE(SingletonT<Homeless>::getInstancePtr(), nullptr);
}

}  // namespace
