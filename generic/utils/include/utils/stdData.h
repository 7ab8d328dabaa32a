#ifndef GENERIC_UTILS_STDDATA_H
#define GENERIC_UTILS_STDDATA_H

#include <cstdint>
#include <iosfwd>
#include <string>

#include <utils/export.h>

namespace utils
{

/// Helpers for raw data.
///
/// Thread safety: any thread.
class GENERIC_UTILS_EXPORT Std_Data
{
  public:
    /// Converts binary digits as strtoul() does in base 2: leading white space and a sign are
    /// accepted, the first other character ends the number, and a text without digits is 0.
    /// @return the lowest 32 bits; all of them set when the number does not fit into an unsigned
    ///         long
    static std::uint32_t binaryStrToUInt32(const std::string& text);

    /// Packs the decimal digits of a value into groups of four bits, the units lowest: 1234 gives
    /// 0x1234. With more than eight digits, the ninth and tenth are ORed over the units and the
    /// tens.
    static unsigned int bcd(unsigned int value);

    /// Writes a hex dump, 16 bytes a line: the offsets of the first and the last byte, the bytes
    /// in hexadecimal, a NUL character, and the bytes as characters ('.' when not printable in the
    /// C library's locale).
    ///
    /// The stream is left in hexadecimal, with blank as its fill character and no width.
    /// @param os a stream of any state and settings
    /// @param data null: nothing is written
    /// @param length in bytes; below 1: nothing is written
    /// @return `os`
    static std::ostream& output(std::ostream& os, const void* data, int length);
};

}  // namespace utils

#endif
