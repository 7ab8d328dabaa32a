#ifndef BENCH_CREW_H
#define BENCH_CREW_H

#include <functional>
#include <vector>

namespace bench
{

/// Whether the threads of a crew stay on one core each or go where the system puts them.
enum class Placement
{
    FREE,
    PINNED
};

/// The system's numbers of the cores that the process may use.
const std::vector<int>& availableCores();

/// Keeps the calling thread on one of availableCores().
/// @param index counted round when there are fewer cores
void pinToCore(std::size_t index);

/// Runs every job on a thread of its own; the threads start together.
/// @return the seconds from the first job's begin to the last one's end
double runTogether(const std::vector<std::function<void()>>& jobs, Placement placement);

}  // namespace bench

#endif
