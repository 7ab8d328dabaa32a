// Queues between threads, meant for ThreadSanitizer as well:
// - nothing is lost, doubled or reordered, with one and with several readers;
// - the capacity is never exceeded;
// - forwarding from several threads, also while the forwarding queue is rewired and its selection
//   function replaced;
// - writers that wait for a place in the queue that they are forwarded to.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "utils/queue/Queue.h"

namespace
{

using utils::command::Macro;
using utils::queue::Queue;

constexpr int WAIT_FOREVER = -1;
constexpr int NUM_WRITERS = 4;
constexpr int NUM_MACROS = 1500;  // a writer

class NumberedMacro : public Macro
{
  public:
    NumberedMacro(int writer, int number) : Macro("numbered"), m_writer(writer), m_number(number) {}
    const int m_writer;
    const int m_number;
    std::atomic<int> m_numReads{0};
};

// All macros of a test, and the checks of how they arrive.
class QueueThread : public testing::Test
{
  protected:
    QueueThread()
    {
        for (int writer = 0; writer < NUM_WRITERS; ++writer)
        {
            for (int number = 0; number < NUM_MACROS; ++number)
            {
                m_macros.push_back(std::make_unique<NumberedMacro>(writer, number));
            }
        }
    }

    void startWriters(Queue& queue)
    {
        for (int writer = 0; writer < NUM_WRITERS; ++writer)
        {
            m_writers.emplace_back([this, &queue, writer] { writeAll(queue, writer); });
        }
    }

    // Reads until the end mark comes; what one reader gets of one writer is in order.
    void startReader(Queue& queue)
    {
        m_readers.emplace_back([this, &queue] { readAll(queue); });
        m_queuesRead.push_back(&queue);
    }

    // Waits for the writers, then ends every reader.
    void finish()
    {
        for (std::thread& writer : m_writers)
        {
            writer.join();
        }
        for (Queue* const queue : m_queuesRead)
        {
            EXPECT_TRUE(queue->write(&m_endMark, WAIT_FOREVER));
        }
        for (std::thread& reader : m_readers)
        {
            reader.join();
        }
        for (const auto& macro : m_macros)
        {
            ASSERT_EQ(macro->m_numReads, 1);
        }
    }

  private:
    void writeAll(Queue& queue, int writer)
    {
        for (int number = 0; number < NUM_MACROS; ++number)
        {
            const auto index = static_cast<std::size_t>(writer * NUM_MACROS + number);
            EXPECT_TRUE(queue.write(m_macros[index].get(), WAIT_FOREVER));
        }
    }

    void readAll(Queue& queue)
    {
        std::vector<int> lastNumbers(NUM_WRITERS, -1);
        Macro* macro = nullptr;
        while (queue.read(macro, WAIT_FOREVER) && macro != &m_endMark)
        {
            auto& numbered = static_cast<NumberedMacro&>(*macro);
            ++numbered.m_numReads;
            EXPECT_LE(queue.size(), queue.getMaxMacros());
            int& last = lastNumbers[static_cast<std::size_t>(numbered.m_writer)];
            EXPECT_LT(last, numbered.m_number);
            last = numbered.m_number;
        }
    }

    std::vector<std::unique_ptr<NumberedMacro>> m_macros;
    Macro m_endMark{"end mark"};
    std::vector<std::thread> m_writers;
    std::vector<std::thread> m_readers;
    std::vector<Queue*> m_queuesRead;
};

Queue* selectAny(const Macro* macroPtr, std::vector<Queue*> queues)
{
    const auto number =
        static_cast<std::size_t>(static_cast<const NumberedMacro*>(macroPtr)->m_number);
    return queues[number % queues.size()];
}

TEST_F(QueueThread, OneReaderGetsEverythingInOrder)
{
    Queue queue("q", 8);
    startWriters(queue);
    startReader(queue);
    finish();
}

TEST_F(QueueThread, SeveralReadersShareEverything)
{
    Queue queue("q", 8);
    startReader(queue);
    startReader(queue);
    startReader(queue);
    startWriters(queue);
    finish();
}

TEST_F(QueueThread, AQueueOfOnePlaceIsEnough)
{
    Queue queue("q", 1);
    startWriters(queue);
    startReader(queue);
    startReader(queue);
    finish();
}

TEST_F(QueueThread, ForwardingToSeveralReadersLosesNothing)
{
    Queue a("a", 4);
    Queue b("b", 4);
    Queue c("c", 4);
    Queue source("source", 1);
    for (Queue* const target : {&a, &b, &c})
    {
        source.startForwardingTo(target);
        startReader(*target);
    }
    startWriters(source);
    finish();
    EXPECT_EQ(source.size(), 0U);
}

TEST_F(QueueThread, ForwardingWithAFunctionOfTheApplicationLosesNothing)
{
    Queue a("a", 4);
    Queue b("b", 4);
    Queue source("source", 1);
    source.setQueueSelectionAlgorithm(&selectAny);
    for (Queue* const target : {&a, &b})
    {
        source.startForwardingTo(target);
        startReader(*target);
    }
    startWriters(source);
    finish();
}

TEST_F(QueueThread, RewiringWhileOthersWriteLosesNothing)
{
    Queue a("a", 4);
    Queue b("b", 4);
    Queue source("source", 4);
    // A writer's macros may overtake each other on different ways, not within one queue.
    for (Queue* const queue : {&a, &b, &source})
    {
        startReader(*queue);
    }
    startWriters(source);
    for (int i = 0; i < 300; ++i)
    {
        source.startForwardingTo(&a);
        source.setQueueSelectionAlgorithm(&selectAny);
        source.startForwardingTo(&b);
        EXPECT_EQ(source.getNumQueuesToForwardTo(), 2UL);
        source.stopForwardingTo(&a);
        source.setQueueSelectionAlgorithm(&Queue::selectLeastUtilizedQueue);
        source.stopForwardingTo(&b);
    }
    finish();
}

}  // namespace
