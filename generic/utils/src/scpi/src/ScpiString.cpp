#include <utils/scpi/ScpiString.h>

#include <locale>
#include <string_view>
#include <utility>

#include <utils/flag/Trace.h>
#include <utils/scpi/Flags.h>

namespace utils::scpi
{

namespace
{

constexpr char NODE_SEPARATOR = ':';
constexpr char QUERY_MARK = '?';
constexpr char QUOTE = '"';
constexpr char END = '\0';

/// The letter case of the global locale, as it is when the object is made.
class LetterCase
{
  public:
    bool isLower(char character) const { return m_rules.is(std::ctype_base::lower, character); }
    char toLower(char character) const { return m_rules.tolower(character); }
    char toUpper(char character) const { return m_rules.toupper(character); }
    bool isSame(char a, char b) const { return a == b || toLower(a) == toLower(b); }

  private:
    const std::locale m_locale;
    const std::ctype<char>& m_rules = std::use_facet<std::ctype<char>>(m_locale);
};

// All steps of a comparison are traced in its name.
constexpr SourceLocation inComparison(int line)
{
    return {__FILE__, line, "isCompliant"};
}

const flag::FlagT<int>* traceSteps()
{
    return flag::findTraceSteps<Flags>();
}

bool isEndOfNode(char character)
{
    return character == NODE_SEPARATOR || character == END;
}

const char* findEndOfNode(const char* text)
{
    while (!isEndOfNode(*text))
    {
        ++text;
    }
    return text;
}

struct Forms
{
    std::string shortName;
    std::string longName;
    bool isQuery = false;
};

Forms deriveForms(const char* name)
{
    const LetterCase letterCase;
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

void matchShortForm(const LetterCase& letterCase, const char*& header, const char*& longForm)
{
    if (*header == END || *longForm != letterCase.toUpper(*header))
    {
        return;
    }
    GENERIC_UTILS_TRACE_AT(inComparison(__LINE__), traceSteps(), 3,
                           "short character match '" << header << "' '" << longForm << "'.");
    while (*header != END && *longForm == letterCase.toUpper(*header))
    {
        ++header;
        ++longForm;
    }
}

void skipRestOfLongForm(const LetterCase& letterCase, const char* header, const char*& longForm)
{
    if (isEndOfNode(*header) && letterCase.isLower(*longForm))
    {
        GENERIC_UTILS_TRACE_AT(inComparison(__LINE__), traceSteps(), 3,
                               "short header match '" << header << "' '" << longForm << "'.");
        longForm = findEndOfNode(longForm);
    }
}

void matchRestOfLongForm(const LetterCase& letterCase, const char*& header, const char*& longForm)
{
    // The ends of both match here as well, which only shows in the trace.
    if (*header == NODE_SEPARATOR || *longForm != letterCase.toLower(*header))
    {
        return;
    }
    GENERIC_UTILS_TRACE_AT(inComparison(__LINE__), traceSteps(), 3,
                           "long character match '" << header << "' '" << longForm << "'.");
    while (!isEndOfNode(*header) && *longForm == letterCase.toLower(*header))
    {
        ++header;
        ++longForm;
    }
}

// Advances both through all that matches.
// @return whether the header ended; otherwise the two differ
bool match(const char*& header, const char*& longForm)
{
    const LetterCase letterCase;
    while (letterCase.isSame(*header, *longForm))
    {
        const char* const headerBefore = header;
        const char* const longFormBefore = longForm;
        matchShortForm(letterCase, header, longForm);
        skipRestOfLongForm(letterCase, header, longForm);
        matchRestOfLongForm(letterCase, header, longForm);
        if (*header == END)
        {
            return true;
        }
        // In a locale whose upper and lower case do not correspond, the same letter may match in
        // neither.
        if (header == headerBefore && longForm == longFormBefore)
        {
            return false;
        }
    }
    return false;
}

}  // namespace

ScpiString::ScpiString(const char* name) : m_isQuery(false)
{
    setName(name);
    GENERIC_UTILS_TRACE_STEP(3, "Creating Scpi String for '" << m_name << "'.");
}

ScpiString::ScpiString(const std::string& name) : ScpiString(name.c_str()) {}

ScpiString::~ScpiString()
{
    GENERIC_UTILS_TRACE_STEP(3, "Destroying Scpi String '" << m_longName << "'.");
}

void ScpiString::setName(const char* name)
{
    // Built aside, since the name may be a part of this object.
    std::string newName(name == nullptr ? "" : name);
    GENERIC_UTILS_TRACE_STEP(3, "Setting Scpi String using '" << newName << "'.");

    Forms forms = deriveForms(newName.c_str());
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
    if (*header == QUOTE)
    {
        ++header;
    }
    const char* longForm = m_longName.c_str();
    const bool isDifferent = *header != END && !match(header, longForm);
    if (isDifferent && *header == QUOTE)
    {
        ++header;
    }
    GENERIC_UTILS_TRACE_STEP(3, "compliant if following strings are both empty '"
                                    << header << "' '" << longForm << "'.");
    return *header == END && *longForm == END;
}

bool ScpiString::isCompliant(const std::string& header) const
{
    return isCompliant(header.c_str());
}

bool ScpiString::isLower(char character)
{
    return LetterCase().isLower(character);
}

char ScpiString::toLower(char character)
{
    return LetterCase().toLower(character);
}

char ScpiString::toUpper(char character)
{
    return LetterCase().toUpper(character);
}

bool ScpiString::isVowel(char character)
{
    return std::string_view("aeiouAEIOU").find(character) != std::string_view::npos;
}

}  // namespace utils::scpi
