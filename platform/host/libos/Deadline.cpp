#include <libos/Deadline.h>

namespace host
{
namespace
{

constexpr long nanosecondsPerSecond = 1'000'000'000;
constexpr long nanosecondsPerMillisecond = 1'000'000;
constexpr uint64_t millisecondsPerSecond = 1'000;

}  // namespace

Deadline Deadline::after(uint64_t milliseconds)
{
    Deadline deadline;
    deadline.m_isLimited = true;
    timespec& time = deadline.m_time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    time.tv_sec += static_cast<time_t>(milliseconds / millisecondsPerSecond);
    time.tv_nsec +=
        static_cast<long>(milliseconds % millisecondsPerSecond) * nanosecondsPerMillisecond;
    if (time.tv_nsec >= nanosecondsPerSecond)
    {
        time.tv_nsec -= nanosecondsPerSecond;
        ++time.tv_sec;
    }
    return deadline;
}

Deadline Deadline::fromWait(int waitMs)
{
    return waitMs < 0 ? Deadline() : after(static_cast<uint64_t>(waitMs));
}

}  // namespace host
