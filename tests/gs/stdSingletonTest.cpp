// Process-wide instances of the older kind, without a lock.
//
// - nothing is constructed before the first call, one object by any number of calls
// - each type has an instance of its own
// - a constructor that throws: the exception is passed on and the next call constructs
// - a constructor that asks for its own instance: the one completed first is kept
// - instances that exist are read by any thread
// - an instance is not destroyed at exit

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <utils/stdSingleton.h>

namespace
{

using utils::Std_Singleton;

// Distinct types, so that every test has an instance of its own.
template <int Number>
struct Counted
{
    static inline int constructed = 0;

    Counted() { ++constructed; }

    int m_value = Number;
};

TEST(StdSingleton, IsConstructedByTheFirstCall)
{
    using T = Counted<1>;
    EXPECT_EQ(T::constructed, 0);
    T* const instancePtr = Std_Singleton<T>::getInstancePtr();
    ASSERT_NE(instancePtr, nullptr);
    EXPECT_EQ(instancePtr->m_value, 1);
    EXPECT_EQ(T::constructed, 1);
}

TEST(StdSingleton, IsTheSameInEveryCall)
{
    using T = Counted<2>;
    T* const instancePtr = Std_Singleton<T>::getInstancePtr();
    EXPECT_EQ(Std_Singleton<T>::getInstancePtr(), instancePtr);
    EXPECT_EQ(T::constructed, 1);
}

TEST(StdSingleton, EachTypeHasItsOwn)
{
    EXPECT_EQ(Std_Singleton<Counted<3>>::getInstancePtr()->m_value, 3);
    EXPECT_EQ(Std_Singleton<Counted<4>>::getInstancePtr()->m_value, 4);
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

TEST(StdSingleton, PassesOnTheExceptionOfTheConstructorAndTriesAgain)
{
    EXPECT_THROW(Std_Singleton<Fragile>::getInstancePtr(), std::runtime_error);
    EXPECT_THROW(Std_Singleton<Fragile>::getInstancePtr(), std::runtime_error);
    Fragile::isBroken = false;
    EXPECT_EQ(Std_Singleton<Fragile>::getInstancePtr()->m_value, 1);
}

// As an object whose construction is reported to a strategy that uses the same object.
struct Reentrant
{
    static inline std::unique_ptr<Reentrant> outerPtr;
    static inline Reentrant* innerPtr = nullptr;
    static inline bool isInside = false;

    Reentrant()
    {
        if (!isInside)
        {
            outerPtr.reset(this);
            isInside = true;
            innerPtr = Std_Singleton<Reentrant>::getInstancePtr();
        }
    }
};

TEST(StdSingleton, KeepsTheInstanceThatWasCompletedFirst)
{
    Reentrant* const instancePtr = Std_Singleton<Reentrant>::getInstancePtr();
    EXPECT_EQ(instancePtr, Reentrant::innerPtr);
    EXPECT_NE(instancePtr, Reentrant::outerPtr.get());
    EXPECT_EQ(Std_Singleton<Reentrant>::getInstancePtr(), instancePtr);
}

// The readers learn of the instance in a way that orders nothing, so that ThreadSanitizer reports a
// plain pointer.
TEST(StdSingleton, IsReadByAnyThread)
{
    using T = Counted<5>;
    std::atomic<bool> isMade{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&isMade]
            {
                while (!isMade.load(std::memory_order_relaxed))
                {
                    std::this_thread::yield();
                }
                EXPECT_EQ(Std_Singleton<T>::getInstancePtr()->m_value, 5);
            });
    }
    Std_Singleton<T>::getInstancePtr();
    isMade.store(true, std::memory_order_relaxed);
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(T::constructed, 1);
}

struct Talking
{
    ~Talking() { std::fprintf(stderr, "destroyed\n"); }

    // Longer than a short string, so that AddressSanitizer sees a destroyed one.
    std::string m_text = "a text that does not fit into the string object itself";
};

TEST(StdSingletonExit, StaticDestructorsUseTheInstance)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            struct AtExit
            {
                ~AtExit()
                {
                    std::fprintf(stderr, "%s\n",
                                 Std_Singleton<Talking>::getInstancePtr()->m_text.c_str());
                }
            };
            static const AtExit atExit;
            Std_Singleton<Talking>::getInstancePtr();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^a text that does not fit into the string object itself\n$");
}

}  // namespace
