#ifndef GENERIC_UTILS_LOGEXP_LOGEXP_H
#define GENERIC_UTILS_LOGEXP_LOGEXP_H

#include <map>
#include <string>

#include <utils/export.h>

namespace utils::logexp
{

/// Evaluates logical expressions over named identifiers.
///
///     const std::map<std::string, bool> table{{"ready", true}, {"hot", false}};
///     utils::logexp::LogExp::evaluate("ready & !hot", table);  // true
///
/// An expression is built of "!" or "^" (not), "&" or "@" (and), "|" (or), parentheses, and
/// identifiers: all other characters, digits included. Blanks are dropped, also inside identifiers.
/// "&" and "|" have equal precedence and are applied from left to right: "1|0&0" is false.
///
/// An expression is rewritten: identifiers become the digits 1 and 0, then each innermost section
/// in parentheses its value. In a section without parentheses every "!0" becomes 1, and after that
/// every "!1" becomes 0, once each, so that "!!1" is left as "!0", which is false.
///
/// There is no syntax error. An unknown identifier is false, an operator without its operand is
/// passed over, a section that does not begin with a true operand begins as false. A ")" without
/// its "(" closes a section that began behind the first character of what is left of the
/// expression by then. Only an empty section, such as "()", or an expression of blanks is none at
/// all: std::out_of_range.
///
/// Time and memory grow with the length of the expression, whatever its nesting.
///
/// Thread safety: any thread, as long as nobody changes the table meanwhile.
class GENERIC_UTILS_EXPORT LogExp
{
  public:
    /// The value of an expression; true for an empty one.
    /// @throws std::out_of_range for an empty section
    static bool evaluate(const std::string& expression, const std::map<std::string, bool>& table);

    /// The expression with every identifier replaced by its value, without blanks, over the
    /// alphabet "01!&|()".
    static std::string parse(const std::string& expression,
                             const std::map<std::string, bool>& table);

    /// The value of an expression over the alphabet of parse(); other characters are passed over
    /// as operands that are not true.
    /// @throws std::out_of_range for an empty section
    static bool calculate(std::string expression);

    /// The value of a section without parentheses.
    /// @param section over the alphabet of parse(), without parentheses
    /// @param sectionNumber only traced
    /// @throws std::out_of_range for an empty section
    static bool calculateSection(std::string section, int sectionNumber);

    /// An identifier's value; false when the table does not have it.
    static bool getIdValue(const std::string& identifier, const std::map<std::string, bool>& table);
};

}  // namespace utils::logexp

#endif
