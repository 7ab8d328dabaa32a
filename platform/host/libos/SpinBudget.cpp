#include <libos/SpinBudget.h>
#include <sched.h>

namespace host
{
namespace
{

bool countProcessors()
{
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    const bool isKnown = sched_getaffinity(0, sizeof allowed, &allowed) == 0;
    return !isKnown || CPU_COUNT(&allowed) > 1;
}

/// As the process started: threads that are bound to one processor later still share the others' work.
const bool severalProcessors = countProcessors();

}  // namespace

bool hasSeveralProcessors()
{
    return severalProcessors;
}

uint32_t SpinBudget::nextLimit()
{
    if (!hasSeveralProcessors())
    {
        return 0;
    }
    const uint32_t pauses = m_pauses.load(std::memory_order_relaxed);
    if (pauses != 0)
    {
        return pauses;
    }
    const uint32_t waits = m_waitsWithoutLoop.fetch_add(1, std::memory_order_relaxed);
    return waits % retryInterval == retryInterval - 1 ? maxPauses : 0;
}

}  // namespace host
