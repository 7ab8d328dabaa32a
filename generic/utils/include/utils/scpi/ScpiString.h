#ifndef GENERIC_UTILS_SCPI_SCPISTRING_H
#define GENERIC_UTILS_SCPI_SCPISTRING_H

#include <string>

#include <utils/export.h>

namespace utils::scpi
{

/// A SCPI command header as an application defines it, and what a client may send for it.
///
///     const utils::scpi::ScpiString frequency("frequency:power?");
///     frequency.getLongName();                    // "FREQuency:POWer?"
///     frequency.getShortName();                   // "FREQ:POW?"
///     frequency.isCompliant("freq:power?");       // true
///
/// The nodes of a header are separated by ":". The short form of a node is its first four
/// characters, or its first three when the fourth is a vowel (of "aeiouAEIOU") that does not end
/// the node: the next character is neither ":" nor the end of the name. A "?" also ends a node,
/// but not for the sake of that vowel. The long form is the whole node, with the characters of the
/// short form in upper case and the others in lower case. A double quote in a name is left out of
/// both forms but counts as a character of its node.
///
/// Letter case is that of the global locale (its std::ctype<char> facet), looked up at every call.
/// Names and headers end at their first NUL character.
///
/// Thread safety: belongs to one thread at a time. Constant operations may be called by any thread,
/// as long as no other thread changes the name.
class GENERIC_UTILS_EXPORT ScpiString
{
  public:
    /// A header with this name; see setName().
    explicit ScpiString(const char* name);

    /// Likewise.
    explicit ScpiString(const std::string& name);

    virtual ~ScpiString();

    /// Copies the name, both forms and whether it is a query.
    ScpiString(const ScpiString&) = default;

    /// Likewise.
    ScpiString& operator=(const ScpiString&) = default;

    /// Changes the name and derives both forms from it. What was a query stays one.
    /// @param name null counts as empty
    void setName(const char* name);

    /// Likewise.
    void setName(const std::string& name);

    /// The name as it was given.
    const std::string& getName() const { return m_name; }

    /// The short form of every node.
    const std::string& getShortName() const { return m_shortName; }

    /// The long form of every node.
    const std::string& getLongName() const { return m_longName; }

    /// Whether any name given so far contained a "?".
    bool isQuery() const { return m_isQuery; }

    /// Whether a received header means this command: every node in its short form or in its whole
    /// long form, in any letter case. Allocates nothing while it is not traced.
    ///
    /// The short form of a node counts only before ":" and at the end of the header, so that the
    /// last node of a query has to be sent in long form, and so does that of a header in double
    /// quotes.
    /// @param header null and empty headers are not compliant
    bool isCompliant(const char* header) const;

    /// Likewise.
    bool isCompliant(const std::string& header) const;

    /// @name Letter case in the global locale
    /// @{

    /// Whether the character is a letter in lower case.
    static bool isLower(char character);

    /// The letter in lower case; any other character as it is.
    static char toLower(char character);

    /// The letter in upper case; any other character as it is.
    static char toUpper(char character);
    /// @}

    /// Whether the character is one of "aeiouAEIOU".
    static bool isVowel(char character);

  private:
    bool m_isQuery;
    std::string m_name;
    std::string m_shortName;
    std::string m_longName;
};

}  // namespace utils::scpi

#endif
