#include <libstd/system.h>
#include <time.h>

namespace std
{
namespace
{

constexpr int firstYear = 1900;
constexpr int firstMonth = 1;

string yearToStr(long year)
{
    const string digits = to_string(year);
    return digits.size() < 4 ? string(4 - digits.size(), '0') + digits : digits;
}

void setTwoDigits(char* place, int value)
{
    place[0] = static_cast<char>('0' + value / 10);
    place[1] = static_cast<char>('0' + value % 10);
}

}  // namespace

string dateTimeToStr(const long& secondsSinceEpoch)
{
    const time_t time = secondsSinceEpoch;
    tm local{};
    if (localtime_r(&time, &local) == nullptr)
    {
        return to_string(secondsSinceEpoch);
    }
    string text = yearToStr(static_cast<long>(local.tm_year) + firstYear);
    const size_t endOfYear = text.size();
    text += "-MM-DD HH:MM:SS";
    char* const rest = text.data() + endOfYear;
    setTwoDigits(rest + 1, local.tm_mon + firstMonth);
    setTwoDigits(rest + 4, local.tm_mday);
    setTwoDigits(rest + 7, local.tm_hour);
    setTwoDigits(rest + 10, local.tm_min);
    setTwoDigits(rest + 13, local.tm_sec);
    return text;
}

}  // namespace std
