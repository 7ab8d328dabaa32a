#include "err/SyslogStandIn.h"

#include <cstdarg>
#include <cstdio>

namespace
{

void record(int priority, const char* format, va_list arguments)
{
    char text[4096];
    std::vsnprintf(text, sizeof text, format, arguments);
    test::syslogRecords().push_back({priority, text});
}

}  // namespace

std::vector<test::SyslogRecord>& test::syslogRecords()
{
    static std::vector<SyslogRecord> theRecords;
    return theRecords;
}

extern "C" {

__attribute__((visibility("default"), format(printf, 2, 3))) void syslog(int priority,
                                                                         const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    record(priority, format, arguments);
    va_end(arguments);
}

// What the C library's header makes of syslog() in a fortified build.
__attribute__((visibility("default"), format(printf, 3, 4))) void __syslog_chk(int priority, int,
                                                                               const char* format,
                                                                               ...)
{
    va_list arguments;
    va_start(arguments, format);
    record(priority, format, arguments);
    va_end(arguments);
}
}
