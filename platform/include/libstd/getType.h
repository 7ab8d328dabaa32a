#ifndef LIBSTD_GETTYPE_H
#define LIBSTD_GETTYPE_H

#include <string>

/// @file
/// What kind of type a value has, as a platform extension of namespace std.

namespace std
{

/// Codes of value types. The codes 1 to 8, and only these, are integers that may be written in
/// hexadecimal, "0x" first.
enum Type : int
{
    TYPE_SHORT = 1,
    TYPE_UNSIGNED_SHORT = 2,
    TYPE_INT = 3,
    TYPE_UNSIGNED_INT = 4,
    TYPE_LONG = 5,
    TYPE_UNSIGNED_LONG = 6,
    TYPE_LONG_LONG = 7,
    TYPE_UNSIGNED_LONG_LONG = 8,
    TYPE_BOOL = 9,
    TYPE_FLOAT = 10,
    TYPE_DOUBLE = 11,
    TYPE_STRING = 12
};

/// The code of T. Defined for the types that Type names.
template <typename T>
__attribute__((visibility("default"))) Type getType();

/// @name Specialisations, in the order of the codes
/// @{

/// The code of the type.
template <>
Type getType<short>();
template <>
Type getType<unsigned short>();
template <>
Type getType<int>();
template <>
Type getType<unsigned int>();
template <>
Type getType<long>();
template <>
Type getType<unsigned long>();
template <>
Type getType<long long>();
template <>
Type getType<unsigned long long>();
template <>
Type getType<bool>();
template <>
Type getType<float>();
template <>
Type getType<double>();
template <>
Type getType<string>();
/// @}

}  // namespace std

#endif
