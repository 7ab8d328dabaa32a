// What queues trace, level, function and order, from creation to destruction.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "support/StepRecorder.h"
#include "utils/queue/Queue.h"

namespace
{

using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;
using utils::queue::Queue;

Queue* selectNone(const Macro*, std::vector<Queue*>)
{
    return nullptr;
}

class QueueTrace : public testing::Test
{
  protected:
    ~QueueTrace() override { m_recorder.setLevel(0); }

    StepRecorder m_recorder;
    Macro m_macro{"m"};
};

TEST_F(QueueTrace, OfCreation)
{
    m_recorder.setQueueLevel(1);
    const Queue queue("q", 18446744073709551615UL);
    EXPECT_THAT(
        m_recorder.take(),
        ElementsAre("1 Queue/Queue: Creating queue 'q' - max. macros = 18446744073709551615."));
}

TEST_F(QueueTrace, OfDestructionShowsHowTheQueueIsEmptied)
{
    std::optional<Queue> queue(std::in_place, "q", 2);
    queue->write(&m_macro, 0);
    m_recorder.setQueueLevel(2);
    queue.reset();
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Queue/~Queue: Destroying queue 'q'.",
                                               "1 Queue/read: Reading macro from queue 'q'.",
                                               "2 Queue/read: Read macro 'm' from queue 'q'.",
                                               "1 Queue/read: Reading macro from queue 'q'."));
}

TEST_F(QueueTrace, OfWriting)
{
    Queue queue("q", 1);
    m_recorder.setQueueLevel(2);
    queue.write(&m_macro, 0);
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Queue/write: Writing macro 'm' to queue 'q'."));
}

TEST_F(QueueTrace, OfAWriteThatFails)
{
    Queue queue("q", 0);
    m_recorder.setQueueLevel(2);
    queue.write(&m_macro, 0);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Queue/write: Writing macro 'm' to queue 'q'.",
                            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to "
                            "queue 'q'."));
}

TEST_F(QueueTrace, OfReadingAtLevelTwo)
{
    Queue queue("q", 1);
    queue.write(&m_macro, 0);
    m_recorder.setQueueLevel(2);
    Macro* read = nullptr;
    queue.read(read, 0);
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Queue/read: Reading macro from queue 'q'.",
                                               "2 Queue/read: Read macro 'm' from queue 'q'."));
}

TEST_F(QueueTrace, OfReadingAtLevelOne)
{
    Queue queue("q", 1);
    queue.write(&m_macro, 0);
    m_recorder.setQueueLevel(1);
    Macro* read = nullptr;
    queue.read(read, 0);
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Queue/read: Reading macro from queue 'q'."));
}

TEST_F(QueueTrace, OfAReadThatFails)
{
    Queue queue("q", 1);
    m_recorder.setQueueLevel(2);
    Macro* read = nullptr;
    queue.read(read, 0);
    EXPECT_THAT(m_recorder.take(), ElementsAre("1 Queue/read: Reading macro from queue 'q'."));
}

TEST_F(QueueTrace, OfStartingAndStoppingToForward)
{
    Queue a("a", 1);
    Queue b("b", 1);
    Queue queue("q", 1);
    m_recorder.setQueueLevel(1);
    queue.startForwardingTo(&a);
    queue.startForwardingTo(&b);
    queue.stopForwardingTo(&a);
    queue.stopForwardingTo(&b);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Queue/startForwardingTo: Forwarding macros written to queue 'q' to "
                            "queue 'a'. Number of queues to forward to = 1.",
                            "1 Queue/startForwardingTo: Forwarding macros written to queue 'q' to "
                            "queue 'b'. Number of queues to forward to = 2.",
                            "1 Queue/stopForwardingTo: Removed queue 'a' from the list of queues "
                            "to forward to for queue 'q'. Number of queues to forward to = 1.",
                            "1 Queue/stopForwardingTo: Removed queue 'b' from the list of queues "
                            "to forward to for queue 'q'. Number of queues to forward to = 0."));
}

TEST_F(QueueTrace, OfForwardingThroughAChain)
{
    Queue last("last", 1);
    Queue middle("middle", 1);
    Queue first("first", 1);
    first.startForwardingTo(&middle);
    middle.startForwardingTo(&last);
    m_recorder.setQueueLevel(2);
    first.write(&m_macro, 0);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Queue/write: Writing macro 'm' to queue 'first'.",
                            "1 Queue/write: Forwarding macro 'm' written to queue 'first' to queue "
                            "'middle'.",
                            "1 Queue/write: Writing macro 'm' to queue 'middle'.",
                            "1 Queue/write: Forwarding macro 'm' written to queue 'middle' to "
                            "queue 'last'.",
                            "1 Queue/write: Writing macro 'm' to queue 'last'."));
}

TEST_F(QueueTrace, OfAForwardedWriteThatFails)
{
    Queue target("target", 0);
    Queue queue("q", 1);
    queue.startForwardingTo(&target);
    m_recorder.setQueueLevel(2);
    queue.write(&m_macro, 0);
    EXPECT_THAT(
        m_recorder.take(),
        ElementsAre(
            "1 Queue/write: Writing macro 'm' to queue 'q'.",
            "1 Queue/write: Forwarding macro 'm' written to queue 'q' to queue 'target'.",
            "1 Queue/write: Writing macro 'm' to queue 'target'.",
            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to queue 'target'.",
            "ERROR: QueueWriteError Queue/write: Could not write macro 'm' to queue 'q'."));
}

TEST_F(QueueTrace, OfAnEmptySelectionIsFollowedByItsReport)
{
    Queue target("target", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&target);
    queue.setQueueSelectionAlgorithm(&selectNone);
    m_recorder.setQueueLevel(2);
    queue.write(&m_macro, 0);
    EXPECT_THAT(m_recorder.take(),
                ElementsAre("1 Queue/write: Writing macro 'm' to queue 'q'.",
                            "ERROR: NullPtr Queue/write: No forwarding queue selected to write "
                            "macro 'm' to queue 'q'."));
}

TEST_F(QueueTrace, NoneOfLookUpListingAndAccessors)
{
    const Queue queue("q", 1);
    m_recorder.setQueueLevel(2);
    Queue::getQueuePtr("q");
    std::ostringstream os;
    Queue::outputQueues(os);
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

TEST_F(QueueTrace, NoneAtLevelZeroNorByOtherFlags)
{
    m_recorder.setCommandLevel(9);
    m_recorder.setTaskLevel(9);
    {
        Queue target("target", 1);
        Queue queue("q", 1);
        queue.startForwardingTo(&target);
        queue.write(&m_macro, 0);
        queue.stopForwardingTo(&target);
        Macro* read = nullptr;
        target.read(read, 0);
    }
    EXPECT_THAT(m_recorder.take(), IsEmpty());
}

}  // namespace
