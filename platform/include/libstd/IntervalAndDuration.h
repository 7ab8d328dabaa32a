#ifndef LIBSTD_INTERVALANDDURATION_H
#define LIBSTD_INTERVALANDDURATION_H

#include <stdint.h>

#include <atomic>

namespace generic::timing
{

/// Measures one interval at a time: begin(), end(), and the duration between them.
///
/// Every lock is taken inside such an interval, hence the clock is read only while the process wants
/// that: see setMeasuring().
///
/// Free of data races, but it keeps only one interval: when a second thread begins before the first ends,
/// the duration counts from the later beginning.
class __attribute__((visibility("default"))) IntervalAndDuration
{
  public:
    /// Whether intervals are measured from now on, of all objects of the process; at first they are not.
    /// An interval that began unmeasured ends so.
    static void setMeasuring(bool isMeasuring);

    /// Starts an interval now.
    void begin();

    /// Ends the interval now.
    void end();

    /// Reports the interval as configured on the platform. A host reports nothing.
    void output() const;

    /// Length of the latest measured interval in nanoseconds; 0 before the first.
    int64_t getDurationNs() const { return m_durationNs.load(std::memory_order_relaxed); }

  private:
    std::atomic<int64_t> m_beginNs{0};
    std::atomic<int64_t> m_durationNs{0};
};

}  // namespace generic::timing

#endif
