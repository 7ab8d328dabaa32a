#include "core/checkExpression.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

namespace instrument
{

namespace
{

constexpr std::string_view OPERATORS = "!^&@|()";

/// Goes along an expression from left to right.
class ExpressionChecker
{
  public:
    explicit ExpressionChecker(const std::vector<StateConfiguration>& states) : m_states(states) {}

    // @return what is wrong with this part, being what came before
    std::string add(std::string_view part)
    {
        switch (part.front())
        {
            case '!':
            case '^':
                return addNot();
            case '&':
            case '@':
                return addBinary('&');
            case '|':
                return addBinary('|');
            case '(':
                return open();
            case ')':
                return close();
            default:
                return addName(part);
        }
    }

    std::string finish() const
    {
        if (m_wantsOperand)
        {
            return "an operand is missing at its end";
        }
        return m_levels.size() == 1 ? "" : "')' is missing";
    }

  private:
    std::string addNot()
    {
        if (!m_wantsOperand)
        {
            return "an operator is missing before '!'";
        }
        if (m_isAfterNot)
        {
            return "two negations in a row";
        }
        m_isAfterNot = true;
        return "";
    }

    std::string addBinary(char binary)
    {
        if (m_wantsOperand)
        {
            return fmt::format("an operand is missing before '{}'", binary);
        }
        char& before = m_levels.back();
        if (before != '\0' && before != binary)
        {
            return "'&' and '|' are mixed without parentheses";
        }
        before = binary;
        m_wantsOperand = true;
        return "";
    }

    std::string open()
    {
        if (!m_wantsOperand)
        {
            return "an operator is missing before '('";
        }
        m_levels.push_back('\0');
        m_isAfterNot = false;
        return "";
    }

    std::string close()
    {
        if (m_wantsOperand)
        {
            return "an operand is missing before ')'";
        }
        if (m_levels.size() == 1)
        {
            return "'(' is missing";
        }
        m_levels.pop_back();
        return "";
    }

    std::string addName(std::string_view name)
    {
        if (!m_wantsOperand)
        {
            return fmt::format("an operator is missing before '{}'", name);
        }
        const bool isKnown =
            std::any_of(m_states.begin(), m_states.end(),
                        [name](const StateConfiguration& state) { return state.name == name; });
        m_wantsOperand = false;
        m_isAfterNot = false;
        return isKnown ? "" : fmt::format("state '{}' is not known", name);
    }

    const std::vector<StateConfiguration>& m_states;
    std::string m_levels = std::string(1, '\0');  // "&" or "|" of each open "(", NUL before it
    bool m_wantsOperand = true;
    bool m_isAfterNot = false;
};

}  // namespace

std::string checkExpression(const std::string& expression,
                            const std::vector<StateConfiguration>& states)
{
    ExpressionChecker checker(states);
    constexpr std::string_view BLANKS = " \t\r\n";
    const std::string_view text = expression;
    for (std::size_t i = 0; i < text.size();)
    {
        std::size_t size = 1;
        if (BLANKS.find(text[i]) != std::string_view::npos)
        {
            ++i;
            continue;
        }
        if (OPERATORS.find(text[i]) == std::string_view::npos)
        {
            size = std::min(text.find_first_of("!^&@|() \t\r\n", i), text.size()) - i;
        }
        std::string problem = checker.add(text.substr(i, size));
        if (!problem.empty())
        {
            return problem;
        }
        i += size;
    }
    return checker.finish();
}

}  // namespace instrument
