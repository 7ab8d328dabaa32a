// Forwarding:
// - starting and stopping, redundant requests, the order of the list;
// - a forwarding queue stores nothing itself; macro and wait go on unchanged, by the virtual write;
// - chains; failures are reported by every queue on the way, the target first;
// - the selection function: replaceable, gets the macro and a copy of the list, may choose none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "support/StepRecorder.h"
#include "utils/queue/Queue.h"

namespace
{

using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;
using utils::queue::Queue;

// What the selection functions below got to see.
const Macro* seenMacro = nullptr;
std::vector<Queue*> seenQueues;

Queue* selectLast(const Macro* macroPtr, std::vector<Queue*> queues)
{
    seenMacro = macroPtr;
    seenQueues = queues;
    Queue* const last = queues.back();
    queues.clear();
    return last;
}

Queue* selectNone(const Macro*, std::vector<Queue*>)
{
    return nullptr;
}

// A queue that keeps what is written to it for the test.
class SpyQueue : public Queue
{
  public:
    explicit SpyQueue(const std::string& name) : Queue(name, 1) {}
    bool write(const Macro* macroPtr, int waitInMs) override
    {
        m_macroPtr = macroPtr;
        m_waitInMs = waitInMs;
        return m_result;
    }

    const Macro* m_macroPtr = nullptr;
    int m_waitInMs = 0;
    bool m_result = true;
};

TEST(QueueForwarding, TypeOfTheSelectionFunctionIsAPlainPointer)
{
    EXPECT_TRUE((std::is_same_v<Queue::QueueSelectionAlgorithm,
                                Queue* (*)(const Macro*, std::vector<Queue*>)>));
}

TEST(QueueForwarding, CountsTheQueuesForwardedTo)
{
    Queue a("a", 1);
    Queue b("b", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 1UL);
    queue.startForwardingTo(&b);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 2UL);
    queue.stopForwardingTo(&a);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 1UL);
    queue.stopForwardingTo(&b);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 0UL);
}

TEST(QueueForwarding, ToAQueueTwiceIsReportedAndChangesNothing)
{
    StepRecorder recorder;
    Queue a("a", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    recorder.setQueueLevel(2);
    queue.startForwardingTo(&a);
    EXPECT_THAT(recorder.take(),
                ElementsAre("WARNING: AlreadyExists Queue/startForwardingTo: Already forwarding "
                            "macros written to queue 'q' to queue 'a'."));
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 1UL);
    recorder.setQueueLevel(0);
}

TEST(QueueForwarding, StoppingWhereThereIsNoneIsReportedAndChangesNothing)
{
    StepRecorder recorder;
    Queue a("a", 1);
    Queue b("b", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    recorder.setQueueLevel(2);
    queue.stopForwardingTo(&b);
    EXPECT_THAT(recorder.take(),
                ElementsAre("WARNING: DoesNotExist Queue/stopForwardingTo: Not forwarding macros "
                            "written to queue 'q' to queue 'b'."));
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 1UL);
    recorder.setQueueLevel(0);
}

TEST(QueueForwarding, StoringStartsAgainWhenForwardingEnds)
{
    Macro macro("m");
    Queue a("a", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    queue.stopForwardingTo(&a);
    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(queue.size(), 1U);
    EXPECT_EQ(a.size(), 0U);
}

TEST(QueueForwarding, StoresNothingItself)
{
    Macro macro("m");
    Queue a("a", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_EQ(a.size(), 1U);
}

TEST(QueueForwarding, NeverFallsBackToItself)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue full("full", 0);
    Queue queue("q", 5);
    queue.startForwardingTo(&full);
    EXPECT_FALSE(queue.write(&macro, 0));
    EXPECT_EQ(queue.size(), 0U);
}

TEST(QueueForwarding, HandsMacroAndWaitToTheVirtualWrite)
{
    Macro macro("m");
    for (const int wait : {0, -1, 1234, -77, 2147483647})
    {
        SpyQueue spy("spy");
        Queue queue("q", 1);
        queue.startForwardingTo(&spy);
        EXPECT_TRUE(queue.write(&macro, wait));
        EXPECT_EQ(spy.m_macroPtr, &macro);
        EXPECT_EQ(spy.m_waitInMs, wait);
        EXPECT_EQ(spy.size(), 0U);
    }
}

TEST(QueueForwarding, ReportsAFailureOfTheVirtualWrite)
{
    StepRecorder recorder;
    Macro macro("m");
    SpyQueue spy("spy");
    spy.m_result = false;
    Queue queue("q", 1);
    queue.startForwardingTo(&spy);
    EXPECT_FALSE(queue.write(&macro, 0));
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: QueueWriteError Queue/write: Could not write "
                                             "macro 'm' to queue 'q'."));
}

TEST(QueueForwarding, GoesThroughChains)
{
    Macro macro("m");
    Queue last("last", 1);
    Queue middle("middle", 1);
    Queue first("first", 1);
    first.startForwardingTo(&middle);
    middle.startForwardingTo(&last);
    EXPECT_TRUE(first.write(&macro, 0));
    EXPECT_EQ(first.size(), 0U);
    EXPECT_EQ(middle.size(), 0U);
    EXPECT_EQ(last.size(), 1U);
}

TEST(QueueForwarding, FailureIsReportedByEveryQueueTheTargetFirst)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue last("last", 0);
    Queue middle("middle", 1);
    Queue first("first", 1);
    first.startForwardingTo(&middle);
    middle.startForwardingTo(&last);
    EXPECT_FALSE(first.write(&macro, 0));
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: QueueWriteError Queue/write: Could not write macro 'm' to "
                            "queue 'last'.",
                            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to "
                            "queue 'middle'.",
                            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to "
                            "queue 'first'."));
}

TEST(QueueForwarding, SelectionFunctionGetsTheMacroAndACopyOfTheList)
{
    Macro macro("m");
    Queue a("a", 5);
    Queue b("b", 5);
    Queue c("c", 5);
    Queue queue("q", 1);
    queue.startForwardingTo(&b);
    queue.startForwardingTo(&a);
    queue.startForwardingTo(&c);
    queue.setQueueSelectionAlgorithm(&selectLast);

    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(seenMacro, &macro);
    EXPECT_THAT(seenQueues, ElementsAre(&b, &a, &c));
    EXPECT_EQ(c.size(), 1U);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 3UL);
}

TEST(QueueForwarding, StoppingKeepsTheOrderOfTheRest)
{
    Macro macro("m");
    Queue a("a", 5);
    Queue b("b", 5);
    Queue c("c", 5);
    Queue queue("q", 1);
    for (const Queue* const target : {&a, &b, &c})
    {
        queue.startForwardingTo(target);
    }
    queue.stopForwardingTo(&b);
    queue.setQueueSelectionAlgorithm(&selectLast);
    queue.write(&macro, 0);
    EXPECT_THAT(seenQueues, ElementsAre(&a, &c));
}

TEST(QueueForwarding, SelectionFunctionIsNotCalledWithoutForwarding)
{
    Macro macro("m");
    Queue queue("q", 1);
    queue.setQueueSelectionAlgorithm(&selectNone);
    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(queue.size(), 1U);
}

TEST(QueueForwarding, SelectingNoneFailsWithItsOwnReportAlone)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue a("a", 5);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    queue.setQueueSelectionAlgorithm(&selectNone);
    EXPECT_FALSE(queue.write(&macro, 0));
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: NullPtr Queue/write: No forwarding queue selected to write "
                            "macro 'm' to queue 'q'."));
    EXPECT_EQ(a.size(), 0U);
    EXPECT_EQ(queue.size(), 0U);
}

TEST(QueueForwarding, SelectingNoneInAChainIsReportedByTheQueuesBefore)
{
    StepRecorder recorder;
    Macro macro("m");
    Queue a("a", 5);
    Queue middle("middle", 1);
    Queue first("first", 1);
    first.startForwardingTo(&middle);
    middle.startForwardingTo(&a);
    middle.setQueueSelectionAlgorithm(&selectNone);
    EXPECT_FALSE(first.write(&macro, 0));
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: NullPtr Queue/write: No forwarding queue selected to write "
                            "macro 'm' to queue 'middle'.",
                            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to "
                            "queue 'first'."));
}

TEST(QueueForwarding, TheDefaultSelectionCanBePutBack)
{
    Macro macro("m");
    Queue a("a", 5);
    Queue b("b", 5);
    Queue queue("q", 1);
    queue.startForwardingTo(&a);
    queue.startForwardingTo(&b);
    queue.setQueueSelectionAlgorithm(&selectLast);
    queue.write(&macro, 0);
    queue.setQueueSelectionAlgorithm(&Queue::selectLeastUtilizedQueue);
    queue.write(&macro, 0);
    EXPECT_EQ(b.size(), 1U);
    EXPECT_EQ(a.size(), 1U);
}

TEST(QueueForwarding, ReplacingTheSelectionIsNeitherCheckedNorTraced)
{
    StepRecorder recorder;
    Queue queue("q", 1);
    recorder.setQueueLevel(2);
    queue.setQueueSelectionAlgorithm(&selectNone);
    EXPECT_THAT(recorder.take(), IsEmpty());
    recorder.setQueueLevel(0);
}

TEST(QueueForwarding, SpreadsMacrosOverTheTargets)
{
    Macro macro("m");
    Queue a("a", 10);
    Queue b("b", 10);
    Queue c("c", 10);
    Queue queue("q", 1);
    for (const Queue* const target : {&a, &b, &c})
    {
        queue.startForwardingTo(target);
    }
    for (int i = 0; i < 7; ++i)
    {
        EXPECT_TRUE(queue.write(&macro, 0));
    }
    EXPECT_EQ(a.size(), 3U);
    EXPECT_EQ(b.size(), 2U);
    EXPECT_EQ(c.size(), 2U);
}

}  // namespace
