#include <libos/Queue.h>
#include <libos/QueuePool.h>

#include <algorithm>

namespace host
{
namespace
{

/// A new queue has blocks for so many items, or for its capacity when that is less. So queues of common
/// sizes allocate nothing after their creation, and a write to them never fails for want of memory.
constexpr uint32_t reservedItems = 256;

/// Short enough for the answer to a single item, long enough for a busy writer to get ahead.
constexpr SpinBudget::Rhythm readersRhythm{.first = 16, .later = 4};

/// A writer that finds the queue full gains nothing by finding one place early.
constexpr SpinBudget::Rhythm writersRhythm{.first = 64, .later = 16};

}  // namespace

Queue* Queue::create(uint32_t capacity)
{
    Queue* const queue = QueuePool::take();
    if (queue == nullptr || queue->open(capacity))
    {
        return queue;
    }
    QueuePool::give(queue);
    return nullptr;
}

void Queue::destroy(Queue* queue)
{
    queue->close();
    QueuePool::give(queue);
}

bool Queue::open(uint32_t capacity)
{
    const bool hasMemory = m_blocks.reserve(std::min(capacity, reservedItems));
    ItemBlock* const block = hasMemory ? m_blocks.get() : nullptr;
    if (block == nullptr)
    {
        m_blocks.clear(nullptr);
        return false;
    }
    m_writers.block = m_readers.block = block;
    m_writers.slot = m_readers.slot = 0;
    m_writers.tail = m_writers.knownHead = m_readers.head = m_readers.knownTail = 0;
    m_writers.capacity = capacity;
    m_tail.store(0, std::memory_order_relaxed);
    m_head.store(0, std::memory_order_relaxed);
    return true;
}

void Queue::close()
{
    // Waits for threads that have written or read the last item and still hold a lock.
    m_writers.lock.lock();
    m_readers.lock.lock();
    m_blocks.clear(m_readers.block);
    m_readers.lock.unlock();
    m_writers.lock.unlock();
}

bool Queue::write(void* item, int waitMs)
{
    Outcome outcome = tryWrite(item);
    if (outcome == Outcome::mustWait && waitMs != 0)
    {
        outcome = writeUntil(item, Deadline::fromWait(waitMs));
    }
    return outcome == Outcome::done;
}

Queue::Outcome Queue::tryWrite(void* item)
{
    m_writers.lock.lock();
    const Outcome outcome = append(item);
    const bool hasSleepers = m_writers.lock.unlock();
    if (hasSleepers && outcome == Outcome::done)
    {
        m_sleepingReaders.wakeOne();
    }
    return outcome;
}

Queue::Outcome Queue::append(void* item)
{
    if (!hasPlace())
    {
        return Outcome::mustWait;
    }
    Writers& own = m_writers;
    if (own.slot == ItemBlock::slotCount && !startBlock())
    {
        return Outcome::noMemory;
    }
    own.block->items[own.slot++] = item;
    m_tail.store(++own.tail, std::memory_order_release);
    return Outcome::done;
}

bool Queue::hasPlace()
{
    Writers& own = m_writers;
    if (own.tail - own.knownHead < own.capacity)
    {
        return true;
    }
    own.knownHead = m_head.load(std::memory_order_acquire);
    return own.tail - own.knownHead < own.capacity;
}

bool Queue::startBlock()
{
    Writers& own = m_writers;
    ItemBlock* const next = m_blocks.get();
    if (next == nullptr)
    {
        return false;
    }
    own.block->next = next;
    own.block = next;
    own.slot = 0;
    return true;
}

Queue::Outcome Queue::writeUntil(void* item, const Deadline& deadline)
{
    Outcome outcome = Outcome::mustWait;
    bool mayWait = true;
    while (outcome == Outcome::mustWait && mayWait)
    {
        mayWait = m_writersSpin.spinUntil([this] { return !isFull(); }, writersRhythm) ||
                  sleepWhileFull(deadline);
        outcome = tryWrite(item);
    }
    if (outcome == Outcome::noMemory)
    {
        m_sleepingWriters.wakeOne();  // the place for which this thread was woken is still free
    }
    return outcome;
}

bool Queue::sleepWhileFull(const Deadline& deadline)
{
    Waiter waiter;
    m_sleepingWriters.add(waiter);
    const bool hasTimedOut = isFull() && !waiter.sleep(deadline);
    m_sleepingWriters.remove(waiter);
    return !hasTimedOut;
}

bool Queue::isFull() const
{
    // In this order the queue was really full when the head was loaded: the tail only grows.
    const uint64_t tail = m_tail.load(std::memory_order_acquire);
    return tail - m_head.load(std::memory_order_acquire) >= m_writers.capacity;
}

bool Queue::read(void*& item, int waitMs)
{
    return tryRead(item) || (waitMs != 0 && readUntil(item, Deadline::fromWait(waitMs)));
}

bool Queue::tryRead(void*& item)
{
    m_readers.lock.lock();
    const bool hasRead = takeOldest(item);
    const bool hasSleepers = m_readers.lock.unlock();
    if (hasSleepers && hasRead)
    {
        m_sleepingWriters.wakeOne();
    }
    return hasRead;
}

bool Queue::takeOldest(void*& item)
{
    Readers& own = m_readers;
    if (own.head == own.knownTail)
    {
        own.knownTail = m_tail.load(std::memory_order_acquire);
        if (own.head == own.knownTail)
        {
            return false;
        }
    }
    if (own.slot == ItemBlock::slotCount)
    {
        ItemBlock* const emptied = own.block;
        own.block = emptied->next;
        own.slot = 0;
        m_blocks.put(emptied);
    }
    item = own.block->items[own.slot++];
    m_head.store(++own.head, std::memory_order_release);
    return true;
}

bool Queue::readUntil(void*& item, const Deadline& deadline)
{
    bool hasRead = false;
    bool mayWait = true;
    while (!hasRead && mayWait)
    {
        mayWait = m_readersSpin.spinUntil([this] { return !isEmpty(); }, readersRhythm) ||
                  sleepWhileEmpty(deadline);
        hasRead = tryRead(item);
    }
    return hasRead;
}

bool Queue::sleepWhileEmpty(const Deadline& deadline)
{
    Waiter waiter;
    m_sleepingReaders.add(waiter);
    const bool hasTimedOut = isEmpty() && !waiter.sleep(deadline);
    m_sleepingReaders.remove(waiter);
    return !hasTimedOut;
}

bool Queue::isEmpty() const
{
    // In this order the queue was really empty when the tail was loaded: the head only grows.
    const uint64_t head = m_head.load(std::memory_order_acquire);
    return head == m_tail.load(std::memory_order_acquire);
}

uint32_t Queue::size()
{
    constexpr int attempts = 4;
    for (int attempt = 0; attempt < attempts; ++attempt)
    {
        const uint64_t head = m_head.load(std::memory_order_acquire);
        const uint64_t tail = m_tail.load(std::memory_order_acquire);
        if (m_head.load(std::memory_order_acquire) == head)
        {
            return static_cast<uint32_t>(tail - head);
        }
    }
    m_readers.lock.lock();
    const uint64_t size = m_tail.load(std::memory_order_acquire) - m_readers.head;
    m_readers.lock.unlock();
    return static_cast<uint32_t>(size);
}

}  // namespace host
