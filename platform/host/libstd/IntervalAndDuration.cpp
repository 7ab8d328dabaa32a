#include <libstd/IntervalAndDuration.h>

#include <chrono>

namespace generic::timing
{
namespace
{

constexpr int64_t NOT_BEGUN = 0;

std::atomic<bool> isMeasuring{false};

int64_t now()
{
    using std::chrono::duration_cast;
    using std::chrono::nanoseconds;
    using std::chrono::steady_clock;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

void IntervalAndDuration::setMeasuring(bool newIsMeasuring)
{
    isMeasuring.store(newIsMeasuring, std::memory_order_relaxed);
}

void IntervalAndDuration::begin()
{
    m_beginNs.store(isMeasuring.load(std::memory_order_relaxed) ? now() : NOT_BEGUN,
                    std::memory_order_relaxed);
}

void IntervalAndDuration::end()
{
    // The beginning is loaded before the clock is read, so that it is never the later of the two.
    const int64_t beginNs = m_beginNs.load(std::memory_order_relaxed);
    if (beginNs != NOT_BEGUN)
    {
        m_durationNs.store(now() - beginNs, std::memory_order_relaxed);
    }
}

void IntervalAndDuration::output() const {}

}  // namespace generic::timing
