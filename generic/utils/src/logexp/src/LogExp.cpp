#include <utils/logexp/LogExp.h>

#include <algorithm>
#include <array>
#include <string_view>
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

constexpr char BLANK = ' ';

constexpr std::array<bool, 256> IS_OF_IDENTIFIER = []
{
    std::array<bool, 256> table{};
    table.fill(true);
    for (const char character : {BLANK, '!', '&', '|', '(', ')', '^', '@'})
    {
        table[static_cast<unsigned char>(character)] = false;
    }
    return table;
}();

bool isOfIdentifier(char character)
{
    return IS_OF_IDENTIFIER[static_cast<unsigned char>(character)];
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

/// The value of a section without parentheses, which is taken character by character.
///
/// By rule every "!0" becomes 1, then every "!1" becomes 0, once each, and what is left is folded:
/// from left to right, "&" and "|" alike. So a 0 uses up to two "!" before it and a 1 uses one. A
/// digit with yet another "!" before it is not the operand of what stands there.
class Section
{
  public:
    void take(char character)
    {
        switch (character)
        {
            case '!':
                ++m_numNots;
                break;
            case '0':
                takeDigit(m_numNots == 1, m_numNots > 2);
                break;
            case '1':
                takeDigit(m_numNots == 0, m_numNots > 1);
                break;
            default:
                takeOperator(character);
                break;
        }
    }

    bool getValue() const { return m_value; }

  private:
    void takeDigit(bool value, bool isBehindNot)
    {
        const bool counts = m_isFirst || m_operator == (value ? '|' : '&');
        m_value = counts && !isBehindNot ? value : m_value;
        next('\0');
    }

    // The first character is no operator, whatever it is.
    void takeOperator(char character) { next(m_isFirst && m_numNots == 0 ? '\0' : character); }

    void next(char operatorBefore)
    {
        m_operator = operatorBefore;
        m_numNots = 0;
        m_isFirst = false;
    }

    bool m_value = false;
    bool m_isFirst = true;
    char m_operator = '\0';
    std::size_t m_numNots = 0;
};

bool fold(std::string_view text)
{
    Section section;
    section.take(text.at(0));
    for (const char character : text.substr(1))
    {
        section.take(character);
    }
    return section.getValue();
}

/// The values of identifiers in a table, where those that come again are found sooner.
class Values
{
  public:
    using Table = std::map<std::string, bool>;

    explicit Values(const Table& table) : m_table(table) {}

    bool get(const std::string& identifier)
    {
        if (flag::isTraced(flag::findTraceSteps<Flags>(), 2))
        {
            return LogExp::getIdValue(identifier, m_table);
        }
        const Table::value_type*& knownPtr = m_knownPtrs[placeOf(identifier)];
        if (knownPtr == nullptr || knownPtr->first != identifier)
        {
            const auto found = m_table.find(identifier);
            if (found == m_table.end())
            {
                return false;
            }
            knownPtr = &*found;
        }
        return knownPtr->second;
    }

  private:
    static constexpr std::size_t NUM_PLACES = 64;

    // Cheap; where two identifiers share a place, they only take turns.
    static std::size_t placeOf(const std::string& identifier)
    {
        const auto at = [&](std::size_t i) { return static_cast<unsigned char>(identifier[i]); };
        const std::size_t size = identifier.size();
        return (at(0) + 3U * at(size / 2) + 5U * at(size - 1) + 7U * size) % NUM_PLACES;
    }

    const Table& m_table;
    std::array<const Table::value_type*, NUM_PLACES> m_knownPtrs{};
};

// All steps of a section are traced in the name of the public operation.
constexpr SourceLocation inSection(int line)
{
    return {__FILE__, line, "calculateSection"};
}

bool calculate(std::string_view section, int sectionNumber)
{
    GENERIC_UTILS_TRACE_AT(inSection(__LINE__), flag::findTraceSteps<Flags>(), 2,
                           "    calculateSection." << sectionNumber << " " << section);
    const bool result = fold(section);
    GENERIC_UTILS_TRACE_AT(inSection(__LINE__), flag::findTraceSteps<Flags>(), 3,
                           "      result = " << result);
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

    std::string output = expression;  // no shorter than what is written over it
    std::size_t size = 0;
    std::string identifier;
    Values values(table);
    const auto endIdentifier = [&]
    {
        if (!identifier.empty())
        {
            output[size++] = toDigit(values.get(identifier));
            identifier.clear();
        }
    };

    for (auto next = expression.begin(); next != expression.end(); ++next)
    {
        if (isOfIdentifier(*next))
        {
            const auto end = std::find_if_not(next + 1, expression.end(), isOfIdentifier);
            identifier.append(next, end);
            next = end - 1;
        }
        else if (*next != BLANK)
        {
            endIdentifier();
            output[size++] = toMainSpelling(*next);
        }
    }
    endIdentifier();
    output.resize(size);
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
        const std::string_view before = std::string_view(expression).substr(0, size);
        const std::string_view section = before.substr(std::min(start + 1, size));
        expression[start] = toDigit(logexp::calculate(section, 0));
        size = start + 1;
    }
    return logexp::calculate(std::string_view(expression).substr(0, size), 0);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value, as the interface has it
bool LogExp::calculateSection(std::string section, int sectionNumber)
{
    return logexp::calculate(section, sectionNumber);
}

}  // namespace utils::logexp
