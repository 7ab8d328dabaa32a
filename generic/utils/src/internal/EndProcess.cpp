#include "internal/EndProcess.h"

#include <atomic>
#include <cstdlib>

#include <libos/osTask.h>

namespace utils
{

namespace
{

// How long another thread's static destructors may take before this thread, which they may be
// waiting for, ends the process in their stead.
constexpr unsigned long LONGEST_TEARDOWN_MS = 5000;

std::atomic<bool> theTeardownHasBegun{false};
thread_local bool theTeardownIsHere = false;

void noteTeardown()
{
    theTeardownIsHere = true;
    theTeardownHasBegun = true;
}

}  // namespace

void endProcess()
{
    static std::atomic<bool> isEnding{false};
    static thread_local bool isEndingHere = false;

    if (isEndingHere)
    {
        // A static destructor failed in its turn; exit() must not be entered twice.
        std::_Exit(EXIT_FAILURE);
    }
    if (!isEnding.exchange(true))
    {
        if (theTeardownHasBegun && !theTeardownIsHere)
        {
            std::_Exit(EXIT_FAILURE);
        }
        isEndingHere = true;
        std::exit(EXIT_FAILURE);
    }
    osTaskSleep(nullptr, LONGEST_TEARDOWN_MS);
    std::_Exit(EXIT_FAILURE);
}

void watchForEndOfProcess()
{
    // Registered late, and so called before the destructors of static objects.
    [[maybe_unused]] static const int isRegistered = std::atexit(&noteTeardown);
}

}  // namespace utils
