#ifndef UTILS_INTERNAL_LOGSTREAM_H
#define UTILS_INTERNAL_LOGSTREAM_H

#include <sstream>
#include <string_view>

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
    std::ostringstream text;
    object.output(text);
    writeLogLine(text.view());
}

}  // namespace utils

#endif
