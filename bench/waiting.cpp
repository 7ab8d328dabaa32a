// Waiting readers of an empty queue: how exact a timed read is, what a blocked one costs.

#include <benchmark/benchmark.h>
#include <pthread.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <queue>
#include <thread>
#include <vector>

#include "Queues.h"

namespace bench
{

namespace
{

using std::chrono::milliseconds;

// The queue that everybody writes by hand.
class StdQueue
{
  public:
    void write()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_items.push(this);
        }
        m_changed.notify_one();
    }

    void* read()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return !m_items.empty(); });
        return take();
    }

    bool readFor(milliseconds limit)
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, limit, [&] { return !m_items.empty(); }))
        {
            return false;
        }
        take();
        return true;
    }

  private:
    void* take()
    {
        void* const item = m_items.front();
        m_items.pop();
        return item;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::queue<void*> m_items;
};

bool readFor(OsQueue& queue, milliseconds limit)
{
    void* item = nullptr;
    return osQueueRead(queue.get(), item, static_cast<int>(limit.count())) != 0;
}

bool readFor(UtilsQueue& queue, milliseconds limit)
{
    utils::command::Macro* macro = nullptr;
    return queue.get().read(macro, static_cast<int>(limit.count()));
}

bool readFor(MoodycamelQueue& queue, milliseconds limit)
{
    void* item = nullptr;
    return queue.get().wait_dequeue_timed(item, limit);
}

bool readFor(StdQueue& queue, milliseconds limit)
{
    return queue.readFor(limit);
}

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Reads an empty queue for 1 ms. Counters, in microseconds: how much too early the earliest return
// was (0 when none was), and by how much the median one was late.
template <typename Queue>
void timedRead(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    constexpr milliseconds LIMIT{1};

    Queue queue;
    std::vector<double> overshoots;
    for (auto _ : state)
    {
        const Clock::time_point begin = Clock::now();
        if (readFor(queue, LIMIT))
        {
            state.SkipWithError("an empty queue had an item");
            return;
        }
        const std::chrono::duration<double, std::micro> overshoot = Clock::now() - begin - LIMIT;
        overshoots.push_back(overshoot.count());
    }
    const double earliest = *std::min_element(overshoots.begin(), overshoots.end());
    state.counters["too_early_us"] = std::max(0.0, -earliest);
    state.counters["overshoot_us"] = medianOf(overshoots);
}

std::chrono::nanoseconds cpuTimeOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

// What a thread that is blocked in read() uses of a core within one second, in percent.
template <typename Queue>
void idleReader(benchmark::State& state)
{
    constexpr std::chrono::seconds PERIOD{1};
    constexpr milliseconds SETTLING{50};

    Queue queue;
    std::thread reader([&] { benchmark::DoNotOptimize(queue.read()); });
    clockid_t clock{};
    pthread_getcpuclockid(reader.native_handle(), &clock);
    std::this_thread::sleep_for(SETTLING);

    const auto before = cpuTimeOf(clock);
    for (auto _ : state)
    {
        std::this_thread::sleep_for(PERIOD);
    }
    const std::chrono::duration<double> used = cpuTimeOf(clock) - before;
    state.counters["cpu_percent"] =
        100 * used.count() /
        (std::chrono::duration<double>(PERIOD).count() * static_cast<double>(state.iterations()));
    queue.write();
    reader.join();
}

template <typename Queue>
void registerTimedRead(const std::string& name)
{
    benchmark::RegisterBenchmark(("timed_read/" + name).c_str(), timedRead<Queue>)
        ->Iterations(100)
        ->UseRealTime();
}

template <typename Queue>
void registerIdleReader(const std::string& name)
{
    benchmark::RegisterBenchmark(("idle_reader/" + name).c_str(), idleReader<Queue>)
        ->Iterations(1)
        ->UseRealTime();
}

[[maybe_unused]] const bool isRegistered = []
{
    registerTimedRead<OsQueue>("osQueue");
    registerTimedRead<UtilsQueue>("utils_Queue");
    registerTimedRead<MoodycamelQueue>("moodycamel");
    registerTimedRead<StdQueue>("std");
    registerIdleReader<OsQueue>("osQueue");
    registerIdleReader<UtilsQueue>("utils_Queue");
    registerIdleReader<MoodycamelQueue>("moodycamel");
    registerIdleReader<StdQueue>("std");
    registerIdleReader<BoostQueue>("boost");
    registerIdleReader<TbbQueue>("tbb");
    return true;
}();

}  // namespace

}  // namespace bench
