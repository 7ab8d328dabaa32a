#include "core/parseParameter.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "core/ScpiError.h"

namespace instrument
{

namespace
{

constexpr std::string_view WHITE_SPACE = " \t\r";

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isLetter(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isOfWord(char character)
{
    return isLetter(character) || isDigit(character) || character == '_';
}

std::string_view trimEnd(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(WHITE_SPACE) + 1);
}

Parameter makeNumber(double value)
{
    return {Parameter::Type::NUMBER, value, {}};
}

// Too large a number becomes infinite, which no command takes; too small a one becomes 0.
double limitOf(std::string_view text)
{
    const std::size_t exponent = text.find_first_of("eE");
    const bool isSmall =
        exponent != std::string_view::npos && text.substr(exponent + 1).starts_with('-');
    return isSmall ? 0 : std::numeric_limits<double>::infinity();
}

Parameter parseDecimal(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
    {
        text.remove_prefix(1);
    }
    // No second sign, and no words for infinity and the like.
    if (text.empty() || !(isDigit(text.front()) || text.front() == '.'))
    {
        throw CommandFailure(ScpiError::INVALID_CHARACTER_IN_NUMBER);
    }
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc::invalid_argument)
    {
        throw CommandFailure(ScpiError::INVALID_CHARACTER_IN_NUMBER);
    }
    if (rest != end)
    {
        const bool isSuffix = isLetter(*rest) || *rest == ' ';
        throw CommandFailure(isSuffix ? ScpiError::SUFFIX_NOT_ALLOWED
                                      : ScpiError::INVALID_CHARACTER_IN_NUMBER);
    }
    if (error == std::errc::result_out_of_range)
    {
        value = limitOf(text);
    }
    return makeNumber(isNegative ? -value : value);
}

Parameter parseWithBase(std::string_view digits, int base)
{
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, value, base);
    if (error == std::errc::invalid_argument || rest != end)
    {
        throw CommandFailure(ScpiError::INVALID_CHARACTER_IN_NUMBER);
    }
    const bool isTooLarge = error == std::errc::result_out_of_range;
    return makeNumber(isTooLarge ? std::numeric_limits<double>::infinity()
                                 : static_cast<double>(value));
}

Parameter parseBlock(std::string_view text)
{
    const auto numDigits = static_cast<std::size_t>(text.front() - '0');
    std::size_t length = 0;
    const std::string_view digits = text.substr(1, numDigits);
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, length);
    const bool isLengthRead = error == std::errc() && rest == end && digits.size() == numDigits;
    text.remove_prefix(std::min(1 + numDigits, text.size()));
    if (!isLengthRead || text.size() < length || !trimEnd(text.substr(length)).empty())
    {
        throw CommandFailure(ScpiError::INVALID_BLOCK_DATA);
    }
    return {Parameter::Type::BLOCK, 0, std::string(text.substr(0, length))};
}

Parameter parseHash(std::string_view text)
{
    const char kind = text.empty() ? '\0' : text.front();
    if (kind >= '1' && kind <= '9')
    {
        return parseBlock(text);
    }
    const std::string_view digits = trimEnd(text.substr(std::min<std::size_t>(1, text.size())));
    switch (kind)
    {
        case 'H':
        case 'h':
            return parseWithBase(digits, 16);
        case 'Q':
        case 'q':
            return parseWithBase(digits, 8);
        case 'B':
        case 'b':
            return parseWithBase(digits, 2);
        default:
            throw CommandFailure(ScpiError::INVALID_BLOCK_DATA);
    }
}

Parameter parseString(std::string_view text)
{
    const char quote = text.front();
    Parameter parameter{Parameter::Type::STRING, 0, {}};
    for (std::size_t i = 1; i < text.size(); ++i)
    {
        if (text[i] != quote)
        {
            parameter.text += text[i];
            continue;
        }
        const bool isDoubled = i + 1 < text.size() && text[i + 1] == quote;
        if (!isDoubled)
        {
            if (i + 1 == text.size())
            {
                return parameter;
            }
            break;
        }
        parameter.text += quote;
        ++i;
    }
    throw CommandFailure(ScpiError::INVALID_STRING_DATA);
}

Parameter parseWord(std::string_view text)
{
    for (const char character : text)
    {
        if (!isOfWord(character))
        {
            throw CommandFailure(ScpiError::SYNTAX_ERROR);
        }
    }
    return {Parameter::Type::WORD, 0, std::string(text)};
}

}  // namespace

Parameter parseParameter(std::string_view text)
{
    const char first = text.empty() ? '\0' : text.front();
    if (first == '#')
    {
        return parseHash(text.substr(1));
    }
    text = trimEnd(text);
    if (first == '"' || first == '\'')
    {
        return parseString(text);
    }
    if (isDigit(first) || first == '+' || first == '-' || first == '.')
    {
        return parseDecimal(text);
    }
    if (isLetter(first))
    {
        return parseWord(text);
    }
    throw CommandFailure(ScpiError::SYNTAX_ERROR);
}

}  // namespace instrument
