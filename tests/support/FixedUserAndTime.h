#ifndef TESTS_SUPPORT_FIXEDUSERANDTIME_H
#define TESTS_SUPPORT_FIXEDUSERANDTIME_H

/// @file
/// A program that is linked with FixedUserAndTime.cpp stands between the library and the platform:
/// every header names the user "tester" and the time "2001-02-03 04:05:06", so that tests can
/// write whole texts out.

namespace test
{

/// The calendar time, in seconds since the epoch, that was to be formatted last.
long lastTimeFormatted();

}  // namespace test

#endif
