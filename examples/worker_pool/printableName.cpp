#include "printableName.h"

#include <string_view>

namespace worker_pool
{

namespace
{

// Three octal digits, so that a digit that follows is not taken for one of them.
std::string octal(unsigned char byte)
{
    std::string text = "\\";
    for (const int shift : {6, 3, 0})
    {
        text += static_cast<char>('0' + ((byte >> shift) & 7));
    }
    return text;
}

}  // namespace

std::string printableName(const std::string& name)
{
    static constexpr std::string_view SPECIAL = "\a\b\t\n\v\f\r\\";
    static constexpr std::string_view LETTERS = "abtnvfr\\";

    std::string text;
    for (const char character : name)
    {
        const auto byte = static_cast<unsigned char>(character);
        const std::size_t index = SPECIAL.find(character);
        if (index != std::string_view::npos)
        {
            text += '\\';
            text += LETTERS[index];
        }
        else if (byte < 0x20 || byte == 0x7f)
        {
            text += octal(byte);
        }
        else
        {
            text += character;
        }
    }
    return text;
}

}  // namespace worker_pool
