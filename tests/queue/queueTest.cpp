// Queues as named objects:
// - construction, accessors and the collection: look-up, listing in the order of names, removal;
// - a name that is taken is fatal, and the first queue stays;
// - output, a line flushed each;
// - cleanUp: which macros are deleted, twice, and every operation afterwards.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <type_traits>

#include "support/Commands.h"
#include "support/FatalTest.h"
#include "support/FlushedPieces.h"
#include "support/StepRecorder.h"
#include "utils/queue/Queue.h"

namespace
{

using test::CountedMacro;
using test::isReport;
using test::StepRecorder;
using testing::AllOf;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using utils::command::Macro;
using utils::queue::Queue;

const Queue* theFirstQueue = nullptr;

Queue* selectNone(const Macro*, std::vector<Queue*>)
{
    return nullptr;
}

std::string toHex(Queue::QueueSelectionAlgorithm algorithm)
{
    std::ostringstream os;
    os << std::hex << reinterpret_cast<std::uintptr_t>(algorithm);
    return os.str();
}

TEST(Queue, IsNotCopyableAndIsAWriteableQueue)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Queue>);
    EXPECT_FALSE(std::is_copy_assignable_v<Queue>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Queue>);
    EXPECT_TRUE((std::is_base_of_v<utils::queue::WriteableQueue, Queue>));
}

TEST(Queue, IsEmptyAndForwardsNowhereAtFirst)
{
    const Queue queue("q", 3);
    EXPECT_EQ(queue.getName(), "q");
    EXPECT_EQ(queue.getMaxMacros(), 3UL);
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_EQ(queue.getNumQueuesToForwardTo(), 0UL);
}

TEST(Queue, NamesTheErrorOfAFailedWrite)
{
    EXPECT_EQ(Queue::WRITE_ERROR, "QueueWriteError");
}

TEST(QueueCollection, FindsAQueueByItsName)
{
    StepRecorder recorder;
    const Queue first("first", 1);
    const Queue second("second", 1);
    EXPECT_EQ(Queue::getQueuePtr("first"), &first);
    EXPECT_EQ(Queue::getQueuePtr("second"), &second);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(QueueCollection, FindsAQueueWithAnEmptyName)
{
    const Queue queue("", 1);
    EXPECT_EQ(Queue::getQueuePtr(""), &queue);
}

TEST(QueueCollection, ReportsAnUnknownName)
{
    StepRecorder recorder;
    EXPECT_EQ(Queue::getQueuePtr("q"), nullptr);
    EXPECT_THAT(recorder.take(),
                ElementsAre("WARNING: DoesNotExist Queue/getQueuePtr: Queue 'q' does not exist."));
}

TEST(QueueCollection, LosesAQueueThatIsDestroyed)
{
    StepRecorder recorder;
    {
        const Queue queue("q", 1);
    }
    EXPECT_EQ(Queue::getQueuePtr("q"), nullptr);
    const Queue successor("q", 1);
    EXPECT_EQ(Queue::getQueuePtr("q"), &successor);
}

TEST(QueueCollection, IsTheSingletonOfItsMap)
{
    const Queue queue("q", 1);
    const auto& map =
        *utils::singleton::SingletonT<std::map<std::string, Queue*>>::getInstancePtr();
    ASSERT_EQ(map.size(), 1U);
    EXPECT_EQ(map.begin()->first, "q");
    EXPECT_EQ(map.begin()->second, &queue);
}

TEST(QueueCollection, IsListedAsABannerWhileItIsEmpty)
{
    std::ostringstream os;
    EXPECT_EQ(&Queue::outputQueues(os), &os);
    EXPECT_EQ(os.str(), "*** Current queues are:\n");
}

TEST(QueueCollection, IsListedInTheByteWiseOrderOfNamesThroughEachQueuesOutput)
{
    class NamedOnlyQueue : public Queue
    {
      public:
        explicit NamedOnlyQueue(const std::string& name) : Queue(name, 1) {}
        void output(std::ostream& os) const override { os << "<" << getName() << ">"; }
    };

    const NamedOnlyQueue b("b");
    const NamedOnlyQueue a("a");
    const NamedOnlyQueue upperB("B");
    std::ostringstream os;
    Queue::outputQueues(os);
    EXPECT_EQ(os.str(), "*** Current queues are:\n<B>\n<a>\n<b>\n");
}

TEST(QueueOutput, WritesSettingsAndTheQueuesForwardedTo)
{
    const Queue second("second", 1);
    const Queue first("first", 1);
    Queue queue("q", 18446744073709551615UL);
    queue.startForwardingTo(&second);
    queue.startForwardingTo(&first);
    queue.setQueueSelectionAlgorithm(&selectNone);
    std::ostringstream os;
    queue.output(os);
    EXPECT_THAT(os.str(), MatchesRegex("Name                = 'q'\n"
                                       "Max\\. macros         = 18446744073709551615\n"
                                       "Queue handle        = 0x[0-9a-f]+\n"
                                       "Queue selection alg\\.= 0x[0-9a-f]+\n"
                                       "Queues to forward to:\n"
                                       "    second\n"
                                       "    first\n"));
    EXPECT_THAT(os.str(), HasSubstr("alg.= 0x" + toHex(&selectNone) + "\n"));
}

TEST(QueueOutput, FlushesEachLine)
{
    const Queue target("target", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&target);
    queue.cleanUp();
    queue.setQueueSelectionAlgorithm(&selectNone);
    test::FlushedPieces os;
    queue.output(os.getStream());
    EXPECT_THAT(os.getPieces(),
                ElementsAre("Name                = 'q'\n", "Max. macros         = 1\n",
                            "Queue handle        = 0\n",
                            "Queue selection alg.= 0x" + toHex(&selectNone) + "\n",
                            "Queues to forward to:\n", "    target\n"));
}

TEST(QueueOutput, ShowsTheDefaultSelection)
{
    const Queue queue("q", 1);
    std::ostringstream os;
    EXPECT_EQ(&(os << queue), &os);
    EXPECT_THAT(os.str(), HasSubstr("Queue selection alg.= 0x" +
                                    toHex(&Queue::selectLeastUtilizedQueue) + "\n"));
}

TEST(QueueOutput, LeavesTheStreamAtDecimal)
{
    const Queue queue("q", 255);
    std::ostringstream os;
    os << std::hex << queue << 255;
    EXPECT_THAT(os.str(), HasSubstr("\nMax. macros         = 255\n"));
    EXPECT_THAT(os.str(), HasSubstr("Queues to forward to:\n255"));
}

TEST(QueueCleanUp, DeletesTheAutoDeleteMacrosOnly)
{
    std::atomic<int> numDeleted{0};
    std::atomic<int> numOrdinaryDeleted{0};
    CountedMacro ordinary("ordinary", numOrdinaryDeleted, false);
    {
        Queue queue("q", 3);
        queue.write(new CountedMacro("auto", numDeleted, true), 0);
        queue.write(&ordinary, 0);
        queue.write(new CountedMacro("auto", numDeleted, true), 0);
    }
    EXPECT_EQ(numDeleted, 2);
    EXPECT_EQ(numOrdinaryDeleted, 0);
}

TEST(QueueCleanUp, TakesTheNameOutAndMakesEveryOperationFail)
{
    Queue queue("q", 3);
    Macro macro("m");
    queue.write(&macro, 0);
    queue.cleanUp();

    StepRecorder recorder;
    EXPECT_EQ(Queue::getQueuePtr("q"), nullptr);
    recorder.take();

    EXPECT_FALSE(queue.write(&macro, -1));
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: QueueWriteError Queue/write: Could not write "
                                             "macro 'm' to queue 'q'."));

    Macro* read = &macro;
    EXPECT_FALSE(queue.read(read, -1));
    EXPECT_EQ(read, &macro);
    EXPECT_EQ(queue.size(), 0U);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(QueueCleanUp, ShowsThatThereIsNoPlatformQueueLeft)
{
    Queue queue("q", 3);
    queue.cleanUp();
    std::ostringstream os;
    os << queue;
    EXPECT_THAT(os.str(), HasSubstr("\nQueue handle        = 0\n"));
}

TEST(QueueCleanUp, MayBeCalledAgain)
{
    StepRecorder recorder;
    std::atomic<int> numDeleted{0};
    {
        Queue queue("q", 3);
        queue.write(new CountedMacro("auto", numDeleted, true), 0);
        queue.cleanUp();
        EXPECT_EQ(numDeleted, 1);
        queue.cleanUp();
    }
    EXPECT_EQ(numDeleted, 1);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(QueueCleanUp, StillForwards)
{
    Macro macro("m");
    Queue target("target", 1);
    Queue queue("q", 1);
    queue.startForwardingTo(&target);
    queue.cleanUp();
    EXPECT_TRUE(queue.write(&macro, 0));
    EXPECT_EQ(target.size(), 1U);
}

// Entries go by name: a queue that is cleaned up again takes its successor out.
TEST(QueueCleanUp, ErasesTheNameWhateverQueueItStandsFor)
{
    StepRecorder recorder;
    Queue queue("q", 1);
    queue.cleanUp();
    const Queue successor("q", 1);
    EXPECT_EQ(Queue::getQueuePtr("q"), &successor);
    queue.cleanUp();
    EXPECT_EQ(Queue::getQueuePtr("q"), nullptr);
}

using QueueFatal = test::FatalTest;

TEST_F(QueueFatal, ANameThatIsTaken)
{
    EXPECT_EXIT(
        {
            const Queue first("q", 1);
            const Queue second("q", 1);
        },
        ExitedWithCode(1),
        isReport(
            "ERROR: AlreadyExists", "generic/utils/src/queue/src/Queue",
            "Queue:\nQueue 'q' is already in the Queue Collection (i.e., name is not unique)."));
}

TEST_F(QueueFatal, ANameThatIsTakenLeavesTheFirstQueueRegistered)
{
    EXPECT_EXIT(
        {
            const Queue first("q", 1);
            theFirstQueue = &first;
            std::atexit(
                [] {
                    std::cerr << (Queue::getQueuePtr("q") == theFirstQueue ? "first stays"
                                                                           : "first is gone");
                });
            const Queue second("q", 1);
        },
        ExitedWithCode(1), HasSubstr("first stays"));
}

TEST_F(QueueFatal, ANameThatIsTakenIsFoundOutBeforeTheCreationIsTraced)
{
    EXPECT_EXIT(
        {
            const Queue first("q", 1);
            utils::singleton::SingletonT<utils::queue::Flags>::getInstancePtr()
                ->m_traceSteps.setValue(1);
            const Queue second("q", 1);
        },
        ExitedWithCode(1), AllOf(HasSubstr("is already in"), Not(HasSubstr("Creating queue"))));
}

TEST_F(QueueFatal, WritingNull)
{
    Queue queue("q", 1);
    EXPECT_EXIT(queue.write(nullptr, 0), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/queue/src/Queue",
                         "write:\nNull pointer (macroPtr) passed to Queue::write for queue 'q'."));
}

TEST_F(QueueFatal, ForwardingToNull)
{
    Queue queue("q", 1);
    EXPECT_EXIT(queue.startForwardingTo(nullptr), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/queue/src/Queue",
                         "startForwardingTo:\nNull pointer (queuePtr) passed to "
                         "Queue::startForwardingTo."));
}

TEST_F(QueueFatal, NoLongerForwardingToNull)
{
    Queue queue("q", 1);
    EXPECT_EXIT(queue.stopForwardingTo(nullptr), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/queue/src/Queue",
                         "stopForwardingTo:\nNull pointer (queuePtr) passed to "
                         "Queue::stopForwardingTo."));
}

}  // namespace
