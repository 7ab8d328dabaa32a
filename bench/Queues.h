#ifndef BENCH_QUEUES_H
#define BENCH_QUEUES_H

#include <cstdint>
#include <string>

#include <concurrentqueue/blockingconcurrentqueue.h>
#include <libos/osQueue.h>
#include <tbb/concurrent_queue.h>
#include <utils/command/Macro.h>
#include <utils/queue/Queue.h>
#include <boost/thread/sync_bounded_queue.hpp>

/// @file
/// The queues compared, each as its users call it: write() puts a pointer in and waits while the
/// queue is full, read() takes one out and waits while it is empty. All items are the same pointer.

namespace bench
{

inline constexpr std::uint32_t CAPACITY = 256;

/// Ours, through the platform's functions.
class OsQueue
{
  public:
    explicit OsQueue(std::uint32_t capacity = CAPACITY) : m_queue(osQueueCreate(capacity)) {}
    ~OsQueue() { osQueueDestroy(m_queue); }

    OsQueue(const OsQueue&) = delete;
    OsQueue& operator=(const OsQueue&) = delete;

    void write() { osQueueWrite(m_queue, this, LIBOS_WAIT_FOREVER); }

    void* read()
    {
        void* item = nullptr;
        osQueueRead(m_queue, item, LIBOS_WAIT_FOREVER);
        return item;
    }

    osQueueHandle_t get() { return m_queue; }

  private:
    osQueueHandle_t m_queue;
};

/// Ours, as the library's own queue of macros.
class UtilsQueue
{
  public:
    UtilsQueue() : m_queue(uniqueName(), CAPACITY) {}

    void write() { m_queue.write(&m_macro, LIBOS_WAIT_FOREVER); }

    void* read()
    {
        utils::command::Macro* macro = nullptr;
        m_queue.read(macro, LIBOS_WAIT_FOREVER);
        return macro;
    }

    utils::queue::Queue& get() { return m_queue; }

  private:
    static std::string uniqueName()
    {
        static int number = 0;
        return "bench-" + std::to_string(++number);
    }

    utils::command::Macro m_macro{"benchmark"};
    utils::queue::Queue m_queue;
};

class TbbQueue
{
  public:
    TbbQueue() { m_queue.set_capacity(CAPACITY); }

    void write() { m_queue.push(this); }

    void* read()
    {
        void* item = nullptr;
        m_queue.pop(item);
        return item;
    }

  private:
    tbb::concurrent_bounded_queue<void*> m_queue;
};

class BoostQueue
{
  public:
    void write() { m_queue.push_back(this); }
    void* read() { return m_queue.pull_front(); }

  private:
    boost::concurrent::sync_bounded_queue<void*> m_queue{CAPACITY};
};

/// Unbounded: a write never waits, whatever the queue holds.
class MoodycamelQueue
{
  public:
    void write() { m_queue.enqueue(this); }

    void* read()
    {
        void* item = nullptr;
        m_queue.wait_dequeue(item);
        return item;
    }

    moodycamel::BlockingConcurrentQueue<void*>& get() { return m_queue; }

  private:
    moodycamel::BlockingConcurrentQueue<void*> m_queue{CAPACITY};
};

}  // namespace bench

#endif
