#ifndef GENERIC_UTILS_XML_MARKUP_H
#define GENERIC_UTILS_XML_MARKUP_H

#include <cstddef>
#include <string_view>

#include "xml/src/CharacterSet.h"

namespace utils::xml
{

/// @file
/// What tags are made of, and where the next one begins and ends.

constexpr std::size_t NOT_FOUND = std::string_view::npos;

constexpr char LEFT_DELIMITER = '<';
constexpr char RIGHT_DELIMITER = '>';
constexpr char END_MARKER = '/';
constexpr char NAME_VALUE_SEPARATOR = '=';

inline constexpr CharacterSet WHITE_SPACE(" \t\r\n");
inline constexpr CharacterSet LETTERS("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
inline constexpr CharacterSet ATTRIBUTE_NAME_TERMINATORS(" \t\r\n=");
inline constexpr CharacterSet VALUE_DELIMITERS("\"'");

/// @name Where the searches for the end of a name and for what follows it both have to stop
/// @{
inline constexpr CharacterSet ELEMENT_NAME_STOPS(" \t\r\n>/<");
inline constexpr CharacterSet ATTRIBUTE_NAME_STOPS(" \t\r\n=\"'");
/// @}

/// The first left delimiter from a position on that begins the tag of an element. What is between
/// the delimiters of processing instructions, comments and document types is skipped.
/// @param behindSkipped set to the end of what was skipped, by its last character, if anything was
std::size_t findElementTag(std::string_view xml, std::size_t from, std::size_t& behindSkipped);

/// The right delimiter of a tag, searched from inside; NOT_FOUND also when a left one comes first.
std::size_t findRightDelimiter(std::string_view xml, std::size_t from);

}  // namespace utils::xml

#endif
