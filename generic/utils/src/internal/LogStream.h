#ifndef GENERIC_UTILS_INTERNAL_LOGSTREAM_H
#define GENERIC_UTILS_INTERNAL_LOGSTREAM_H

#include <string_view>

#include "internal/TextOutput.h"

namespace utils
{

/// Writes a text and an end of line to the standard log stream and flushes it. Lines of several
/// threads do not mix.
void writeLogLine(std::string_view text);

/// Writes an object (a trace message, an error) through its output() to the standard log stream,
/// as a line.
template <typename Object>
void writeToLog(Object& object)
{
    writeLogLine(textOf(object));
}

}  // namespace utils

#endif
