// What queues ask of the platform, seen by standing in for it:
// - the capacity, narrowed to 32 bits, the handle and the waits go to it unchanged;
// - cleaning up reads without waiting, until a read fails, then destroys the platform's queue once;
// - without a platform queue every operation fails cleanly, and the platform is spared.

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libos/osQueue.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "support/StepRecorder.h"
#include "utils/queue/Queue.h"

namespace
{

struct Platform
{
    bool hasNoQueues = false;
    osQueueHandle_t lastHandle = nullptr;
    std::vector<std::string> calls;

    void note(const char* call, osQueueHandle_t handle, const std::string& rest)
    {
        calls.push_back(std::string(call) + (handle == nullptr ? " null" : "") + rest);
    }
};

Platform platform;

template <typename Function>
Function* findOriginal(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

osQueueHandle_t osQueueCreate(uint32_t capacity)
{
    platform.calls.push_back("create " + std::to_string(capacity));
    platform.lastHandle = platform.hasNoQueues
                              ? nullptr
                              : findOriginal<decltype(osQueueCreate)>("osQueueCreate")(capacity);
    return platform.lastHandle;
}

void osQueueDestroy(osQueueHandle_t queue)
{
    platform.note("destroy", queue, "");
    findOriginal<decltype(osQueueDestroy)>("osQueueDestroy")(queue);
}

int osQueueWrite(osQueueHandle_t queue, void* item, int waitMs)
{
    platform.note("write", queue, " " + std::to_string(waitMs));
    return findOriginal<decltype(osQueueWrite)>("osQueueWrite")(queue, item, waitMs);
}

int osQueueRead(osQueueHandle_t queue, void*& item, int waitMs)
{
    platform.note("read", queue, " " + std::to_string(waitMs));
    return findOriginal<decltype(osQueueRead)>("osQueueRead")(queue, item, waitMs);
}

uint32_t osQueueSize(osQueueHandle_t queue)
{
    platform.note("size", queue, "");
    return findOriginal<decltype(osQueueSize)>("osQueueSize")(queue);
}

namespace
{

using test::StepRecorder;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using utils::command::Macro;
using utils::queue::Queue;

TEST(QueuePlatform, GetsTheCapacityAsItIs)
{
    const Queue queue("q", 4294967295UL);
    EXPECT_THAT(platform.calls, ElementsAre("create 4294967295"));
}

TEST(QueuePlatform, GetsTheLowerThirtyTwoBitsOfTheCapacity)
{
    const Queue queue("q", 4294967296UL + 5);
    EXPECT_THAT(platform.calls, ElementsAre("create 5"));
    EXPECT_EQ(queue.getMaxMacros(), 4294967301UL);
}

TEST(QueuePlatform, MayGetACapacityOfZeroByNarrowing)
{
    const Queue queue("q", 4294967296UL);
    EXPECT_THAT(platform.calls, ElementsAre("create 0"));
}

TEST(QueuePlatform, GetsTheWaitsUnchanged)
{
    Macro macro("m");
    Macro* read = nullptr;
    Queue queue("q", 5);
    platform.calls.clear();
    for (const int wait : {0, -1, 7, 2147483647, -5})
    {
        queue.write(&macro, wait);
        queue.read(read, wait);
    }
    EXPECT_THAT(platform.calls,
                ElementsAre("write 0", "read 0", "write -1", "read -1", "write 7", "read 7",
                            "write 2147483647", "read 2147483647", "write -5", "read -5"));
}

TEST(QueuePlatform, IsAskedForTheSize)
{
    const Queue queue("q", 1);
    platform.calls.clear();
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_THAT(platform.calls, ElementsAre("size"));
}

TEST(QueuePlatform, HandleIsShown)
{
    const Queue queue("q", 1);
    std::ostringstream expected;
    expected << "\nQueue handle        = " << platform.lastHandle << "\n";
    std::ostringstream os;
    os << queue;
    EXPECT_THAT(os.str(), HasSubstr(expected.str()));
}

TEST(QueuePlatform, IsReadWithoutWaitUntilEmptyThenDestroyed)
{
    Macro macro("m");
    std::optional<Queue> queue(std::in_place, "q", 5);
    queue->write(&macro, 0);
    queue->write(&macro, 0);
    platform.calls.clear();
    queue.reset();
    EXPECT_THAT(platform.calls, ElementsAre("read 0", "read 0", "read 0", "destroy"));
}

TEST(QueuePlatform, IsDestroyedOnceByTwoCleanUps)
{
    {
        Queue queue("q", 5);
        queue.cleanUp();
        queue.cleanUp();
    }
    EXPECT_THAT(platform.calls, ElementsAre("create 5", "read 0", "destroy"));
}

TEST(QueuePlatform, StoresNothingInTheQueueThatForwards)
{
    Macro macro("m");
    Queue target("target", 1);
    Queue source("source", 1);
    source.startForwardingTo(&target);
    platform.calls.clear();
    source.write(&macro, 3);
    source.write(&macro, 0);
    EXPECT_THAT(platform.calls, Contains("write 3").Times(1));
    EXPECT_THAT(platform.calls, Contains("write 0").Times(1));
}

class QueueWithoutPlatformQueue : public testing::Test
{
  protected:
    QueueWithoutPlatformQueue() { platform.hasNoQueues = true; }

    StepRecorder m_recorder;
    Macro m_macro{"m"};
};

TEST_F(QueueWithoutPlatformQueue, IsRegisteredAllTheSame)
{
    const Queue queue("q", 5);
    EXPECT_EQ(Queue::getQueuePtr("q"), &queue);
    EXPECT_EQ(queue.getMaxMacros(), 5UL);
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

TEST_F(QueueWithoutPlatformQueue, FailsCleanly)
{
    {
        Queue queue("q", 5);
        EXPECT_FALSE(queue.write(&m_macro, -1));
        Macro* read = &m_macro;
        EXPECT_FALSE(queue.read(read, -1));
        EXPECT_EQ(read, &m_macro);
        EXPECT_EQ(queue.size(), 0U);
        queue.cleanUp();
    }
    EXPECT_THAT(m_recorder.take(), ElementsAre("ERROR: QueueWriteError Queue/write: Could not "
                                               "write macro 'm' to queue 'q'."));
    for (const std::string& call : platform.calls)
    {
        EXPECT_THAT(call, Not(HasSubstr("null")));
    }
}

TEST_F(QueueWithoutPlatformQueue, ShowsANullHandle)
{
    const Queue queue("q", 5);
    std::ostringstream os;
    os << queue;
    EXPECT_THAT(os.str(), HasSubstr("\nQueue handle        = 0\n"));
}

TEST_F(QueueWithoutPlatformQueue, LooksEmptyToTheSelection)
{
    Queue broken("broken", 5);
    platform.hasNoQueues = false;
    Queue good("good", 5);
    good.write(&m_macro, 0);
    EXPECT_EQ(Queue::selectLeastUtilizedQueue(&m_macro, {&good, &broken}), &broken);
}

}  // namespace
