#ifndef TESTS_PLATFORM_PACE_H
#define TESTS_PLATFORM_PACE_H

#include <atomic>
#include <chrono>

namespace test
{

/// Keeps the processor busy between the rounds of a test in which one thread acts while another is about
/// to fall asleep. Some rounds in a row take so long that the other thread learns to sleep without
/// delay; the pauses of the others sweep over the moment at which it does so.
inline void pace(unsigned round)
{
    constexpr unsigned cycle = 75;
    constexpr unsigned longRounds = 12;
    constexpr unsigned steps = 600;
    if (round % cycle < longRounds)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(60);
        while (std::chrono::steady_clock::now() < end)
        {
        }
        return;
    }
    for (unsigned step = 0; step < round * 7 % steps; ++step)
    {
        std::atomic_signal_fence(std::memory_order_seq_cst);
    }
}

}  // namespace test

#endif
