// In steady state, with traces off, writing, reading and forwarding allocates nothing.

#include <gtest/gtest.h>

#include "support/AllocationCounter.h"
#include "support/ConfigDirectory.h"
#include "utils/queue/Queue.h"
#include "utils/queue/WriteCommand.h"

namespace
{

using test::ConfigDirectory;
using test::countAllocations;
using utils::command::Macro;
using utils::queue::Queue;
using utils::queue::WriteCommand;

constexpr int NUM_MACROS = 200;

class QueueAllocation : public testing::Test
{
  protected:
    // Fills the queue through another one and empties it again.
    unsigned long countWhileUsing(Queue& entry, Queue& exit)
    {
        const unsigned long before = countAllocations();
        for (int i = 0; i < NUM_MACROS; ++i)
        {
            EXPECT_TRUE(entry.write(&m_macro, 0));
        }
        Macro* read = nullptr;
        for (int i = 0; i < NUM_MACROS; ++i)
        {
            EXPECT_TRUE(exit.read(read, 0));
        }
        return countAllocations() - before;
    }

    const ConfigDirectory m_emptyConfiguration;
    Macro m_macro{"a macro with a name of more than sixteen characters"};
};

TEST_F(QueueAllocation, NoneByWritingAndReading)
{
    Queue queue("q", NUM_MACROS);
    countWhileUsing(queue, queue);  // grows to its working size
    EXPECT_EQ(countWhileUsing(queue, queue), 0UL);
    EXPECT_EQ(countWhileUsing(queue, queue), 0UL);
}

TEST_F(QueueAllocation, NoneByForwarding)
{
    Queue last("last", NUM_MACROS);
    Queue middle("middle", NUM_MACROS);
    Queue first("first", NUM_MACROS);
    first.startForwardingTo(&middle);
    middle.startForwardingTo(&last);
    countWhileUsing(first, last);
    EXPECT_EQ(countWhileUsing(first, last), 0UL);
}

TEST_F(QueueAllocation, NoneByChoosingAmongSeveral)
{
    Queue a("a", 10);
    Queue b("b", 10);
    Queue source("source", 1);
    source.startForwardingTo(&a);
    source.startForwardingTo(&b);
    Macro* read = nullptr;
    unsigned long before = 0;
    for (int round = 0; round < 20; ++round)
    {
        if (round == 10)
        {
            before = countAllocations();
        }
        EXPECT_TRUE(source.write(&m_macro, 0));
        EXPECT_TRUE(source.write(&m_macro, 0));
        EXPECT_TRUE(a.read(read, 0));
        EXPECT_TRUE(b.read(read, 0));
    }
    EXPECT_EQ(countAllocations() - before, 0UL);
}

TEST_F(QueueAllocation, NoneByMovingAMacroOn)
{
    Queue queue("q", 1);
    m_macro.add(new WriteCommand(&queue, &m_macro, 0));
    m_macro.add(new WriteCommand(&queue, &m_macro, 0));
    m_macro.add(new WriteCommand(&queue, &m_macro, 0));
    Macro* read = nullptr;
    unsigned long before = 0;
    for (int round = 0; round < 20; ++round)
    {
        if (round == 10)
        {
            before = countAllocations();
        }
        m_macro.reset();
        EXPECT_EQ(m_macro.execute(), 0);
        EXPECT_TRUE(queue.read(read, 0));
        EXPECT_EQ(read->execute(), 0);
        EXPECT_TRUE(queue.read(read, 0));
    }
    EXPECT_EQ(countAllocations() - before, 0UL);
}

TEST_F(QueueAllocation, NoneByWaitingInVain)
{
    Queue queue("q", 1);
    Macro* read = nullptr;
    queue.read(read, 1);
    const unsigned long before = countAllocations();
    EXPECT_FALSE(queue.read(read, 1));
    EXPECT_EQ(countAllocations() - before, 0UL);
}

}  // namespace
