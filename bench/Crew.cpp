#include "Crew.h"

#include <pthread.h>
#include <sched.h>

#include <algorithm>
#include <barrier>
#include <chrono>
#include <thread>

namespace bench
{

namespace
{

using Clock = std::chrono::steady_clock;

std::vector<int> readAvailableCores()
{
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    sched_getaffinity(0, sizeof(allowed), &allowed);

    std::vector<int> cores;
    for (int core = 0; core < CPU_SETSIZE; ++core)
    {
        if (CPU_ISSET(core, &allowed))
        {
            cores.push_back(core);
        }
    }
    return cores;
}

}  // namespace

const std::vector<int>& availableCores()
{
    static const std::vector<int> cores = readAvailableCores();
    return cores;
}

void pinToCore(std::size_t index)
{
    const std::vector<int>& cores = availableCores();
    cpu_set_t chosen;
    CPU_ZERO(&chosen);
    CPU_SET(cores[index % cores.size()], &chosen);
    pthread_setaffinity_np(pthread_self(), sizeof(chosen), &chosen);
}

double runTogether(const std::vector<std::function<void()>>& jobs, Placement placement)
{
    std::vector<Clock::time_point> begins(jobs.size());
    std::vector<Clock::time_point> ends(jobs.size());
    std::barrier start(static_cast<std::ptrdiff_t>(jobs.size()));
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < jobs.size(); ++i)
        {
            threads.emplace_back(
                [&, i]
                {
                    if (placement == Placement::PINNED)
                    {
                        pinToCore(i);
                    }
                    start.arrive_and_wait();
                    begins[i] = Clock::now();
                    jobs[i]();
                    ends[i] = Clock::now();
                });
        }
    }
    const auto first = *std::min_element(begins.begin(), begins.end());
    const auto last = *std::max_element(ends.begin(), ends.end());
    return std::chrono::duration<double>(last - first).count();
}

}  // namespace bench
