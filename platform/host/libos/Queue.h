#ifndef HOST_LIBOS_QUEUE_H
#define HOST_LIBOS_QUEUE_H

#include <libos/BlockStore.h>
#include <libos/SideLock.h>
#include <libos/SpinBudget.h>
#include <libos/WaitList.h>

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace host
{

/// A bounded queue with a lock for its writers and one for its readers, so that the two sides do
/// not disturb each other: each keeps its own lock, place and copy of the other side's index on a
/// cache line of its own, and looks at the other side's index only when the copy says that the
/// queue is full or empty.
///
/// Items lie in a chain of blocks that grows and shrinks with what is queued.
///
/// Queues are never given back to the system: a reader may destroy a queue while the writer of the
/// last item is still on its way out of write(). Such a late thread then finds a queue, its own or
/// a later one, and at worst wakes a sleeper without a reason.
class Queue
{
  public:
    /// An empty queue; null when there is not enough memory.
    static Queue* create(uint32_t capacity);

    /// Ends the use of a queue made by create().
    static void destroy(Queue* queue);

    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;

    /// Appends an item. @param waitMs as for osQueueWrite()
    bool write(void* item, int waitMs);

    /// Takes the oldest item. @param waitMs as for osQueueRead()
    bool read(void*& item, int waitMs);

    /// The number of items at some moment during the call.
    uint32_t size();

  private:
    friend class QueuePool;

    enum class Outcome
    {
        done,
        mustWait,
        noMemory
    };

    static constexpr size_t cacheLine = 64;

    struct alignas(cacheLine) Writers
    {
        SideLock lock;
        size_t slot = 0;  ///< next free one in `block`
        ItemBlock* block = nullptr;
        uint64_t tail = 0;  ///< number of items ever written
        uint64_t knownHead = 0;
        uint64_t capacity = 0;
    };

    struct alignas(cacheLine) Readers
    {
        SideLock lock;
        size_t slot = 0;  ///< oldest item in `block`
        ItemBlock* block = nullptr;
        uint64_t head = 0;  ///< number of items ever read
        uint64_t knownTail = 0;
    };

    Queue() = default;
    ~Queue() = default;

    bool open(uint32_t capacity);
    void close();

    Outcome tryWrite(void* item);
    Outcome append(void* item);
    bool hasPlace();
    bool startBlock();
    Outcome writeUntil(void* item, const Deadline& deadline);
    bool sleepWhileFull(const Deadline& deadline);
    bool isFull() const;

    bool tryRead(void*& item);
    bool takeOldest(void*& item);
    bool readUntil(void*& item, const Deadline& deadline);
    bool sleepWhileEmpty(const Deadline& deadline);
    bool isEmpty() const;

    Writers m_writers;
    Readers m_readers;
    alignas(cacheLine) std::atomic<uint64_t> m_tail{0};  ///< m_writers.tail, for the readers
    alignas(cacheLine) std::atomic<uint64_t> m_head{0};  ///< m_readers.head, for the writers
    alignas(cacheLine) BlockStore m_blocks;
    alignas(cacheLine) WaitList m_sleepingReaders{m_writers.lock};
    SpinBudget m_readersSpin;
    alignas(cacheLine) WaitList m_sleepingWriters{m_readers.lock};
    SpinBudget m_writersSpin;
    Queue* m_nextFree = nullptr;
};

}  // namespace host

#endif
