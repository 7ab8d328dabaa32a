#include "core/ProgramMessage.h"

#include <algorithm>

#include "core/DataScanner.h"
#include "core/ScpiError.h"
#include "core/parseParameter.h"

namespace instrument
{

namespace
{

constexpr std::string_view WHITE_SPACE = " \t\r";
constexpr std::string_view LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view HEADER_CHARACTERS =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_:*?";

std::string_view trimStart(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(WHITE_SPACE);
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

// Cuts off what comes before the first separator that is no data.
// @param isCut whether there was one
std::string_view cut(std::string_view& rest, char separator, DataScanner scanner, bool& isCut)
{
    isCut = false;
    std::size_t end = 0;
    for (; end < rest.size() && !isCut; ++end)
    {
        const bool isPlain = scanner.next(rest[end]) == DataScanner::Place::PLAIN;
        isCut = isPlain && rest[end] == separator;
    }
    const std::string_view part = rest.substr(0, isCut ? end - 1 : end);
    rest.remove_prefix(end);
    return part;
}

std::vector<Parameter> parseParameters(std::string_view rest)
{
    std::vector<Parameter> parameters;
    for (bool isMore = !rest.empty(); isMore;)
    {
        DataScanner scanner;
        scanner.next(',');  // what follows is a parameter
        parameters.push_back(parseParameter(trimStart(cut(rest, ',', scanner, isMore))));
    }
    return parameters;
}

void requirePrintable(std::string_view text)
{
    DataScanner scanner;
    for (const char byte : text)
    {
        const bool isPlain = scanner.next(byte) == DataScanner::Place::PLAIN;
        const bool isPrintable = byte > ' ' && byte < '\x7f';
        if (isPlain && !isPrintable && WHITE_SPACE.find(byte) == std::string_view::npos)
        {
            throw CommandFailure(ScpiError::INVALID_CHARACTER);
        }
    }
}

void requireMnemonic(std::string_view node)
{
    const bool beginsWithLetter =
        !node.empty() && LETTERS.find(node.front()) != std::string_view::npos;
    if (!beginsWithLetter || node.find_first_of(":*?") != std::string_view::npos)
    {
        throw CommandFailure(ScpiError::SYNTAX_ERROR);
    }
}

void requireHeader(std::string_view header)
{
    if (header.find_first_not_of(HEADER_CHARACTERS) != std::string_view::npos)
    {
        throw CommandFailure(ScpiError::INVALID_CHARACTER);
    }
    if (header.starts_with('*') || header.starts_with(':'))
    {
        header.remove_prefix(1);
    }
    for (std::size_t colon = header.find(':'); colon != std::string_view::npos;
         colon = header.find(':'))
    {
        requireMnemonic(header.substr(0, colon));
        header.remove_prefix(colon + 1);
    }
    requireMnemonic(header);
}

}  // namespace

std::string_view cutUnit(std::string_view& rest)
{
    bool isCut = false;
    return cut(rest, ';', DataScanner(), isCut);
}

MessageUnit parseUnit(std::string_view text)
{
    text = trimStart(text);
    MessageUnit unit;
    if (text.empty())
    {
        return unit;
    }
    requirePrintable(text);

    const std::size_t headerEnd = std::min(text.find_first_of(WHITE_SPACE), text.size());
    std::string_view header = text.substr(0, headerEnd);
    unit.isQuery = header.ends_with('?');
    if (unit.isQuery)
    {
        header.remove_suffix(1);
    }
    requireHeader(header);
    unit.header = header;
    unit.parameters = parseParameters(trimStart(text.substr(headerEnd)));
    return unit;
}

}  // namespace instrument
