#include <utils/logexp/LogExp.h>

#include <string_view>
#include <utility>
#include <vector>

#include <utils/flag/Trace.h>
#include <utils/logexp/Flags.h>

namespace utils::logexp
{

namespace
{

char toDigit(bool value)
{
    return value ? '1' : '0';
}

bool isOperatorOrParenthesis(char character)
{
    return std::string_view("!&|()^@").find(character) != std::string_view::npos;
}

char toMainSpelling(char character)
{
    switch (character)
    {
        case '^':
            return '!';
        case '@':
            return '&';
        default:
            return character;
    }
}

// Replaces every "!" that stands before the digit, together with the digit. No replacement makes
// another one possible, so one pass does.
void replaceNegated(std::string& section, char digit, char replacement)
{
    std::size_t size = 0;
    for (const char character : section)
    {
        if (character == digit && size > 0 && section[size - 1] == '!')
        {
            section[size - 1] = replacement;
        }
        else
        {
            section[size++] = character;
        }
    }
    section.resize(size);
}

// From left to right, "&" and "|" alike.
bool fold(const std::string& section)
{
    bool result = section.at(0) == '1';
    for (std::size_t i = 1; i + 1 < section.size(); ++i)
    {
        const char operand = section[i + 1];
        if (section[i] == '&' && operand == '0')
        {
            result = false;
        }
        else if (section[i] == '|' && operand == '1')
        {
            result = true;
        }
    }
    return result;
}

}  // namespace

bool LogExp::evaluate(const std::string& expression, const std::map<std::string, bool>& table)
{
    return expression.empty() || calculate(parse(expression, table));
}

std::string LogExp::parse(const std::string& expression, const std::map<std::string, bool>& table)
{
    GENERIC_UTILS_TRACE_STEP(2, "    parse " << expression);

    std::string output;
    std::string identifier;
    const auto endIdentifier = [&]
    {
        if (!identifier.empty())
        {
            output += toDigit(getIdValue(identifier, table));
            identifier.clear();
        }
    };

    for (const char character : expression)
    {
        if (isOperatorOrParenthesis(character))
        {
            endIdentifier();
            output += toMainSpelling(character);
        }
        else if (character != ' ')
        {
            identifier += character;
        }
    }
    endIdentifier();
    return output;
}

bool LogExp::getIdValue(const std::string& identifier, const std::map<std::string, bool>& table)
{
    GENERIC_UTILS_TRACE_STEP(2, "    getIdValue " << identifier);
    const auto found = table.find(identifier);
    const bool isFound = found != table.end();
    if (isFound)
    {
        GENERIC_UTILS_TRACE_STEP(3, "      " << identifier << " found");
    }
    else
    {
        GENERIC_UTILS_TRACE_STEP(3, "      " << identifier << " not found");
    }
    const bool value = isFound && found->second;
    GENERIC_UTILS_TRACE_STEP(3, "      " << identifier << " = " << value);
    return value;
}

// Sections end in the order in which they are to be calculated, so that one pass reduces them all.
// The text before the character at hand is reduced in place to its first `size` characters; there
// is no ")" left in it, and all its "(" are open.
bool LogExp::calculate(std::string expression)
{
    GENERIC_UTILS_TRACE_STEP(2, "    calculate " << expression);

    std::size_t size = 0;
    std::vector<std::size_t> opened;
    for (const char character : expression)
    {
        if (character == '(')
        {
            opened.push_back(size);
        }
        if (character != ')')
        {
            expression[size++] = character;
            continue;
        }
        std::size_t start = 0;  // where a section begins that was never opened
        if (!opened.empty())
        {
            start = opened.back();
            opened.pop_back();
        }
        const std::size_t sectionSize = start < size ? size - start - 1 : 0;
        const bool value = calculateSection(expression.substr(start + 1, sectionSize), 0);
        expression[start] = toDigit(value);
        size = start + 1;
    }
    expression.resize(size);
    return calculateSection(std::move(expression), 0);
}

bool LogExp::calculateSection(std::string section, int sectionNumber)
{
    GENERIC_UTILS_TRACE_STEP(2, "    calculateSection." << sectionNumber << " " << section);
    replaceNegated(section, '0', '1');
    replaceNegated(section, '1', '0');
    const bool result = fold(section);
    GENERIC_UTILS_TRACE_STEP(3, "      result = " << result);
    return result;
}

}  // namespace utils::logexp
