#include <utils/scpi/ScpiString.h>

#include <array>
#include <cstring>
#include <locale>
#include <string_view>
#include <utility>

#include <utils/flag/Trace.h>
#include <utils/scpi/Flags.h>

#include "internal/LastWords.h"

namespace utils::scpi
{

namespace
{

constexpr char NODE_SEPARATOR = ':';
constexpr char QUERY_MARK = '?';
constexpr char QUOTE = '"';
constexpr char END = '\0';

using CharacterTable = std::array<char, 256>;

constexpr CharacterTable makeTable(char first, char last, int offset)
{
    CharacterTable table{};
    for (std::size_t code = 0; code < table.size(); ++code)
    {
        const auto character = static_cast<char>(code);
        const bool isMoved = character >= first && character <= last;
        table[code] = static_cast<char>(character + (isMoved ? offset : 0));
    }
    return table;
}

constexpr CharacterTable CLASSIC_LOWER = makeTable('A', 'Z', 'a' - 'A');
constexpr CharacterTable CLASSIC_UPPER = makeTable('a', 'z', 'A' - 'a');

char lookUp(const CharacterTable& table, char character)
{
    return table[static_cast<unsigned char>(character)];
}

/// The letter case of the classic locale.
struct ClassicCase
{
    static bool isLower(char character) { return toUpper(character) != character; }
    static char toLower(char character) { return lookUp(CLASSIC_LOWER, character); }
    static char toUpper(char character) { return lookUp(CLASSIC_UPPER, character); }
};

/// The letter case of any other locale.
class LocaleCase
{
  public:
    explicit LocaleCase(const std::locale& locale)
        : m_rules(std::use_facet<std::ctype<char>>(locale))
    {
    }

    bool isLower(char character) const { return m_rules.is(std::ctype_base::lower, character); }
    char toLower(char character) const { return m_rules.tolower(character); }
    char toUpper(char character) const { return m_rules.toupper(character); }

  private:
    const std::ctype<char>& m_rules;
};

/// Whether a locale is the classic one itself. Comparing them with == would take as long as comparing
/// headers does, and be wrong: a locale that was combined with the classic one is equal to it,
/// whatever its letters.
bool isClassic(const std::locale& locale)
{
    static const std::locale& classic = std::locale::classic();
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the same locale is all that is asked
    return std::memcmp(&locale, &classic, sizeof(locale)) == 0;
}

/// Calls a function with the letter case of the global locale.
///
/// Nearly always that is the classic locale, whose letters are known: to look up its facet, and to
/// ask it about every character, would take longer than a comparison does.
template <typename Function>
auto withLetterCase(Function function)
{
    const std::locale locale;
    return isClassic(locale) ? function(ClassicCase()) : function(LocaleCase(locale));
}

// All steps of a comparison are traced in its name.
constexpr SourceLocation inComparison(int line)
{
    return {__FILE__, line, "isCompliant"};
}

bool isEndOfNode(char character)
{
    return character == NODE_SEPARATOR || character == END;
}

struct Forms
{
    std::string shortName;
    std::string longName;
    bool isQuery = false;
};

template <typename LetterCase>
Forms deriveForms(const LetterCase& letterCase, const char* name)
{
    Forms forms;
    unsigned long positionInNode = 1;
    for (const char* next = name; *next != END;)
    {
        const char character = *next++;
        if (character == NODE_SEPARATOR || character == QUERY_MARK)
        {
            forms.isQuery = forms.isQuery || character == QUERY_MARK;
            forms.shortName += character;
            forms.longName += character;
            positionInNode = 1;
            continue;
        }
        const bool isFourthShort = !ScpiString::isVowel(character) || isEndOfNode(*next);
        if (character == QUOTE)
        {
            // counted, but in neither form
        }
        else if (positionInNode < 4 || (positionInNode == 4 && isFourthShort))
        {
            forms.shortName += letterCase.toUpper(character);
            forms.longName += letterCase.toUpper(character);
        }
        else
        {
            forms.longName += letterCase.toLower(character);
        }
        ++positionInNode;
    }
    return forms;
}

/// One comparison: what is left of the header and of the long form, and how far they match.
template <typename LetterCase>
class Comparison
{
  public:
    Comparison(const LetterCase& letterCase, const char* header, const char* longForm)
        : m_letterCase(letterCase), m_header(header), m_longForm(longForm)
    {
    }

    bool isCompliant()
    {
        skipQuote();
        if (*m_header != END && !match())
        {
            skipQuote();
        }
        GENERIC_UTILS_TRACE_AT(inComparison(__LINE__), m_traceSteps, 3,
                               "compliant if following strings are both empty '"
                                   << m_header << "' '" << m_longForm << "'.");
        return *m_header == END && *m_longForm == END;
    }

  private:
    // Advances both through all that matches.
    // @return whether the header ended; otherwise the two differ
    bool match()
    {
        while (isSame(*m_header, *m_longForm))
        {
            const char* const headerBefore = m_header;
            const char* const longFormBefore = m_longForm;
            matchShortForm();
            skipRestOfLongForm();
            matchRestOfLongForm();
            if (*m_header == END)
            {
                return true;
            }
            // In a locale whose upper and lower case do not correspond, the same letter may match
            // in neither.
            if (m_header == headerBefore && m_longForm == longFormBefore)
            {
                return false;
            }
        }
        return false;
    }

    void matchShortForm()
    {
        if (!isShortCharacter())
        {
            return;
        }
        GENERIC_UTILS_TRACE_AT(
            inComparison(__LINE__), m_traceSteps, 3,
            "short character match '" << m_header << "' '" << m_longForm << "'.");
        while (isShortCharacter())
        {
            advance();
        }
    }

    void skipRestOfLongForm()
    {
        if (!isEndOfNode(*m_header) || !m_letterCase.isLower(*m_longForm))
        {
            return;
        }
        GENERIC_UTILS_TRACE_AT(inComparison(__LINE__), m_traceSteps, 3,
                               "short header match '" << m_header << "' '" << m_longForm << "'.");
        while (!isEndOfNode(*m_longForm))
        {
            ++m_longForm;
        }
    }

    void matchRestOfLongForm()
    {
        // The ends of both match here as well, which only shows in the trace.
        if (*m_header == NODE_SEPARATOR || !isLongCharacter())
        {
            return;
        }
        GENERIC_UTILS_TRACE_AT(inComparison(__LINE__), m_traceSteps, 3,
                               "long character match '" << m_header << "' '" << m_longForm << "'.");
        while (!isEndOfNode(*m_header) && isLongCharacter())
        {
            advance();
        }
    }

    void skipQuote() { m_header += *m_header == QUOTE ? 1 : 0; }

    void advance()
    {
        ++m_header;
        ++m_longForm;
    }

    bool isShortCharacter() const
    {
        return *m_header != END && *m_longForm == m_letterCase.toUpper(*m_header);
    }

    bool isLongCharacter() const { return *m_longForm == m_letterCase.toLower(*m_header); }

    bool isSame(char a, char b) const
    {
        return a == b || m_letterCase.toLower(a) == m_letterCase.toLower(b);
    }

    const LetterCase m_letterCase;
    const char* m_header;
    const char* m_longForm;
    const flag::FlagT<int>* const m_traceSteps = flag::findTraceSteps<Flags>();
};

}  // namespace

ScpiString::ScpiString(const char* name) : m_isQuery(false)
{
    setName(name);
    GENERIC_UTILS_TRACE_STEP(3, "Creating Scpi String for '" << m_name << "'.");
}

ScpiString::ScpiString(const std::string& name) : ScpiString(name.c_str()) {}

ScpiString::~ScpiString()
{
    GENERIC_UTILS_LAST_WORDS(
        GENERIC_UTILS_TRACE_STEP(3, "Destroying Scpi String '" << m_longName << "'."));
}

void ScpiString::setName(const char* name)
{
    // Built aside, since the name may be a part of this object.
    std::string newName(name == nullptr ? "" : name);
    GENERIC_UTILS_TRACE_STEP(3, "Setting Scpi String using '" << newName << "'.");

    Forms forms = withLetterCase([&](const auto& letterCase)
                                 { return deriveForms(letterCase, newName.c_str()); });
    m_name = std::move(newName);
    m_shortName = std::move(forms.shortName);
    m_longName = std::move(forms.longName);
    m_isQuery = m_isQuery || forms.isQuery;
}

void ScpiString::setName(const std::string& name)
{
    setName(name.c_str());
}

bool ScpiString::isCompliant(const char* header) const
{
    if (header == nullptr || *header == END)
    {
        return false;
    }
    return withLetterCase(
        [&](const auto& letterCase)
        { return Comparison(letterCase, header, m_longName.c_str()).isCompliant(); });
}

bool ScpiString::isCompliant(const std::string& header) const
{
    return isCompliant(header.c_str());
}

bool ScpiString::isLower(char character)
{
    return withLetterCase([=](const auto& letterCase) { return letterCase.isLower(character); });
}

char ScpiString::toLower(char character)
{
    return withLetterCase([=](const auto& letterCase) { return letterCase.toLower(character); });
}

char ScpiString::toUpper(char character)
{
    return withLetterCase([=](const auto& letterCase) { return letterCase.toUpper(character); });
}

bool ScpiString::isVowel(char character)
{
    return std::string_view("aeiouAEIOU").find(character) != std::string_view::npos;
}

}  // namespace utils::scpi
