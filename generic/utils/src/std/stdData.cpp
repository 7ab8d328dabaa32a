#include <utils/stdData.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <iomanip>
#include <ostream>
#include <string_view>

#include "internal/TextOutput.h"

namespace utils
{

namespace
{

constexpr std::size_t BYTES_PER_ROW = 16;
constexpr std::size_t ROWS_AT_ONCE = 32;
constexpr std::size_t HEX_COLUMN_WIDTH = 48;

constexpr char HEX_DIGITS[] = "0123456789abcdef";

// Two offsets of as many digits as there can be, both columns, and what stands in between.
constexpr std::size_t LONGEST_LINE = 2 * 2 * sizeof(std::size_t) + 5 * BYTES_PER_ROW;

// What follows writes to where there is room, and returns where it ended.

// At least four digits.
char* putOffset(char* out, std::size_t offset)
{
    int shift = 12;
    while (offset >> shift > 0xf)
    {
        shift += 4;
    }
    for (; shift >= 0; shift -= 4)
    {
        *out++ = HEX_DIGITS[offset >> shift & 0xf];
    }
    return out;
}

char* putHexColumn(char* out, std::string_view row)
{
    char* const columnEnd = out + HEX_COLUMN_WIDTH;
    for (const char character : row)
    {
        const auto byte = static_cast<unsigned char>(character);
        *out++ = HEX_DIGITS[byte / 16];
        *out++ = HEX_DIGITS[byte % 16];
        *out++ = ' ';
    }
    *out++ = '\0';  // readers of the dump have always got it
    while (out < columnEnd)
    {
        *out++ = ' ';
    }
    return out;
}

char* putTextColumn(char* out, std::string_view row)
{
    return std::transform(row.begin(), row.end(), out,
                          [](unsigned char byte)
                          { return std::isprint(byte) != 0 ? static_cast<char>(byte) : '.'; });
}

char* putLine(char* out, std::size_t start, std::string_view row)
{
    out = putOffset(out, start);
    *out++ = '-';
    out = putOffset(out, start + row.size() - 1);
    *out++ = ':';
    *out++ = ' ';
    out = putHexColumn(out, row);
    out = putTextColumn(out, row);
    *out++ = '\n';
    return out;
}

// In one piece, since each call of the stream takes its time.
void writeRows(std::ostream& os, std::size_t start, std::string_view rows)
{
    std::array<char, ROWS_AT_ONCE * LONGEST_LINE> text;
    char* end = text.data();
    for (std::size_t i = 0; i < rows.size(); i += BYTES_PER_ROW)
    {
        end = putLine(end, start + i, rows.substr(i, BYTES_PER_ROW));
    }
    writeText(os, {text.data(), static_cast<std::size_t>(end - text.data())});
}

}  // namespace

std::uint32_t Std_Data::binaryStrToUInt32(const std::string& text)
{
    constexpr int base = 2;
    return static_cast<std::uint32_t>(std::strtoul(text.c_str(), nullptr, base));
}

unsigned int Std_Data::bcd(unsigned int value)
{
    unsigned int packed = 0;
    for (unsigned int shift = 0; value != 0; value /= 10, shift = (shift + 4) % 32)
    {
        packed |= value % 10 << shift;
    }
    return packed;
}

std::ostream& Std_Data::output(std::ostream& os, const void* data, int length)
{
    if (data == nullptr || length < 1)
    {
        return os;
    }
    const std::string_view block(static_cast<const char*>(data), static_cast<std::size_t>(length));
    for (std::size_t start = 0; start < block.size(); start += ROWS_AT_ONCE * BYTES_PER_ROW)
    {
        writeRows(os, start, block.substr(start, ROWS_AT_ONCE * BYTES_PER_ROW));
    }
    os << std::hex << std::setfill(' ') << std::setw(0);
    return os;
}

}  // namespace utils
