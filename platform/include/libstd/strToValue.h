#ifndef LIBSTD_STRTOVALUE_H
#define LIBSTD_STRTOVALUE_H

#include <string>

/// @file
/// Conversion of text to values, as platform extensions of namespace std.

namespace std
{

/// Converts a NUL-terminated text.
///
/// Numbers and `bool` are read as a stream of the classic locale reads them: leading white space is skipped, reading stops at
/// the first character that cannot belong to the number, overflow is a failure, and a `bool` is 0 or 1.
/// A string is the whole text, inner blanks included; the empty text is a failure.
///
/// Defined for bool, float, int, long, unsigned short, unsigned int, unsigned long and std::string.
/// @param text not null
/// @param fallback the result when the text cannot be converted
template <typename T>
__attribute__((visibility("default"))) T strToValue(const char* text, const T& fallback = T());

/// @cond
extern template bool strToValue<bool>(const char*, const bool&);
extern template float strToValue<float>(const char*, const float&);
extern template int strToValue<int>(const char*, const int&);
extern template long strToValue<long>(const char*, const long&);
extern template unsigned short strToValue<unsigned short>(const char*, const unsigned short&);
extern template unsigned int strToValue<unsigned int>(const char*, const unsigned int&);
extern template unsigned long strToValue<unsigned long>(const char*, const unsigned long&);
extern template std::string strToValue<std::string>(const char*, const std::string&);
/// @endcond

}  // namespace std

#endif
