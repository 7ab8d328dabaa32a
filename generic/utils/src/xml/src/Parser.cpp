#include <utils/xml/Parser.h>

#include <utils/flag/Trace.h>
#include <utils/xml/Flags.h>

#include "internal/Report.h"
#include "xml/src/CharacterSet.h"

namespace utils::xml
{

using error::Error;

namespace
{

constexpr std::size_t NOT_FOUND = std::string_view::npos;

constexpr char LEFT_DELIMITER = '<';
constexpr char RIGHT_DELIMITER = '>';
constexpr char END_MARKER = '/';
constexpr char NAME_VALUE_SEPARATOR = '=';

constexpr CharacterSet TAG_DELIMITERS("<>");
constexpr CharacterSet WHITE_SPACE(" \t\r\n");
constexpr CharacterSet ELEMENT_NAME_TERMINATORS(" \t\r\n>/");
constexpr CharacterSet ATTRIBUTE_NAME_TERMINATORS(" \t\r\n=");
constexpr CharacterSet VALUE_DELIMITERS("\"'");

// What is between these is skipped.
struct Markup
{
    std::string_view open;
    std::string_view close;
};
constexpr Markup PROCESSING_INSTRUCTION{"<?", "?>"};
constexpr Markup COMMENT{"<!--", "-->"};
constexpr Markup DOCUMENT_TYPE{"<!DOCTYPE", ">"};

const char* const MALFORMED_TAG = "Malformed Tag";
const char* const MALFORMED_ELEMENT = "Malformed Element";
const char* const MALFORMED_ATTRIBUTE = "Malformed Attribute";
const char* const TAG_MISMATCH = "Tag Mismatch";

template <typename... Words>
void warn(const SourceLocation& where, const char* name, const Words&... words)
{
    error::report(where, name, Error::WARNING, words...);
}

const Markup* findSkippedMarkup(std::string_view text)
{
    for (const Markup* const markup : {&PROCESSING_INSTRUCTION, &COMMENT, &DOCUMENT_TYPE})
    {
        if (text.starts_with(markup->open))
        {
            return markup;
        }
    }
    return nullptr;
}

// @param end in: where the name before ended, since a value in quotes may be found inside of a name,
//        and the next name is then what is left of that one; out: where this one ends
bool getAttributeName(std::string_view attributes, std::size_t start, std::string_view& name,
                      std::size_t& end)
{
    if (end <= start)
    {
        end = ATTRIBUTE_NAME_TERMINATORS.findFirst(attributes, start);
    }
    if (end == NOT_FOUND || end <= start)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_ATTRIBUTE, "No attribute name specified in '",
             attributes, '\n');
        return false;
    }
    name = attributes.substr(start, end - start);
    return true;
}

// @param start of the attribute, name included
// @param end position of the closing delimiter
bool getAttributeValue(std::string_view attributes, std::size_t start, std::string_view name,
                       std::string_view& value, std::size_t& end)
{
    const std::size_t open = VALUE_DELIMITERS.findFirst(attributes, start);
    if (open == NOT_FOUND)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_ATTRIBUTE,
             "Can not find value delimiter for attribute '", name, '\n');
        return false;
    }
    end = attributes.find(attributes[open], open + 1);
    if (end == NOT_FOUND)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_ATTRIBUTE,
             "Missing proper right value delimiter for attribute '", name, '\n');
        return false;
    }
    value = attributes.substr(open + 1, end - open - 1);
    return true;
}

}  // namespace

Parser::Parser(const DocumentForParsing* documentPtr) : m_documentPtr(documentPtr)
{
    if (m_documentPtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (documentPtr) passed to Parser::Parser.");
    }
    m_text = m_documentPtr->getXmlString();
    for (ElementData* const data : {&m_startData, &m_attributeData, &m_leafData, &m_endData})
    {
        data->elementNames = &m_elementNames;
    }
    GENERIC_UTILS_TRACE_STEP(1, "Creating XML parser to parse:\n" << m_text);
}

Parser::~Parser()
{
    GENERIC_UTILS_TRACE_STEP(1, "Destroying XML parser.");
}

bool Parser::parse()
{
    GENERIC_UTILS_TRACE_STEP(1, "Starting parsing of:\n" << m_text);
    m_elementNames.push_back(DocumentForParsing::ROOT_ELEMENT_NAME);

    while (m_offset < m_text.size())
    {
        std::string_view name;
        std::string_view attributes;
        bool leaf = false;
        bool endTag = false;
        bool emptyElement = false;
        if (!getNextTag(name, attributes, leaf, endTag, emptyElement))
        {
            return false;
        }
        if (name.empty())
        {
            break;
        }
        GENERIC_UTILS_TRACE_STEP(2, "Processing tag '" << name << "'.");
        if (!(endTag ? processEndTag(name)
                     : processNonEndTag(name, attributes, leaf, emptyElement)))
        {
            return false;
        }
    }

    if (m_level != 0)
    {
        warn(GENERIC_UTILS_HERE, TAG_MISMATCH,
             "Missing one or more end tags in XML document near offset:", m_offset);
        return false;
    }
    return true;
}

// Finds the next tag of an element and says what it is; without any the name is empty, and the
// scan at its end.
bool Parser::getNextTag(std::string_view& name, std::string_view& attributes, bool& leaf,
                        bool& endTag, bool& emptyElement)
{
    const std::size_t left = findElementTag();
    if (left == NOT_FOUND)
    {
        m_offset = m_text.size();
        return true;
    }

    std::size_t right = TAG_DELIMITERS.findFirst(m_text, left + 1);
    if (right == NOT_FOUND || m_text[right] != RIGHT_DELIMITER)
    {
        right = m_text.find(RIGHT_DELIMITER, left);
        const std::size_t size = right == NOT_FOUND ? NOT_FOUND : right + 1 - left;
        warn(GENERIC_UTILS_HERE, MALFORMED_TAG,
             "Can not find right tag delimiter for left tag delimiter\nstarting offset ", left,
             " ending offset ", right, '\n', m_text.substr(left, size), '\n');
        return false;
    }
    m_tag = m_text.substr(left, right + 1 - left);
    m_offset = right + 1;

    endTag = isEndTag();
    emptyElement = isEmptyElement();
    std::size_t nameEnd = 0;
    if (!getElementName(endTag, name, nameEnd))
    {
        return false;
    }
    attributes = getAttributes(nameEnd, emptyElement);
    leaf = isLeafElement(endTag, emptyElement);
    GENERIC_UTILS_TRACE_STEP(2, "Found next tag: name = '"
                                    << name << "', attributes = '" << attributes
                                    << "', leaf? = " << leaf << ", end tag? = " << endTag
                                    << ", empty element? = " << emptyElement << ".");
    return true;
}

std::size_t Parser::findElementTag() const
{
    std::size_t from = m_offset;
    for (;;)
    {
        const std::size_t left = m_text.find(LEFT_DELIMITER, from);
        if (left == NOT_FOUND)
        {
            return NOT_FOUND;
        }
        const Markup* const markup = findSkippedMarkup(m_text.substr(left));
        if (markup == nullptr)
        {
            return left;
        }
        const std::size_t close = m_text.find(markup->close, left + markup->open.size());
        if (close == NOT_FOUND)
        {
            return NOT_FOUND;
        }
        from = close + 1;
    }
}

bool Parser::isEndTag() const
{
    return m_tag[1] == END_MARKER;
}

bool Parser::isEmptyElement() const
{
    return m_tag[m_tag.size() - 2] == END_MARKER;
}

bool Parser::getElementName(bool endTag, std::string_view& name, std::size_t& nameEnd) const
{
    const std::size_t start = WHITE_SPACE.findFirstOther(m_tag, endTag ? 2 : 1);
    nameEnd = ELEMENT_NAME_TERMINATORS.findFirst(m_tag, start);
    if (nameEnd == NOT_FOUND || nameEnd <= start)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_TAG, "No element name specified in tag '", m_tag,
             "' in XML document near offset:", start, '\n');
        return false;
    }
    name = m_tag.substr(start, nameEnd - start);
    return true;
}

std::string_view Parser::getAttributes(std::size_t nameEnd, bool emptyElement) const
{
    const std::size_t start = WHITE_SPACE.findFirstOther(m_tag, nameEnd);
    if (m_tag[start] == RIGHT_DELIMITER || m_tag[start] == END_MARKER)
    {
        return {};
    }
    const std::size_t end = m_tag.size() - (emptyElement ? 2 : 1);
    return WHITE_SPACE.trimEnd(m_tag.substr(start, end - start));
}

// Also moves the scan position past white space. With nothing behind it, that is the position of
// what was not found, which ends the scan and is reported as it is.
bool Parser::isLeafElement(bool endTag, bool emptyElement)
{
    if (emptyElement || endTag)
    {
        return emptyElement;
    }
    m_offset = WHITE_SPACE.findFirstOther(m_text, m_offset);
    if (m_offset == NOT_FOUND)
    {
        return false;
    }
    if (m_text[m_offset] != LEFT_DELIMITER)
    {
        return true;
    }
    return m_offset + 1 < m_text.size() && m_text[m_offset + 1] == END_MARKER;
}

bool Parser::getLeafValue()
{
    const std::size_t start = WHITE_SPACE.findFirstOther(m_text, m_offset);
    const std::size_t end = m_text.find(LEFT_DELIMITER, start);
    if (end == NOT_FOUND)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_ELEMENT, "Can not determine value for leaf element '",
             innermostName(), '\n');
        return false;
    }
    m_leafData.value = WHITE_SPACE.trimEnd(m_text.substr(start, end - start));
    return true;
}

bool Parser::processNonEndTag(std::string_view name, std::string_view attributes, bool leaf,
                              bool emptyElement)
{
    ++m_level;
    m_elementNames.emplace_back(name);
    GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of start of element '"
                                    << name << "'- current level = " << m_level << ".");
    m_startData.level = m_level;
    m_startData.name = name;
    m_documentPtr->m_startOfElementEvent.notify(&m_startData);

    if (!attributes.empty() && !parseAttributesAndNotify(attributes))
    {
        return false;
    }

    m_leafData.value.clear();
    if (leaf && !emptyElement && !getLeafValue())
    {
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of leaf element '"
                                    << name << "' with value '" << m_leafData.value
                                    << "' - current level = " << m_level << ".");
    m_leafData.level = m_level;
    m_leafData.name = name;
    m_documentPtr->m_leafElementEvent.notify(&m_leafData);
    if (!m_leafData.proceed)
    {
        return false;
    }

    if (emptyElement)
    {
        GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of end of element '"
                                        << name << "'- current level = " << m_level << ".");
        closeElement(name);
    }
    return true;
}

bool Parser::parseAttributesAndNotify(std::string_view attributes)
{
    GENERIC_UTILS_TRACE_STEP(2, "Parsing '" << attributes << "' for attribute names/values.");
    std::size_t nameEnd = 0;
    std::size_t separator = 0;
    for (std::size_t start = 0; start < attributes.size();)
    {
        std::string_view name;
        if (!getAttributeName(attributes, start, name, nameEnd))
        {
            return false;
        }
        if (separator < nameEnd)
        {
            separator = WHITE_SPACE.findFirstOther(attributes, nameEnd);
        }
        if (separator == NOT_FOUND || attributes[separator] != NAME_VALUE_SEPARATOR)
        {
            warn(GENERIC_UTILS_HERE, MALFORMED_ATTRIBUTE,
                 "Missing attribute name/value separator for attribute '", name, '\n');
            return false;
        }
        std::string_view value;
        std::size_t valueEnd = 0;
        if (!getAttributeValue(attributes, start, name, value, valueEnd))
        {
            return false;
        }
        GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of attribute: element name = '"
                                        << innermostName() << "', attribute name = '" << name
                                        << "', attribute value = '" << value << "'.");
        m_attributeData.level = m_level;
        m_attributeData.name = name;
        m_attributeData.value = value;
        m_documentPtr->m_attributeEvent.notify(&m_attributeData);
        if (!m_attributeData.proceed)
        {
            return false;
        }
        start = WHITE_SPACE.findFirstOther(attributes, valueEnd + 1);
    }
    return true;
}

bool Parser::processEndTag(std::string_view name)
{
    if (m_level <= 0)
    {
        warn(GENERIC_UTILS_HERE, TAG_MISMATCH, "No beginning tag specified for end tag '", name,
             '\n');
        return false;
    }
    const std::string& openName = innermostName();
    if (name != openName)
    {
        warn(GENERIC_UTILS_HERE, TAG_MISMATCH, "End tag '", name, "' does not match begin tag '",
             openName, '\n');
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of end of element '"
                                    << name << "'- current level = " << m_level << ".");
    closeElement(name);
    return true;
}

const std::string& Parser::innermostName() const
{
    return m_elementNames[static_cast<std::size_t>(m_level)];
}

void Parser::closeElement(std::string_view name)
{
    m_endData.level = m_level;
    m_endData.name = name;
    m_documentPtr->m_endOfElementEvent.notify(&m_endData);
    --m_level;
    m_elementNames.pop_back();
}

}  // namespace utils::xml
