#include <utils/stdData.h>

#include <algorithm>
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
constexpr std::size_t HEX_COLUMN_WIDTH = 48;

constexpr char HEX_DIGITS[] = "0123456789abcdef";

// At least four digits.
std::string offsetToHex(std::size_t offset)
{
    std::string digits;
    for (; offset != 0 || digits.size() < 4; offset /= 16)
    {
        digits.insert(digits.begin(), HEX_DIGITS[offset % 16]);
    }
    return digits;
}

std::string hexColumn(std::string_view bytes)
{
    std::string column;
    for (const char character : bytes)
    {
        const auto byte = static_cast<unsigned char>(character);
        column += {HEX_DIGITS[byte / 16], HEX_DIGITS[byte % 16], ' '};
    }
    column += '\0';  // readers of the dump have always got it
    column.resize(std::max(column.size(), HEX_COLUMN_WIDTH), ' ');
    return column;
}

std::string textColumn(std::string_view bytes)
{
    std::string column(bytes);
    const auto isUnprintable = [](unsigned char byte) { return std::isprint(byte) == 0; };
    std::replace_if(column.begin(), column.end(), isUnprintable, '.');
    return column;
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
    for (std::size_t start = 0; start < block.size(); start += BYTES_PER_ROW)
    {
        const std::string_view row = block.substr(start, BYTES_PER_ROW);
        const std::size_t end = start + row.size() - 1;
        writeText(os, offsetToHex(start) + "-" + offsetToHex(end) + ": " + hexColumn(row) +
                          textColumn(row) + "\n");
    }
    os << std::hex << std::setfill(' ') << std::setw(0);
    return os;
}

}  // namespace utils
