// Looking flags up by their names.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include <utils/flag/FlagT.h>
#include <boost/unordered_map.hpp>

namespace bench
{

namespace
{

using utils::flag::Flag;
using utils::flag::FlagT;

// Names such as applications give, in an order that no map keeps them in.
std::vector<std::string> makeNames(std::int64_t count)
{
    constexpr std::int64_t STRIDE = 7919;  // prime, so every number comes once
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < count; ++i)
    {
        names.push_back("instrument::subsystem::m_setting" + std::to_string(i * STRIDE % count));
    }
    return names;
}

template <typename Find>
void lookUp(benchmark::State& state, const std::vector<std::string>& names, Find find)
{
    std::size_t next = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(find(names[next]));
        next = next + 1 < names.size() ? next + 1 : 0;
    }
}

void flags(benchmark::State& state)
{
    const std::vector<std::string> names = makeNames(state.range(0));
    std::vector<std::unique_ptr<FlagT<int>>> owned;
    owned.reserve(names.size());
    for (const std::string& name : names)
    {
        owned.push_back(std::make_unique<FlagT<int>>(name, 0));
    }
    lookUp(state, names, [](const std::string& name) { return Flag::getFlagPtr(name, true); });
}

// A map of pointers that all threads may use, as the flags are.
template <typename Map>
void map(benchmark::State& state)
{
    const std::vector<std::string> names = makeNames(state.range(0));
    const std::unique_ptr<int> value = std::make_unique<int>(0);
    std::mutex mutex;
    Map values;
    for (const std::string& name : names)
    {
        values.emplace(name, value.get());
    }
    lookUp(state, names,
           [&](const std::string& name)
           {
               const std::lock_guard lock(mutex);
               const auto found = values.find(name);
               return found == values.end() ? nullptr : found->second;
           });
}

void withFewAndMany(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(100)->Arg(100'000);
}

BENCHMARK(flags)->Name("flag_look_up/utils_Flag")->Apply(withFewAndMany);
BENCHMARK(map<std::map<std::string, int*>>)->Name("flag_look_up/std_map")->Apply(withFewAndMany);
BENCHMARK(map<std::unordered_map<std::string, int*>>)
    ->Name("flag_look_up/std_unordered_map")
    ->Apply(withFewAndMany);
BENCHMARK(map<boost::unordered_map<std::string, int*>>)
    ->Name("flag_look_up/boost_unordered_map")
    ->Apply(withFewAndMany);

}  // namespace

}  // namespace bench
