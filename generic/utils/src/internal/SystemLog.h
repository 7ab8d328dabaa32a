#ifndef GENERIC_UTILS_INTERNAL_SYSTEMLOG_H
#define GENERIC_UTILS_INTERNAL_SYSTEMLOG_H

#include <string>

namespace utils
{

/// Sends one record to the system log.
/// @param severity a word in any letter case: fatal, critical, error, warning, info or debug; any
///        other word is logged as a notice
void writeToSystemLog(const std::string& severity, const std::string& text);

}  // namespace utils

#endif
