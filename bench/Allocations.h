#ifndef BENCH_ALLOCATIONS_H
#define BENCH_ALLOCATIONS_H

#include <cstdint>

namespace bench
{

/// What the process has asked the heap for, in all threads, operator new included.
struct Allocations
{
    std::int64_t count;      ///< calls that returned memory
    std::int64_t heldBytes;  ///< usable bytes not given back
};

/// The figures since the start of the process. Subtract two for those of a stretch of code.
Allocations allocationsNow();

inline Allocations operator-(const Allocations& after, const Allocations& before)
{
    return {after.count - before.count, after.heldBytes - before.heldBytes};
}

}  // namespace bench

#endif
