#ifndef LIBSTD_SYSTEM_H
#define LIBSTD_SYSTEM_H

#include <string>

/// @file
/// Date and user, as platform extensions of namespace std.

namespace std
{

/// A calendar time as local date and time, "YYYY-MM-DD HH:MM:SS".
/// @param secondsSinceEpoch seconds since 1970-01-01 00:00:00 UTC; a time that the calendar cannot
///        represent is written as its number
__attribute__((visibility("default"))) std::string dateTimeToStr(const long& secondsSinceEpoch);

/// The login name of the process's effective user, or the numeric id when the user has none.
__attribute__((visibility("default"))) std::string getUserName();

}  // namespace std

#endif
