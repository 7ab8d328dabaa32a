#include <utils/llsCalendarTime.h>

#include <ctime>
#include <iomanip>
#include <limits>
#include <sstream>

#include <utils/lock/Lock.h>
#include <utils/singleton/NeverDestroyed.h>

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
    const auto twoDigits = [](std::ostream& os, int number) -> std::ostream&
    { return os << std::setw(2) << std::setfill('0') << number; };

    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << days[time.tm_wday] << ' ' << months[time.tm_mon] << std::setw(3) << time.tm_mday << ' ';
    twoDigits(text, time.tm_hour) << ':';
    twoDigits(text, time.tm_min) << ':';
    twoDigits(text, time.tm_sec) << ' ' << FIRST_YEAR + time.tm_year;
    return std::move(text).str();
}

// As localtime(), which notices a changed time zone, while localtime_r() does not. The C library has a
// lock of its own here, which the thread sanitizer cannot see.
bool toLocalTime(std::time_t calendarTime, std::tm& time)
{
    static singleton::NeverDestroyed<COsMutex> mutex;
    const lock::Lock guard(mutex.get());
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
