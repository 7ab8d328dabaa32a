// The default selection: the first queue found empty wins, otherwise the earliest of those with
// the fewest macros; called by itself and used by a queue that forwards.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "utils/queue/Queue.h"

namespace
{

using utils::command::Macro;
using utils::queue::Queue;

// Queues with given numbers of macros in them.
class QueueSelection : public testing::Test
{
  protected:
    // The index of the queue that is selected by selectLeastUtilizedQueue().
    std::size_t select(const std::vector<int>& sizes)
    {
        fill(sizes);
        std::vector<Queue*> queues;
        for (const auto& queue : m_queues)
        {
            queues.push_back(queue.get());
        }
        const Queue* const selected = Queue::selectLeastUtilizedQueue(&m_macro, queues);
        return static_cast<std::size_t>(std::find(queues.begin(), queues.end(), selected) -
                                        queues.begin());
    }

    // The index of the queue that gets a macro written to a queue that forwards to all of them.
    std::size_t forward(const std::vector<int>& sizes)
    {
        fill(sizes);
        Queue source("source", 1);
        for (const auto& queue : m_queues)
        {
            source.startForwardingTo(queue.get());
        }
        source.write(&m_macro, 0);
        for (std::size_t i = 0; i < sizes.size(); ++i)
        {
            if (m_queues[i]->size() > static_cast<unsigned>(sizes[i]))
            {
                return i;
            }
        }
        return sizes.size();
    }

  private:
    void fill(const std::vector<int>& sizes)
    {
        m_queues.clear();
        for (const int size : sizes)
        {
            m_queues.push_back(std::make_unique<Queue>(std::to_string(m_queues.size()), 100));
            for (int i = 0; i < size; ++i)
            {
                m_queues.back()->write(&m_macro, 0);
            }
        }
    }

    Macro m_macro{"m"};
    std::vector<std::unique_ptr<Queue>> m_queues;
};

struct Case
{
    std::vector<int> sizes;
    std::size_t expected;
};

const Case CASES[] = {
    {{3, 1, 1}, 1},     // a tie keeps the earlier one
    {{2, 0, 0}, 1},     // the first empty one
    {{0, 5, 0}, 0},     //
    {{0}, 0},           // one queue, empty or not
    {{7}, 0},           //
    {{1, 1, 1}, 0},     //
    {{1, 1, 0}, 2},     // the last one
    {{5, 4, 3, 2}, 3},  //
    {{2, 3, 4, 1}, 3},  //
    {{4, 2, 3, 2}, 1},  //
    {{2, 1, 0, 0}, 2},  //
};

TEST_F(QueueSelection, PrefersTheFirstEmptyThenTheEarliestOfTheFewest)
{
    for (const Case& example : CASES)
    {
        EXPECT_EQ(select(example.sizes), example.expected) << testing::PrintToString(example.sizes);
    }
}

TEST_F(QueueSelection, IsWhatAForwardingQueueUsesAtFirst)
{
    for (const Case& example : CASES)
    {
        EXPECT_EQ(forward(example.sizes), example.expected)
            << testing::PrintToString(example.sizes);
    }
}

TEST_F(QueueSelection, DoesNotUseTheMacro)
{
    Queue queue("q", 1);
    EXPECT_EQ(Queue::selectLeastUtilizedQueue(nullptr, {&queue}), &queue);
}

}  // namespace
