#ifndef TESTS_SUPPORT_SMALLSTACK_H
#define TESTS_SUPPORT_SMALLSTACK_H

#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>

namespace test
{

/// Bytes of a stack on which no recursion gets far: 64 KiB, or the least that the system allows.
inline std::size_t smallStackSize()
{
    const long least = sysconf(_SC_THREAD_STACK_MIN);
    return std::max(std::size_t{64} * 1024, static_cast<std::size_t>(std::max(least, 0L)));
}

}  // namespace test

#endif
