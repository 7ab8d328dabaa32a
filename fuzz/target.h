#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace fuzz
{

/// What a target does with one input: every target defines it. It comes back, or ends the process
/// when something does not hold.
void run(std::string_view input);

/// Ends the process, for the fuzzer to keep the input, unless a statement about it holds.
inline void require(bool holds, const char* statement)
{
    if (!holds)
    {
        std::fprintf(stderr, "Does not hold: %s\n", statement);
        std::abort();
    }
}

}  // namespace fuzz

#endif
