// Hex dumps of memory blocks into a string stream.

#include <benchmark/benchmark.h>

#include <iterator>
#include <random>
#include <sstream>
#include <string>

#include <spdlog/fmt/bin_to_hex.h>
#include <spdlog/fmt/fmt.h>
#include <utils/stdData.h>

namespace bench
{

namespace
{

constexpr std::size_t BYTES_PER_ROW = 16;

// Text and other bytes, half and half.
std::string makeBlock(std::int64_t size)
{
    std::mt19937 random(20260101);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> letter('a', 'z');
    std::string block;
    for (std::int64_t i = 0; i < size; ++i)
    {
        block += static_cast<char>(i % 2 == 0 ? byte(random) : letter(random));
    }
    return block;
}

void dumpWithUtils(std::ostream& os, const std::string& block)
{
    utils::Std_Data::output(os, block.data(), static_cast<int>(block.size()));
}

// Without a logger around it; the buffer lives on, as a logger's does.
void dumpWithSpdlog(std::ostream& os, const std::string& block)
{
    static fmt::memory_buffer buffer;
    buffer.clear();
    fmt::format_to(std::back_inserter(buffer), "{:a}", spdlog::to_hex(block, BYTES_PER_ROW));
    os.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
}

// One dump after the other to the begin of the stream, and a look at the last one.
void dump(benchmark::State& state, void (*dumpTo)(std::ostream&, const std::string&))
{
    const std::string block = makeBlock(state.range(0));
    std::ostringstream target;
    for (auto _ : state)
    {
        target.seekp(0);
        dumpTo(target, block);
    }
    constexpr std::size_t leastRow = sizeof("0000: ") + BYTES_PER_ROW * 4;
    if (target.str().size() < block.size() / BYTES_PER_ROW * leastRow)
    {
        state.SkipWithError("the dump is not whole");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void withAllSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(16)->Arg(256)->RangeMultiplier(2)->Range(4096, 1 << 20);
}

BENCHMARK_CAPTURE(dump, utils_Std_Data, dumpWithUtils)->Apply(withAllSizes);
BENCHMARK_CAPTURE(dump, spdlog, dumpWithSpdlog)->Apply(withAllSizes);

}  // namespace

}  // namespace bench
