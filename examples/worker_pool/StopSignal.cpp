#include "StopSignal.h"

#include <signal.h>

#include <atomic>

namespace worker_pool
{

namespace
{

std::atomic<int> theStopSignal{0};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler takes no locks");

void noteSignal(int signal)
{
    theStopSignal = signal;
}

void catchSignal(int signal)
{
    struct sigaction previous = {};
    if (sigaction(signal, nullptr, &previous) == 0 && previous.sa_handler == SIG_IGN)
    {
        return;
    }
    struct sigaction action = {};
    action.sa_handler = &noteSignal;
    // The system's own handling, which ends the process, is back after the first one.
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(signal, &action, nullptr);
}

}  // namespace

void catchStopSignals()
{
    catchSignal(SIGINT);
    catchSignal(SIGTERM);
}

int stopSignal()
{
    return theStopSignal;
}

}  // namespace worker_pool
