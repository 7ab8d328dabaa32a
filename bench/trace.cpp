// Traces that are off, and traces into a string stream.

// The peer's debug call sites stay in, as ours always do.
#define SPDLOG_ACTIVE_LEVEL SPDLOG_LEVEL_DEBUG

#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <string>

#include <glog/logging.h>
#include <spdlog/sinks/ostream_sink.h>
#include <spdlog/spdlog.h>
#include <utils/flag/Trace.h>

// Sixteen call sites in a row, so that the loop around them counts for little. Each must read its
// level from memory, and nothing moves across.
#define BENCH_ONE(...)              \
    do                              \
    {                               \
        __VA_ARGS__;                \
        benchmark::ClobberMemory(); \
    } while (false)
#define BENCH_FOUR(...)     \
    BENCH_ONE(__VA_ARGS__); \
    BENCH_ONE(__VA_ARGS__); \
    BENCH_ONE(__VA_ARGS__); \
    BENCH_ONE(__VA_ARGS__)
#define BENCH_SIXTEEN(...)   \
    BENCH_FOUR(__VA_ARGS__); \
    BENCH_FOUR(__VA_ARGS__); \
    BENCH_FOUR(__VA_ARGS__); \
    BENCH_FOUR(__VA_ARGS__)

namespace bench
{

/// The flags of the traces below, as every subsystem has them.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    utils::flag::FlagT<int> m_traceSteps{"bench::m_traceSteps", 0};
};

namespace
{

constexpr int NUM_CALL_SITES = 16;
constexpr int WAIT_MS = 42;
const std::string MACRO = "calibrate";
const std::string QUEUE = "motor";

// What every enabled trace writes after the date and time.
const std::string WORDS = ": Writing macro 'calibrate' to queue 'motor' - wait = 42.\n";
constexpr std::size_t TIME_LENGTH = sizeof("2024-01-31 23:59:59") - 1;

// ---- Off ----

void baselineOff(benchmark::State& state)
{
    for (auto _ : state)
    {
        BENCH_SIXTEEN((void)0);
    }
    state.SetItemsProcessed(state.iterations() * NUM_CALL_SITES);
}

void utilsOff(benchmark::State& state)
{
    utils::singleton::SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(0);
    for (auto _ : state)
    {
        BENCH_SIXTEEN(GENERIC_UTILS_TRACE_STEP(1, "Writing macro '"
                                                      << MACRO << "' to queue '" << QUEUE
                                                      << "' - wait = " << WAIT_MS << "."));
    }
    state.SetItemsProcessed(state.iterations() * NUM_CALL_SITES);
}

void glogOff(benchmark::State& state)
{
    for (auto _ : state)
    {
        BENCH_SIXTEEN(VLOG(1) << "Writing macro '" << MACRO << "' to queue '" << QUEUE
                              << "' - wait = " << WAIT_MS << ".");
    }
    state.SetItemsProcessed(state.iterations() * NUM_CALL_SITES);
}

void spdlogOff(benchmark::State& state)
{
    std::ostringstream target;
    spdlog::logger logger("bench", std::make_shared<spdlog::sinks::ostream_sink_mt>(target));
    logger.set_level(spdlog::level::info);
    for (auto _ : state)
    {
        BENCH_SIXTEEN(SPDLOG_LOGGER_DEBUG(&logger, "Writing macro '{}' to queue '{}' - wait = {}.",
                                          MACRO, QUEUE, WAIT_MS));
    }
    state.SetItemsProcessed(state.iterations() * NUM_CALL_SITES);
}

// ---- On ----

class StreamStrategy : public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    explicit StreamStrategy(std::ostream& target)
        : StrategyT(utils::flag::TraceMsg::STRATEGY_TYPE, "bench", false), m_target(target)
    {
    }
    ~StreamStrategy() override { cleanUp(); }

    bool isInterested(const utils::flag::TraceMsg&) override { return true; }

    void processClientObject(utils::flag::TraceMsg& message) override
    {
        message.output(m_target);
        m_target << '\n';
    }

  private:
    std::ostream& m_target;
};

// Emits one message after the other to the begin of the stream, and looks at the last one.
template <typename Emit>
void emitInto(benchmark::State& state, std::ostringstream& target, Emit emit)
{
    for (auto _ : state)
    {
        target.seekp(0);
        emit();
    }
    if (target.str().substr(TIME_LENGTH) != WORDS)
    {
        state.SkipWithError("a message is not what it should be");
    }
}

void utilsOn(benchmark::State& state)
{
    auto& level = utils::singleton::SingletonT<Flags>::getInstancePtr()->m_traceSteps;
    std::ostringstream target;
    StreamStrategy strategy(target);
    level.setValue(1);
    emitInto(state, target,
             []
             {
                 GENERIC_UTILS_TRACE_STEP(1, "Writing macro '" << MACRO << "' to queue '" << QUEUE
                                                               << "' - wait = " << WAIT_MS << ".");
             });
    level.setValue(0);
}

template <typename Sink>
void spdlogOn(benchmark::State& state)
{
    std::ostringstream target;
    spdlog::logger logger("bench", std::make_shared<Sink>(target));
    logger.set_pattern("%Y-%m-%d %H:%M:%S: %v");
    logger.set_level(spdlog::level::debug);
    emitInto(state, target,
             [&]
             {
                 SPDLOG_LOGGER_DEBUG(&logger, "Writing macro '{}' to queue '{}' - wait = {}.",
                                     MACRO, QUEUE, WAIT_MS);
             });
}

BENCHMARK(baselineOff)->Name("trace_off/baseline");
BENCHMARK(utilsOff)->Name("trace_off/utils_trace");
BENCHMARK(glogOff)->Name("trace_off/glog");
BENCHMARK(spdlogOff)->Name("trace_off/spdlog");
BENCHMARK(utilsOn)->Name("trace_on/utils_trace");
BENCHMARK(spdlogOn<spdlog::sinks::ostream_sink_st>)->Name("trace_on/spdlog_st");
BENCHMARK(spdlogOn<spdlog::sinks::ostream_sink_mt>)->Name("trace_on/spdlog_mt");

}  // namespace

}  // namespace bench
