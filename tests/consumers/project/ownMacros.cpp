// Names that applications and the headers of other libraries define as macros. The library's headers
// neither stumble over them nor take them away.

#define INFO 1
#define WARNING 2
#define ERROR 3
#define CRITICAL 4
#define FATAL 5
#define DEBUG 6
#define TRACE 7
#define LOG(text) "LOG"
#define check(condition) "check"
#define verify(condition) "verify"
#define Status int
#define None 0L
#define Bool int
#define True 1
#define False 0
#define major(device) "major"
#define minor(device) "minor"
#define BIT0 (1U << 0U)
#define BIT63 (1ULL << 63U)
#define unix 1
#ifndef linux
#define linux 1
#endif
// The standard library takes these two away itself.
#define min(a, b) ((a) < (b) ? (a) : (b))
#define max(a, b) ((a) > (b) ? (a) : (b))

#include <utils/utils.h>

#include <libdbg/libdbg.h>
#include <libdir/DirectoryPaths.h>
#include <libos/libos.h>
#include <libstd/libstd.h>

int numOwnMacros()
{
    static_assert(INFO == 1 && WARNING == 2 && ERROR == 3 && CRITICAL == 4 && FATAL == 5);
    static_assert(BIT0 == 1 && BIT63 >> 63U == 1);
    static_assert(DEBUG == 6 && TRACE == 7 && True == 1 && False == 0 && unix == 1 && linux == 1);
    const Status status = None;
    const Bool isStill = LOG(x)[0] == 'L' && check(x)[0] == 'c' && verify(x)[0] == 'v' &&
                         major(x)[0] == 'm' && minor(x)[0] == 'm';
    return isStill && status == 0 ? 20 : 0;
}
