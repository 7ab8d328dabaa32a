// Tasks from their start to their end:
// - a task calls its entry with its argument on a thread of its own, and knows its handle;
// - the options come back as they were given, in a record of the agreed layout;
// - join waits, returns the exit status, can be repeated and called by several threads; it refuses
//   null, a task that is not joinable, and the calling task itself;
// - destroy waits for a joinable task, not for one that is not joinable, and not on the task
//   itself, which goes on and still knows its options;
// - the kernel knows the task by its name, in 15 characters that tell long names apart;
// - the stack has the size asked for, and the default one when that is impossible;
// - a task may leave through pthread_exit(), and thousands of tasks come and go.

#include <errno.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libos/osError.h>
#include <libos/osTask.h>
#include <pthread.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <latch>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "Tasks.h"

namespace
{

using test::joinable;
using test::runTask;
using test::startTask;
using test::Work;

static_assert(sizeof(osTaskOptions_t) == 184);
static_assert(offsetof(osTaskOptions_t, priority) == 128);
static_assert(offsetof(osTaskOptions_t, stackSize) == 136);
static_assert(offsetof(osTaskOptions_t, persist) == 144);
static_assert(offsetof(osTaskOptions_t, joinable) == 148);
static_assert(offsetof(osTaskOptions_t, destroyHook) == 152);
static_assert(offsetof(osTaskOptions_t, user1) == 160);
static_assert(offsetof(osTaskOptions_t, user2) == 168);
static_assert(offsetof(osTaskOptions_t, reserved) == 176);

TEST(Task, CallsItsEntryWithItsArgument)
{
    int argument = 41;
    const osTaskOptions_t options = joinable();
    osTaskHandle_t const task =
        osTaskCreate([](void* arg) { return ++*static_cast<int*>(arg); }, &options, &argument);
    ASSERT_NE(task, nullptr);
    EXPECT_EQ(osTaskJoin(task), 42);
    EXPECT_EQ(argument, 42);
    osTaskDestroy(task);
}

TEST(Task, RunsOnAThreadOfItsOwn)
{
    const auto caller = std::this_thread::get_id();
    EXPECT_EQ(runTask([&] { return std::this_thread::get_id() != caller ? 1 : 0; }), 1);
}

TEST(Task, KnowsItsHandle)
{
    osTaskHandle_t self = nullptr;
    Work work = [&]
    {
        self = osTaskSelf();
        return 0;
    };
    osTaskHandle_t const task = startTask(work);
    osTaskJoin(task);
    EXPECT_EQ(self, task);
    osTaskDestroy(task);
}

TEST(Task, SelfIsNullOnOtherThreads)
{
    EXPECT_EQ(osTaskSelf(), nullptr);
    osTaskHandle_t self = &self;
    std::thread([&] { self = osTaskSelf(); }).join();
    EXPECT_EQ(self, nullptr);
}

TEST(Task, WithoutEntryIsNotStarted)
{
    osSetLastError(0);
    EXPECT_EQ(osTaskCreate(nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
}

TEST(Task, GivesItsOptionsBack)
{
    int target = 0;
    osTaskOptions_t options = joinable("name of the task");
    options.priority = 5;
    options.stackSize = 262'144;
    options.persist = 3;
    options.destroyHook = &target;
    options.user1 = 6;
    options.user2 = 7;
    options.reserved = &options;
    Work work = [] { return 0; };
    osTaskHandle_t const task = startTask(work, options);
    const osTaskOptions_t result = osTaskGetOptions(task);
    EXPECT_STREQ(result.name, "name of the task");
    EXPECT_EQ(result.priority, 5);
    EXPECT_EQ(result.stackSize, 262'144U);
    EXPECT_EQ(result.persist, 3);
    EXPECT_EQ(result.joinable, 1);
    EXPECT_EQ(result.destroyHook, &target);
    EXPECT_EQ(result.user1, 6U);
    EXPECT_EQ(result.user2, 7U);
    EXPECT_EQ(result.reserved, &options);
    osTaskDestroy(task);
}

TEST(Task, SeesItsOptionsFromItsFirstInstruction)
{
    osTaskOptions_t options = joinable("self");
    options.user1 = 6;
    EXPECT_EQ(
        runTask([] { return static_cast<int>(osTaskGetOptions(osTaskSelf()).user1); }, options), 6);
}

TEST(Task, OptionsOfNullAreAllZero)
{
    const osTaskOptions_t options = osTaskGetOptions(nullptr);
    std::array<unsigned char, sizeof options> bytes{};
    std::memcpy(bytes.data(), &options, sizeof options);
    EXPECT_THAT(bytes, testing::Each(0));
}

TEST(Task, WithoutOptionsIsNotJoinable)
{
    static std::latch hasRun(1);
    osTaskHandle_t const task = osTaskCreate(
        [](void*)
        {
            hasRun.count_down();
            return 0;
        },
        nullptr, nullptr);
    ASSERT_NE(task, nullptr);
    hasRun.wait();
    osSetLastError(0);
    EXPECT_EQ(osTaskJoin(task), -1);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
    osTaskDestroy(task);
}

TEST(TaskJoin, WaitsForTheEnd)
{
    std::latch mayEnd(1);
    std::atomic<bool> hasEnded{false};
    Work work = [&]
    {
        mayEnd.wait();
        hasEnded = true;
        return -7;
    };
    osTaskHandle_t const task = startTask(work);
    mayEnd.count_down();
    EXPECT_EQ(osTaskJoin(task), -7);
    EXPECT_TRUE(hasEnded);
    osTaskDestroy(task);
}

TEST(TaskJoin, GivesTheSameStatusAgain)
{
    Work work = [] { return 9; };
    osTaskHandle_t const task = startTask(work);
    EXPECT_EQ(osTaskJoin(task), 9);
    EXPECT_EQ(osTaskJoin(task), 9);
    EXPECT_EQ(osTaskJoin(task), 9);
    osTaskDestroy(task);
}

TEST(TaskJoin, GivesSeveralThreadsTheSameStatus)
{
    for (int round = 0; round < 50; ++round)
    {
        std::latch everybody(5);
        Work work = [&]
        {
            everybody.arrive_and_wait();
            return 9;
        };
        osTaskHandle_t const task = startTask(work);
        std::vector<std::jthread> joiners;
        for (int i = 0; i < 4; ++i)
        {
            joiners.emplace_back(
                [&]
                {
                    everybody.arrive_and_wait();
                    EXPECT_EQ(osTaskJoin(task), 9);
                });
        }
        joiners.clear();
        osTaskDestroy(task);
    }
}

TEST(TaskJoin, RefusesNull)
{
    osSetLastError(0);
    EXPECT_EQ(osTaskJoin(nullptr), -1);
    EXPECT_EQ(osGetLastError(), static_cast<uint32_t>(EINVAL));
}

TEST(TaskJoin, RefusesTheCallingTask)
{
    uint32_t error = 0;
    EXPECT_EQ(runTask(
                  [&]
                  {
                      const int status = osTaskJoin(osTaskSelf());
                      error = osGetLastError();
                      return status;
                  }),
              -1);
    EXPECT_EQ(error, static_cast<uint32_t>(EDEADLK));
}

TEST(TaskDestroy, WaitsForAJoinableTask)
{
    for (int round = 0; round < 200; ++round)
    {
        std::latch mayEnd(1);
        std::atomic<bool> hasEnded{false};
        Work work = [&]
        {
            mayEnd.wait();
            hasEnded = true;
            return 0;
        };
        osTaskHandle_t const task = startTask(work);
        mayEnd.count_down();
        osTaskDestroy(task);
        ASSERT_TRUE(hasEnded);
    }
}

TEST(TaskDestroy, DoesNotWaitForATaskThatIsNotJoinable)
{
    std::latch isDestroyed(1);
    std::latch hasEnded(1);
    uintptr_t user = 0;
    Work work = [&]
    {
        isDestroyed.wait();
        user = osTaskGetOptions(osTaskSelf()).user1;
        hasEnded.count_down();
        return 0;
    };
    osTaskOptions_t options{};
    options.user1 = 5;
    osTaskHandle_t const task = startTask(work, options);
    osTaskDestroy(task);
    isDestroyed.count_down();
    hasEnded.wait();
    EXPECT_EQ(user, 5U);
}

TEST(TaskDestroy, OnTheTaskItselfDoesNotWait)
{
    for (const int isJoinable : {0, 1})
    {
        std::latch hasEnded(1);
        uintptr_t user = 0;
        Work work = [&]
        {
            osTaskDestroy(osTaskSelf());
            user = osTaskGetOptions(osTaskSelf()).user1;
            hasEnded.count_down();
            return 0;
        };
        osTaskOptions_t options = joinable();
        options.joinable = isJoinable;
        options.user1 = 5;
        ASSERT_NE(startTask(work, options), nullptr);
        hasEnded.wait();
        EXPECT_EQ(user, 5U);
    }
}

TEST(TaskDestroy, OfNullDoesNothing)
{
    osTaskDestroy(nullptr);
}

std::string kernelName(const std::string& name)
{
    std::array<char, 16> result{};
    runTask([&] { return pthread_getname_np(pthread_self(), result.data(), result.size()); },
            joinable(name));
    return result.data();
}

TEST(TaskName, IsKnownToTheKernel)
{
    EXPECT_EQ(kernelName("worker"), "worker");
    EXPECT_EQ(kernelName("exactly-15-long"), "exactly-15-long");
}

TEST(TaskName, KeepsBothEndsWhenItIsLong)
{
    EXPECT_EQ(kernelName("acquisition-channel-12"), "acquisi~nnel-12");
    EXPECT_EQ(kernelName("acquisition-channel-13"), "acquisi~nnel-13");
    EXPECT_EQ(kernelName("exactly-16--long"), "exactly~6--long");
}

TEST(TaskName, MayFillItsField)
{
    osTaskOptions_t options = joinable(std::string(127, 'n'));
    options.name[127] = 'e';  // not terminated
    EXPECT_EQ(runTask([] { return 3; }, options), 3);
}

TEST(TaskName, IsTheCreatorsWhenItIsEmpty)
{
    std::array<char, 16> own{};
    pthread_getname_np(pthread_self(), own.data(), own.size());
    EXPECT_EQ(kernelName(""), own.data());
}

size_t stackSizeOfTask(uint64_t asked)
{
    size_t size = 0;
    osTaskOptions_t options = joinable();
    options.stackSize = asked;
    EXPECT_EQ(runTask(
                  [&]
                  {
                      pthread_attr_t attributes;
                      void* address = nullptr;
                      pthread_getattr_np(pthread_self(), &attributes);
                      pthread_attr_getstack(&attributes, &address, &size);
                      pthread_attr_destroy(&attributes);
                      return 3;
                  },
                  options),
              3);
    return size;
}

TEST(TaskStack, HasTheSizeAskedFor)
{
    constexpr size_t asked = 20'000'001;  // more than the default, and not a multiple of anything
    EXPECT_GE(stackSizeOfTask(asked), asked);
}

TEST(TaskStack, IsTheDefaultOneForZero)
{
    pthread_attr_t attributes;
    size_t defaultSize = 0;
    pthread_attr_init(&attributes);
    pthread_attr_getstacksize(&attributes, &defaultSize);
    pthread_attr_destroy(&attributes);
    EXPECT_GE(stackSizeOfTask(0), defaultSize);
}

TEST(TaskStack, OfOneByteIsTheSmallestThatWorks)
{
    EXPECT_GT(stackSizeOfTask(1), 1U);
}

TEST(TaskStack, IsTheDefaultOneWhenTheSizeIsImpossible)
{
    for (const uint64_t impossible : {std::numeric_limits<uint64_t>::max(), uint64_t{1} << 60})
    {
        EXPECT_LT(stackSizeOfTask(impossible), size_t{1} << 40);
    }
}

TEST(Task, MayLeaveThroughPthreadExit)
{
    osTaskHandle_t const task =
        osTaskCreate([](void*) -> int { pthread_exit(nullptr); }, nullptr, nullptr);
    ASSERT_NE(task, nullptr);
    osTaskDestroy(task);

    const osTaskOptions_t options = joinable();
    osTaskHandle_t const joined =
        osTaskCreate([](void*) -> int { pthread_exit(nullptr); }, &options, nullptr);
    EXPECT_EQ(osTaskJoin(joined), 0);
    osTaskDestroy(joined);
}

TEST(Task, ThousandsComeAndGo)
{
    for (int round = 0; round < 2'000; ++round)
    {
        ASSERT_EQ(runTask([round] { return round; }), round);
    }
}

TEST(Task, ThousandsThatNobodyJoinsComeAndGo)
{
    constexpr int count = 2'000;
    static std::latch all(count);
    for (int round = 0; round < count; ++round)
    {
        osTaskHandle_t const task = osTaskCreate(
            [](void*)
            {
                all.count_down();
                return 0;
            },
            nullptr, nullptr);
        ASSERT_NE(task, nullptr);
        osTaskDestroy(task);
    }
    all.wait();
}

}  // namespace
