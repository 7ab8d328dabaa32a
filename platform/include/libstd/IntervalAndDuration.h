#ifndef LIBSTD_INTERVALANDDURATION_H
#define LIBSTD_INTERVALANDDURATION_H

#include <stdint.h>

namespace generic::timing
{

/// Measures one interval at a time: begin(), end(), and the duration between them.
///
/// Not synchronised: the owner serialises its use.
class __attribute__((visibility("default"))) IntervalAndDuration
{
  public:
    /// Starts an interval now.
    void begin();

    /// Ends the interval now.
    void end();

    /// Reports the interval as configured on the platform. A host reports nothing.
    void output() const;

    /// Length of the latest finished interval in nanoseconds; 0 before the first.
    int64_t getDurationNs() const { return m_durationNs; }

  private:
    int64_t m_beginNs = 0;
    int64_t m_durationNs = 0;
};

}  // namespace generic::timing

#endif
