#ifndef GENERIC_UTILS_INTERNAL_NULLTEXT_H
#define GENERIC_UTILS_INTERNAL_NULLTEXT_H

#include <stdexcept>
#include <string>

namespace utils
{

/// A string of a text that must not be null. The older classes let a null one fail as the standard
/// string does; its words are written out here because standard libraries differ in theirs.
inline std::string toString(const char* text)
{
    if (text == nullptr)
    {
        throw std::logic_error("basic_string::_M_construct null not valid");
    }
    return text;
}

}  // namespace utils

#endif
