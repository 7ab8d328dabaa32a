#include <utils/llsCalendarTime.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <limits>
#include <mutex>

#include "internal/NullText.h"

namespace utils
{

namespace
{

constexpr int FIRST_YEAR = 1900;  // of struct tm

// The text of ctime() without its line feed. ctime() itself keeps the text in one buffer for all
// threads, and ctime_r() has no room for a year of five digits.
std::string format(const std::tm& time)
{
    constexpr const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%s %s%3d %.2d:%.2d:%.2d %d", days[time.tm_wday],
                  months[time.tm_mon], time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec,
                  FIRST_YEAR + time.tm_year);
    return text.data();
}

// As localtime(), which notices a changed time zone, while localtime_r() does not. The C library has a
// lock of its own here, which the thread sanitizer cannot see.
bool toLocalTime(std::time_t calendarTime, std::tm& time)
{
    static std::mutex mutex;
    const std::lock_guard guard(mutex);
    tzset();
    return localtime_r(&calendarTime, &time) != nullptr;
}

std::string toCalendarText(std::time_t calendarTime)
{
    std::tm time{};
    if (!toLocalTime(calendarTime, time) ||
        time.tm_year > std::numeric_limits<int>::max() - FIRST_YEAR)
    {
        return toString(nullptr);
    }
    return format(time);
}

}  // namespace

Lls_CalendarTime::Lls_CalendarTime(const long& calendarTime)
    : m_calendarTime(calendarTime), m_str(toCalendarText(calendarTime))
{
}

Lls_CalendarTime::~Lls_CalendarTime() = default;

}  // namespace utils
