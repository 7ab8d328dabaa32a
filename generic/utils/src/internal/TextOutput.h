#ifndef GENERIC_UTILS_INTERNAL_TEXTOUTPUT_H
#define GENERIC_UTILS_INTERNAL_TEXTOUTPUT_H

#include <locale>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

namespace utils
{

/// Writes a text as it is: width, fill and the like of the target stream neither apply nor change,
/// and an empty text does not harm the stream.
inline void writeText(std::ostream& os, std::string_view text)
{
    os.write(text.data(), static_cast<std::streamsize>(text.size()));
}

/// The words one after the other, in a stream's default format and whatever the global locale is; as
/// far as they can be written (a null text can not).
/// Throws when memory runs out, as a stream by itself does not, rather than give half of the text.
template <typename... Words>
std::string toText(const Words&... words)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    try
    {
        text.exceptions(std::ios_base::badbit);
        (text << ... << words);
    }
    catch (const std::ios_base::failure&)
    {
        // The text ends here.
    }
    return std::move(text).str();
}

/// What an object (a message, an error) writes through its output(), as far as it can be written.
/// Throws as toText() does.
template <typename Object>
std::string textOf(Object& object)
{
    std::ostringstream text;
    try
    {
        text.exceptions(std::ios_base::badbit);
        object.output(text);
    }
    catch (const std::ios_base::failure&)
    {
        // The text ends here.
    }
    return std::move(text).str();
}

/// Appends to the text of a stream that is good; throws when memory runs out, like toText().
inline void appendText(std::ostringstream& stream, std::string_view text)
{
    stream.exceptions(std::ios_base::badbit);
    writeText(stream, text);
    stream.exceptions(std::ios_base::goodbit);
}

/// Writes the words in a stream's default format, ends the line and flushes.
template <typename... Words>
void writeLine(std::ostream& os, const Words&... words)
{
    writeText(os, toText(words..., '\n'));
    os.flush();
}

/// Makes a stream ready for another text: empty, good and in the default format, whatever failure
/// or manipulators the last one left behind.
inline void makeEmpty(std::ostringstream& stream)
{
    stream.str("");
    stream.clear();
    stream.flags(std::ios_base::dec | std::ios_base::skipws);
    stream.width(0);
    stream.precision(6);
    stream.fill(' ');
}

}  // namespace utils

#endif
