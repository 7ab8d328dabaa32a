#ifndef HOST_LIBOS_DEADLINE_H
#define HOST_LIBOS_DEADLINE_H

#include <time.h>

#include <cstdint>

namespace host
{

/// The end of a wait, on the monotonic clock.
class Deadline
{
  public:
    /// `milliseconds` from now.
    static Deadline after(uint64_t milliseconds);

    /// From a wait time as libos takes it: negative = never.
    static Deadline fromWait(int waitMs);

    /// The time as the system takes it; null when the wait has no limit.
    const timespec* get() const { return m_isLimited ? &m_time : nullptr; }

    bool isLimited() const { return m_isLimited; }

  private:
    timespec m_time{};
    bool m_isLimited = false;
};

}  // namespace host

#endif
