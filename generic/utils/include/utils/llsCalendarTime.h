#ifndef GENERIC_UTILS_LLSCALENDARTIME_H
#define GENERIC_UTILS_LLSCALENDARTIME_H

#include <string>

#include <utils/export.h>

namespace utils
{

/// A point in calendar time and its text.
///
/// Thread safety: any thread, as long as no thread changes the environment.
class GENERIC_UTILS_EXPORT Lls_CalendarTime
{
  public:
    /// A time that the calendar cannot represent (its year does not fit into an int) fails with
    /// std::logic_error.
    /// @param calendarTime seconds since 1970-01-01 00:00:00 UTC
    explicit Lls_CalendarTime(const long& calendarTime);
    virtual ~Lls_CalendarTime();

    /// Seconds since 1970-01-01 00:00:00 UTC.
    long getCalendarTime() const { return m_calendarTime; }

    /// Local time in the form of the C library's ctime(), without its line feed: "Thu Jan  1
    /// 00:00:00 1970".
    const std::string& getStr() const { return m_str; }

  private:
    long m_calendarTime;
    std::string m_str;
};

}  // namespace utils

#endif
