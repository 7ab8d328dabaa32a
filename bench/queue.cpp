// Queues of pointers between threads: one thread alone, crews of writers and readers, ping-pong.

#include <benchmark/benchmark.h>

#include "Crew.h"
#include "Queues.h"

namespace bench
{

namespace
{

template <typename Queue>
void writeItems(Queue& queue, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i)
    {
        queue.write();
    }
}

template <typename Queue>
void readItems(Queue& queue, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i)
    {
        benchmark::DoNotOptimize(queue.read());
    }
}

// Writes one item and reads it back.
template <typename Queue>
void oneThread(benchmark::State& state)
{
    Queue queue;
    for (auto _ : state)
    {
        queue.write();
        benchmark::DoNotOptimize(queue.read());
    }
}

// As many writers as readers, each with its share of the items.
template <typename Queue>
void crew(benchmark::State& state)
{
    constexpr std::int64_t ITEMS = 40'000;
    const std::int64_t numPairs = state.range(0);
    const std::int64_t share = ITEMS / numPairs;
    const Placement placement = numPairs == 1 ? Placement::PINNED : Placement::FREE;

    Queue queue;
    std::vector<std::function<void()>> jobs;
    for (std::int64_t i = 0; i < numPairs; ++i)
    {
        jobs.emplace_back([&] { writeItems(queue, share); });
        jobs.emplace_back([&] { readItems(queue, share); });
    }
    for (auto _ : state)
    {
        state.SetIterationTime(runTogether(jobs, placement));
    }
    state.SetItemsProcessed(state.iterations() * ITEMS);
}

// Two threads on different cores send one item to and fro over two queues; an item is a round trip.
template <typename Queue>
void pingPong(benchmark::State& state)
{
    constexpr std::int64_t ROUNDS = 2'000;
    Queue there;
    Queue back;
    const auto ping = [&]
    {
        for (std::int64_t i = 0; i < ROUNDS; ++i)
        {
            there.write();
            benchmark::DoNotOptimize(back.read());
        }
    };
    const auto pong = [&]
    {
        for (std::int64_t i = 0; i < ROUNDS; ++i)
        {
            benchmark::DoNotOptimize(there.read());
            back.write();
        }
    };
    for (auto _ : state)
    {
        state.SetIterationTime(runTogether({ping, pong}, Placement::PINNED));
    }
    state.SetItemsProcessed(state.iterations() * ROUNDS);
}

template <typename Queue>
void registerAll(const std::string& name)
{
    benchmark::RegisterBenchmark(("one_thread/" + name).c_str(), oneThread<Queue>);
    benchmark::RegisterBenchmark(("crew/" + name).c_str(), crew<Queue>)
        ->Arg(1)
        ->Arg(2)
        ->Arg(4)
        ->UseManualTime();
    benchmark::RegisterBenchmark(("ping_pong/" + name).c_str(), pingPong<Queue>)->UseManualTime();
}

[[maybe_unused]] const bool isRegistered = []
{
    registerAll<OsQueue>("osQueue");
    registerAll<UtilsQueue>("utils_Queue");
    registerAll<TbbQueue>("tbb");
    registerAll<BoostQueue>("boost");
    registerAll<MoodycamelQueue>("moodycamel");
    return true;
}();

}  // namespace

}  // namespace bench
