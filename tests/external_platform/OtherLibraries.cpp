// libstd, libdir and libdbg of the platform for tests, as simple as can be.

#include <libdbg/libdbg.h>
#include <libdir/DirectoryPaths.h>
#include <libstd/libstd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <sstream>
#include <type_traits>

namespace generic::timing
{

// Times are not measured.
void IntervalAndDuration::begin() {}
void IntervalAndDuration::end() {}
void IntervalAndDuration::output() const {}

}  // namespace generic::timing

namespace libdir
{

DirectoryPaths::~DirectoryPaths() = default;

std::string DirectoryPaths::getGenericConfigurationDirectory() const
{
    const char* const directory = std::getenv("GENERIC_CONFIG_DIR");
    return directory != nullptr ? directory : "/etc/generic";
}

DirectoryPaths* DirectoryPathsFactory::create()
{
    return new DirectoryPaths;
}

}  // namespace libdir

namespace std
{

string dateTimeToStr(const long& secondsSinceEpoch)
{
    const time_t time = secondsSinceEpoch;
    tm local{};
    char text[sizeof "YYYY-MM-DD HH:MM:SS"] = "";
    strftime(text, sizeof text, "%F %T", localtime_r(&time, &local));
    return text;
}

string getUserName()
{
    return "tester";
}

template <typename T>
T strToValue(const char* text, const T& fallback)
{
    if constexpr (is_same_v<T, string>)
    {
        return *text != '\0' ? string(text) : fallback;
    }
    else
    {
        istringstream stream{string(text)};
        T value{};
        return (stream >> value) ? value : fallback;
    }
}

template bool strToValue<bool>(const char*, const bool&);
template float strToValue<float>(const char*, const float&);
template int strToValue<int>(const char*, const int&);
template long strToValue<long>(const char*, const long&);
template unsigned short strToValue<unsigned short>(const char*, const unsigned short&);
template unsigned int strToValue<unsigned int>(const char*, const unsigned int&);
template unsigned long strToValue<unsigned long>(const char*, const unsigned long&);
template string strToValue<string>(const char*, const string&);

#define TYPE_CODE(type, code) \
    template <>               \
    Type getType<type>()      \
    {                         \
        return code;          \
    }

TYPE_CODE(short, TYPE_SHORT)
TYPE_CODE(unsigned short, TYPE_UNSIGNED_SHORT)
TYPE_CODE(int, TYPE_INT)
TYPE_CODE(unsigned int, TYPE_UNSIGNED_INT)
TYPE_CODE(long, TYPE_LONG)
TYPE_CODE(unsigned long, TYPE_UNSIGNED_LONG)
TYPE_CODE(long long, TYPE_LONG_LONG)
TYPE_CODE(unsigned long long, TYPE_UNSIGNED_LONG_LONG)
TYPE_CODE(bool, TYPE_BOOL)
TYPE_CODE(float, TYPE_FLOAT)
TYPE_CODE(double, TYPE_DOUBLE)
TYPE_CODE(string, TYPE_STRING)

}  // namespace std

int _dbg_level = 0;
int _dbg_type = 0;
const char* _dbg_filename = nullptr;
int _dbg_line = 0;
const char* _dbg_function = nullptr;

namespace
{

std::mutex recordMutex;

}  // namespace

void _dbg_lock(int)
{
    recordMutex.lock();
}

void _dbg_trace(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    recordMutex.unlock();
}
