// Reading and writing:
// - macros leave in the order in which they came, as pointers;
// - the capacity is exact, 0 included;
// - a write into a full queue fails and is reported, a read from an empty one fails silently;
// - waits: none, bounded, without limit.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "support/StepRecorder.h"
#include "utils/queue/Queue.h"

namespace
{

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;
using utils::queue::Queue;

constexpr int NO_WAIT = 0;
constexpr int WAIT_FOREVER = -1;

TEST(QueueReadWrite, MacrosLeaveInTheOrderInWhichTheyCame)
{
    Macro macros[] = {Macro("a"), Macro("b"), Macro("c")};
    Queue queue("q", 3);
    for (const Macro& macro : macros)
    {
        EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    }
    EXPECT_EQ(queue.size(), 3U);
    for (const Macro& macro : macros)
    {
        Macro* read = nullptr;
        EXPECT_TRUE(queue.read(read, NO_WAIT));
        EXPECT_EQ(read, &macro);
    }
    EXPECT_EQ(queue.size(), 0U);
}

TEST(QueueReadWrite, TheSameMacroMayBeQueuedSeveralTimes)
{
    Macro macro("m");
    Queue queue("q", 2);
    EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    EXPECT_EQ(queue.size(), 2U);
}

TEST(QueueReadWrite, WritingToAFullQueueFailsAndIsReported)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 2);
    queue.write(&macro, NO_WAIT);
    queue.write(&macro, NO_WAIT);
    EXPECT_THAT(recorder.take(), IsEmpty());

    EXPECT_FALSE(queue.write(&macro, NO_WAIT));
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: QueueWriteError Queue/write: Could not write "
                                             "macro 'm' to queue 'q'."));
    EXPECT_EQ(queue.size(), 2U);
}

TEST(QueueReadWrite, APlaceThatBecameFreeIsUsed)
{
    Macro macro("m");
    Queue queue("q", 1);
    Macro* read = nullptr;
    for (int i = 0; i < 1000; ++i)
    {
        ASSERT_TRUE(queue.write(&macro, NO_WAIT));
        ASSERT_TRUE(queue.read(read, NO_WAIT));
    }
}

TEST(QueueReadWrite, NothingFitsIntoAQueueOfCapacityZero)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 0);
    EXPECT_EQ(queue.getMaxMacros(), 0UL);
    EXPECT_FALSE(queue.write(&macro, NO_WAIT));
    EXPECT_FALSE(queue.write(&macro, 1));
    Macro* read = nullptr;
    EXPECT_FALSE(queue.read(read, NO_WAIT));
    EXPECT_EQ(recorder.take().size(), 2U);
}

TEST(QueueReadWrite, TheGreatestCapacityIsUsable)
{
    Macro macro("m");
    Queue queue("q", 4294967295UL);
    EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    EXPECT_EQ(queue.size(), 1U);
}

TEST(QueueReadWrite, ACapacityAboveThirtyTwoBitsIsNarrowed)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 4294967296UL + 2);
    EXPECT_EQ(queue.getMaxMacros(), 4294967298UL);
    EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    EXPECT_FALSE(queue.write(&macro, NO_WAIT));
}

TEST(QueueReadWrite, ReadingFromAnEmptyQueueFailsSilentlyAndKeepsThePointer)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 1);
    Macro* read = &macro;
    EXPECT_FALSE(queue.read(read, NO_WAIT));
    EXPECT_EQ(read, &macro);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(QueueReadWrite, ABoundedReadWaitsThatLong)
{
    Queue queue("q", 1);
    Macro* read = nullptr;
    const auto begin = steady_clock::now();
    EXPECT_FALSE(queue.read(read, 50));
    const auto duration = steady_clock::now() - begin;
    EXPECT_GE(duration, milliseconds(50));
    EXPECT_LT(duration, milliseconds(20000));
}

TEST(QueueReadWrite, ABoundedWriteWaitsThatLong)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue queue("q", 1);
    queue.write(&macro, NO_WAIT);
    const auto begin = steady_clock::now();
    EXPECT_FALSE(queue.write(&macro, 50));
    const auto duration = steady_clock::now() - begin;
    EXPECT_GE(duration, milliseconds(50));
    EXPECT_LT(duration, milliseconds(20000));
}

TEST(QueueReadWrite, AReaderWaitsWithoutLimitForAMacro)
{
    Macro macro("m");
    Queue queue("q", 1);
    Macro* read = nullptr;
    std::thread reader([&] { EXPECT_TRUE(queue.read(read, WAIT_FOREVER)); });
    EXPECT_TRUE(queue.write(&macro, NO_WAIT));
    reader.join();
    EXPECT_EQ(read, &macro);
}

TEST(QueueReadWrite, AWriterWaitsWithoutLimitForAPlace)
{
    Macro first("first");
    Macro second("second");
    Queue queue("q", 1);
    queue.write(&first, NO_WAIT);
    std::thread writer([&] { EXPECT_TRUE(queue.write(&second, WAIT_FOREVER)); });
    Macro* read = nullptr;
    EXPECT_TRUE(queue.read(read, WAIT_FOREVER));
    EXPECT_EQ(read, &first);
    EXPECT_TRUE(queue.read(read, WAIT_FOREVER));
    EXPECT_EQ(read, &second);
    writer.join();
}

TEST(QueueReadWrite, ReadingIgnoresForwarding)
{
    Macro macro("m");
    Queue target("target", 1);
    Queue queue("q", 1);
    queue.write(&macro, NO_WAIT);
    queue.startForwardingTo(&target);
    Macro* read = nullptr;
    EXPECT_TRUE(queue.read(read, NO_WAIT));
    EXPECT_EQ(read, &macro);
    queue.write(&macro, NO_WAIT);
    EXPECT_FALSE(queue.read(read, NO_WAIT));
}

}  // namespace
