// Memory: what queues hold, and what operations allocate in steady state.

#include <benchmark/benchmark.h>

#include <functional>
#include <limits>
#include <memory>

#include <utils/command/Macro.h>
#include <utils/command/NoOpCommand.h>
#include <utils/flag/Trace.h>
#include <utils/observer/Event.h>
#include <utils/scpi/ScpiString.h>

#include "Allocations.h"
#include "Queues.h"

namespace bench
{

namespace
{

using utils::command::Macro;
using utils::queue::Queue;

// The bytes that a queue holds once it exists and has been filled.
template <typename MakeQueue>
void heldBytes(benchmark::State& state, MakeQueue makeQueue, std::uint32_t numItems)
{
    for (auto _ : state)
    {
        const Allocations before = allocationsNow();
        const auto queue = makeQueue();
        for (std::uint32_t i = 0; i < numItems; ++i)
        {
            queue->write();
        }
        state.counters["bytes"] = static_cast<double>((allocationsNow() - before).heldBytes);
    }
}

constexpr std::uint32_t HUGE_CAPACITY = std::numeric_limits<std::uint32_t>::max();

void registerHeldBytes()
{
    const auto add = [](const char* name, auto makeQueue, std::uint32_t numItems)
    {
        benchmark::RegisterBenchmark(
            name, [=](benchmark::State& state) { heldBytes(state, makeQueue, numItems); })
            ->Iterations(1);
    };
    add(
        "empty_huge/osQueue", [] { return std::make_unique<OsQueue>(HUGE_CAPACITY); }, 0);
    add(
        "empty_256/osQueue", [] { return std::make_unique<OsQueue>(); }, 0);
    add(
        "empty_256/utils_Queue", [] { return std::make_unique<UtilsQueue>(); }, 0);
    add(
        "empty_256/tbb", [] { return std::make_unique<TbbQueue>(); }, 0);
    add(
        "empty_256/boost", [] { return std::make_unique<BoostQueue>(); }, 0);
    add(
        "empty_256/moodycamel", [] { return std::make_unique<MoodycamelQueue>(); }, 0);
    add(
        "full_256/osQueue", [] { return std::make_unique<OsQueue>(); }, CAPACITY);
    add(
        "full_256/utils_Queue", [] { return std::make_unique<UtilsQueue>(); }, CAPACITY);
    add(
        "full_256/tbb", [] { return std::make_unique<TbbQueue>(); }, CAPACITY);
    add(
        "full_256/boost", [] { return std::make_unique<BoostQueue>(); }, CAPACITY);
    add(
        "full_256/moodycamel", [] { return std::make_unique<MoodycamelQueue>(); }, CAPACITY);
}

// What an operation allocates once it has run a few times.
void allocations(benchmark::State& state, const std::function<void()>& operation)
{
    constexpr int WARM_UP = 1'000;
    for (int i = 0; i < WARM_UP; ++i)
    {
        operation();
    }
    const Allocations before = allocationsNow();
    for (auto _ : state)
    {
        operation();
    }
    state.counters["allocations"] = static_cast<double>((allocationsNow() - before).count) /
                                    static_cast<double>(state.iterations());
}

template <typename Queue>
void writeAndRead(benchmark::State& state)
{
    Queue queue;
    allocations(state,
                [&]
                {
                    queue.write();
                    benchmark::DoNotOptimize(queue.read());
                });
}

// Fills the queue and empties it again.
template <typename Queue>
void fillAndEmpty(benchmark::State& state)
{
    Queue queue;
    allocations(state,
                [&]
                {
                    for (std::uint32_t i = 0; i < CAPACITY; ++i)
                    {
                        queue.write();
                    }
                    for (std::uint32_t i = 0; i < CAPACITY; ++i)
                    {
                        benchmark::DoNotOptimize(queue.read());
                    }
                });
}

void forward(benchmark::State& state)
{
    Queue first("bench-first", CAPACITY);
    Queue second("bench-second", CAPACITY);
    Queue pool("bench-pool", CAPACITY);
    pool.startForwardingTo(&first);
    pool.startForwardingTo(&second);
    Macro macro("bench");
    allocations(state,
                [&]
                {
                    pool.write(&macro, 0);
                    pool.write(&macro, 0);
                    Macro* read = nullptr;
                    first.read(read, 0);
                    second.read(read, 0);
                });
}

void execute(benchmark::State& state)
{
    Macro macro("bench");
    macro.add(new utils::command::NoOpCommand);
    allocations(state,
                [&]
                {
                    macro.execute();
                    macro.reset();
                });
}

class Receiver : public utils::observer::Notifier
{
  public:
    void notify(void* data) override { benchmark::DoNotOptimize(data); }
};

void notify(benchmark::State& state)
{
    Receiver receiver;
    utils::observer::Event event;
    event.enableLock();
    event.registerInterest(&receiver, 0);
    allocations(state, [&] { event.notify(nullptr); });
}

void compareHeader(benchmark::State& state)
{
    const utils::scpi::ScpiString command("measure:voltage:direct:range");
    const std::string header = "MEAS:Voltage:DIR:Range";
    allocations(state, [&] { benchmark::DoNotOptimize(command.isCompliant(header)); });
}

void disabledTrace(benchmark::State& state)
{
    utils::flag::FlagT<int> level("bench::m_traceSteps", 0);
    int number = 0;
    const auto trace = [&]
    {
        constexpr utils::SourceLocation HERE{__FILE__, __LINE__, "trace"};
        GENERIC_UTILS_TRACE_AT(HERE, level, 1, "Counting to " << ++number << ".");
    };
    allocations(state, trace);
}

[[maybe_unused]] const bool isRegistered = []
{
    constexpr int NUM_OPERATIONS = 10'000;
    const auto add = [](const char* name, auto function, int numOperations)
    { benchmark::RegisterBenchmark(name, function)->Iterations(numOperations); };

    registerHeldBytes();
    add("allocations_write_read/osQueue", writeAndRead<OsQueue>, NUM_OPERATIONS);
    add("allocations_write_read/utils_Queue", writeAndRead<UtilsQueue>, NUM_OPERATIONS);
    add("allocations_write_read/tbb", writeAndRead<TbbQueue>, NUM_OPERATIONS);
    add("allocations_write_read/boost", writeAndRead<BoostQueue>, NUM_OPERATIONS);
    add("allocations_write_read/moodycamel", writeAndRead<MoodycamelQueue>, NUM_OPERATIONS);
    add("allocations_fill_empty/osQueue", fillAndEmpty<OsQueue>, NUM_OPERATIONS / 100);
    add("allocations_fill_empty/utils_Queue", fillAndEmpty<UtilsQueue>, NUM_OPERATIONS / 100);
    add("allocations_forward/utils_Queue", forward, NUM_OPERATIONS);
    add("allocations_execute/utils_Macro", execute, NUM_OPERATIONS);
    add("allocations_notify/utils_Event", notify, NUM_OPERATIONS);
    add("allocations_compare/utils_ScpiString", compareHeader, NUM_OPERATIONS);
    add("allocations_trace_off/utils_trace", disabledTrace, NUM_OPERATIONS);
    return true;
}();

}  // namespace

}  // namespace bench
