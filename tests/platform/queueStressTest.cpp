// Many writers and readers on one queue:
// - no item is lost, doubled or, among those of one writer, reordered, whatever the capacity and
//   however the threads wait;
// - the size is never above the capacity;
// - what a writer did before it wrote an item is seen by the thread that reads the item;
// - no wake-up is lost: an item, or a place, that comes just when a thread falls asleep is not missed;
//   threads that hand single items back and forth never stall, also when waits
//   with a limit end beside those without.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "OwnedQueue.h"
#include "Pace.h"

namespace
{

using test::forever;
using test::noWait;
using test::OwnedQueue;
using test::pace;

constexpr uintptr_t endMark = ~uintptr_t{0};
constexpr uintptr_t writerShift = 32;
constexpr uintptr_t sequenceMask = (uintptr_t{1} << writerShift) - 1;

struct Load
{
    uint32_t capacity;
    int writers;
    int readers;
    uintptr_t itemsPerWriter;
    int waitMs;  ///< writers and readers wait so long at a time, and try again
};

/// Hides the values from test names, which ctest cannot take in braces.
void PrintTo(const Load& load, std::ostream* os)
{
    *os << "capacity " << load.capacity << ", " << load.writers << " to " << load.readers;
}

/// Writers that number their items, and readers that record what they read.
class Traffic
{
  public:
    explicit Traffic(const Load& load)
        : m_load(load), m_queue(load.capacity), m_read(static_cast<size_t>(load.readers))
    {
    }

    void run()
    {
        std::atomic<bool> isOver{false};
        std::jthread observer([&] { observe(isOver); });
        std::vector<std::jthread> readers;
        for (auto& read : m_read)
        {
            readers.emplace_back([this, &read] { readAll(read); });
        }
        runWriters();
        for (int i = 0; i < m_load.readers; ++i)
        {
            write(endMark);
        }
        readers.clear();
        isOver = true;
    }

    /// The numbers of one writer's items in the order in which one reader read them.
    std::vector<uintptr_t> readFrom(uintptr_t writer, size_t reader) const
    {
        std::vector<uintptr_t> numbers;
        for (const uintptr_t item : m_read[reader])
        {
            if (item >> writerShift == writer)
            {
                numbers.push_back(item & sequenceMask);
            }
        }
        return numbers;
    }

    uint32_t largestSize() const { return m_largestSize; }
    uint32_t finalSize() const { return m_queue.size(); }

  private:
    void runWriters()
    {
        std::vector<std::jthread> writers;
        for (uintptr_t writer = 0; writer < static_cast<uintptr_t>(m_load.writers); ++writer)
        {
            writers.emplace_back([this, writer] { writeAll(writer); });
        }
    }

    void writeAll(uintptr_t writer) const
    {
        for (uintptr_t number = 0; number < m_load.itemsPerWriter; ++number)
        {
            write((writer << writerShift) + number);
        }
    }

    void write(uintptr_t item) const
    {
        while (!m_queue.write(item, m_load.waitMs))
        {
            std::this_thread::yield();
        }
    }

    void readAll(std::vector<uintptr_t>& read) const
    {
        uintptr_t item = 0;
        while (item != endMark)
        {
            if (m_queue.read(item, m_load.waitMs) && item != endMark)
            {
                read.push_back(item);
            }
        }
    }

    void observe(const std::atomic<bool>& isOver)
    {
        while (!isOver)
        {
            m_largestSize = std::max(m_largestSize, m_queue.size());
            std::this_thread::yield();
        }
    }

    const Load m_load;
    const OwnedQueue m_queue;
    std::vector<std::vector<uintptr_t>> m_read;
    uint32_t m_largestSize = 0;
};

class QueueStress : public testing::TestWithParam<Load>
{
};

TEST_P(QueueStress, LosesDoublesAndReordersNothing)
{
    const Load& load = GetParam();
    Traffic traffic(load);
    traffic.run();
    for (uintptr_t writer = 0; writer < static_cast<uintptr_t>(load.writers); ++writer)
    {
        std::vector<uintptr_t> all;
        for (size_t reader = 0; reader < static_cast<size_t>(load.readers); ++reader)
        {
            const auto numbers = traffic.readFrom(writer, reader);
            EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
            all.insert(all.end(), numbers.begin(), numbers.end());
        }
        std::sort(all.begin(), all.end());
        ASSERT_EQ(all.size(), load.itemsPerWriter);
        EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
        EXPECT_EQ(all.back(), load.itemsPerWriter - 1);
    }
    EXPECT_EQ(traffic.finalSize(), 0U);
    EXPECT_LE(traffic.largestSize(), load.capacity);
}

INSTANTIATE_TEST_SUITE_P(Loads, QueueStress,
                         testing::Values(Load{1, 1, 1, 20'000, forever},     //
                                         Load{1, 4, 4, 3'000, forever},      //
                                         Load{2, 4, 4, 4'000, forever},      //
                                         Load{2, 1, 4, 10'000, forever},     //
                                         Load{2, 4, 1, 3'000, forever},      //
                                         Load{64, 2, 2, 20'000, forever},    //
                                         Load{256, 4, 4, 10'000, forever},   //
                                         Load{5'000, 8, 8, 5'000, forever},  //
                                         Load{1, 4, 4, 2'000, 1},            //
                                         Load{3, 4, 4, 3'000, 1},            //
                                         Load{16, 4, 4, 500, noWait}));

TEST(QueueStress, ReaderSeesWhatTheWriterDidBefore)
{
    const OwnedQueue queue(8);
    std::jthread writer(
        [&]
        {
            for (int number = 0; number < 20'000; ++number)
            {
                auto value = std::make_unique<int>(number);
                ASSERT_NE(osQueueWrite(queue.handle(), value.release(), forever), 0);
            }
        });
    for (int number = 0; number < 20'000; ++number)
    {
        void* item = nullptr;
        ASSERT_NE(osQueueRead(queue.handle(), item, forever), 0);
        const std::unique_ptr<int> value(static_cast<int*>(item));
        ASSERT_EQ(*value, number);
    }
}

TEST(QueueStress, HandingOneItemBackAndForthNeverStalls)
{
    constexpr uintptr_t rounds = 100'000;
    const OwnedQueue there(1);
    const OwnedQueue back(1);
    std::jthread answering(
        [&]
        {
            for (uintptr_t round = 0; round < rounds; ++round)
            {
                back.write(there.take());
            }
        });
    for (uintptr_t round = 0; round < rounds; ++round)
    {
        ASSERT_TRUE(there.write(round));
        ASSERT_EQ(back.take(), round);
    }
}

/// Lets a second thread go through rounds one at a time, each begun by the first thread.
class Rounds
{
  public:
    explicit Rounds(unsigned count) : m_count(count) {}

    /// The second thread. @param act is called once a round
    template <typename Act>
    void follow(const Act& act)
    {
        for (unsigned round = 1; round <= m_count; ++round)
        {
            await(m_begun, round);
            act();
            m_done = round;
        }
    }

    /// The first thread. @param act is called in each round, while the other thread acts
    template <typename Act>
    void lead(const Act& act)
    {
        for (unsigned round = 1; round <= m_count; ++round)
        {
            m_begun = round;
            pace(round);
            act();
            await(m_done, round);
        }
    }

  private:
    static void await(const std::atomic<unsigned>& current, unsigned round)
    {
        while (current != round)
        {
            std::this_thread::yield();
        }
    }

    const unsigned m_count;
    std::atomic<unsigned> m_begun{0};
    std::atomic<unsigned> m_done{0};
};

constexpr unsigned fallingAsleepRounds = 20'000;

TEST(QueueStress, AnItemIsNotMissedByAReaderThatFallsAsleep)
{
    const OwnedQueue queue(1);
    Rounds rounds(fallingAsleepRounds);
    std::jthread reader([&] { rounds.follow([&] { EXPECT_EQ(queue.take(), 1U); }); });
    rounds.lead([&] { EXPECT_TRUE(queue.write(1)); });
}

TEST(QueueStress, APlaceIsNotMissedByAWriterThatFallsAsleep)
{
    const OwnedQueue queue(1);
    Rounds rounds(fallingAsleepRounds);
    ASSERT_TRUE(queue.write(1));
    std::jthread writer([&] { rounds.follow([&] { EXPECT_TRUE(queue.write(1, forever)); }); });
    rounds.lead([&] { EXPECT_EQ(queue.take(), 1U); });
}

TEST(QueueStress, ItemsCirculateAmongThreadsThatMostlySleep)
{
    constexpr uintptr_t threadCount = 6;
    constexpr uintptr_t rounds = 2'000;
    const OwnedQueue queue(2);
    std::vector<std::jthread> threads;
    for (uintptr_t i = 0; i < threadCount; ++i)
    {
        threads.emplace_back(
            [&]
            {
                for (uintptr_t round = 0; round < rounds; ++round)
                {
                    ASSERT_TRUE(queue.write(queue.take(), forever));
                }
            });
    }
    ASSERT_TRUE(queue.write(1));
    threads.clear();
    EXPECT_EQ(queue.size(), 1U);
}

TEST(QueueStress, WaitsThatEndDoNotSwallowTheWakeUpsOfOthers)
{
    constexpr uintptr_t rounds = 3'000;
    const OwnedQueue queue(4);
    std::atomic<uintptr_t> readCount{0};
    const auto read = [&](int waitMs)
    {
        uintptr_t number = 0;
        while (number != endMark)
        {
            number = 0;
            readCount += queue.read(number, waitMs) && number != endMark ? 1 : 0;
        }
    };
    std::vector<std::jthread> readers;
    for (const int waitMs : {forever, 1, 1, forever})
    {
        readers.emplace_back([&read, waitMs] { read(waitMs); });
    }
    for (uintptr_t round = 1; round <= rounds; ++round)
    {
        ASSERT_TRUE(queue.write(round, forever));
        while (round % 10 == 0 && readCount != round)
        {
            std::this_thread::yield();  // stalls for ever when a wake-up is lost
        }
    }
    for (size_t i = 0; i < readers.size(); ++i)
    {
        ASSERT_TRUE(queue.write(endMark, forever));
    }
    readers.clear();
    EXPECT_EQ(readCount, rounds);
}

}  // namespace
