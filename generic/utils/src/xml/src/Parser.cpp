#include <utils/xml/Parser.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include <utils/flag/Trace.h>
#include <utils/xml/Flags.h>

#include "internal/LastWords.h"
#include "internal/Report.h"
#include "xml/src/Markup.h"
#include "xml/src/PartCopier.h"

namespace utils::xml
{

using error::Error;

namespace
{

const char* const MALFORMED_TAG = "Malformed Tag";
const char* const MALFORMED_ELEMENT = "Malformed Element";
const char* const MALFORMED_ATTRIBUTE = "Malformed Attribute";
const char* const TAG_MISMATCH = "Tag Mismatch";

// Takes the words by value, so that no variable needs a place in memory for the sake of a warning.
template <typename... Words>
[[gnu::noinline, gnu::cold]] void warn(SourceLocation where, const char* name, Words... words)
{
    error::report(where, name, Error::WARNING, words...);
}

bool isTraced()
{
    return flag::isTraced(flag::findTraceSteps<Flags>(), 2);
}

std::string_view partOf(const std::string& xml, std::size_t from, std::size_t to)
{
    return {xml.data() + from, to - from};
}

// Where the next attribute stands in a text of attributes.
struct AttributePosition
{
    std::size_t start = 0;
    std::size_t nameEnd = 0;
    std::size_t separator = 0;  // or what stands in its place
    std::size_t valueFrom = 0;  // no delimiter of a value stands between the start and here
};

// A value in delimiters may be found inside of a name. The next name is then what is left of that
// one, and ends where that one did.
bool getAttributeName(std::string_view attributes, AttributePosition& at, std::string_view& name)
{
    at.valueFrom = at.start;
    if (at.nameEnd <= at.start)
    {
        at.valueFrom = ATTRIBUTE_NAME_STOPS.findFirst(attributes, at.start);
        at.nameEnd = ATTRIBUTE_NAME_TERMINATORS.findFirst(attributes, at.valueFrom);
    }
    if (at.nameEnd == NOT_FOUND || at.nameEnd <= at.start)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_ATTRIBUTE, "No attribute name specified in '",
             attributes, '\n');
        return false;
    }
    name = {attributes.data() + at.start, at.nameEnd - at.start};
    return true;
}

// @param end position of the closing delimiter
bool getAttributeValue(std::string_view attributes, std::size_t from, std::string_view name,
                       std::string_view& value, std::size_t& end)
{
    const std::size_t open = VALUE_DELIMITERS.findFirst(attributes, from);
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
    value = {attributes.data() + open + 1, end - open - 1};
    return true;
}

std::string_view getAttributes(const std::string& xml, std::size_t nameEnd, std::size_t right,
                               bool emptyElement)
{
    const std::size_t start = WHITE_SPACE.findFirstOther(xml, nameEnd);
    if (start == right || xml[start] == END_MARKER)
    {
        return {};
    }
    return WHITE_SPACE.trimEnd(partOf(xml, start, right - (emptyElement ? 1 : 0)));
}

}  // namespace

// What is known of the tag being examined. The texts are parts of the document's.
struct Parser::Tag
{
    std::string_view name;  // empty when there was no further tag
    std::string_view attributes;
    bool isLeaf = false;
    bool isEndTag = false;
    bool isEmptyElement = false;
};

Parser::Parser(const DocumentForParsing* documentPtr) : m_documentPtr(documentPtr)
{
    if (m_documentPtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (documentPtr) passed to Parser::Parser.");
    }
    m_copier = std::make_unique<PartCopier>(getXml());
    for (ElementData* const data : {&m_startData, &m_attributeData, &m_leafData, &m_endData})
    {
        data->elementNames = &m_elementNames;
    }
    GENERIC_UTILS_TRACE_STEP(1, "Creating XML parser to parse:\n" << getXml());
}

Parser::~Parser()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying XML parser."));
}

// Most tags have a name only, and are found out and processed in half the time of others. All that a
// tag takes is to become one function: the calls would be a third of the time.
[[gnu::flatten]] bool Parser::parse()
{
    GENERIC_UTILS_TRACE_STEP(1, "Starting parsing of:\n" << getXml());
    m_elementNames.push_back(DocumentForParsing::ROOT_ELEMENT_NAME);

    while (m_offset < getXml().size())
    {
        const std::size_t from = std::max(m_offset, m_leafEnd);
        if (isPlainEndTag(from))
        {
            processPlainEndTag(from);
            continue;
        }
        Tag tag;
        if (!(getPlainStartTag(from, tag) ? processNonEndTag(tag) : processNextTag(from, tag)))
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

bool Parser::processNextTag(std::size_t from, Tag& tag)
{
    if (!getNextTag(from, tag))
    {
        return false;
    }
    if (tag.name.empty())
    {
        return true;
    }
    GENERIC_UTILS_TRACE_AT((SourceLocation{__FILE__, __LINE__, "parse"}),
                           flag::findTraceSteps<Flags>(), 2,
                           "Processing tag '" << tag.name << "'.");
    return tag.isEndTag ? processEndTag(tag) : processNonEndTag(tag);
}

// Whether there stands an end tag as most are: of the innermost element, its name only, and untraced.
bool Parser::isPlainEndTag(std::size_t left) const
{
    const std::string& xml = getXml();
    if (xml[left] != LEFT_DELIMITER || xml[left + 1] != END_MARKER || m_level <= 0)
    {
        return false;
    }
    const std::string& name = innermostName();
    const std::size_t nameStart = left + 2;
    return xml.size() - left > name.size() + 2 && xml[nameStart + name.size()] == RIGHT_DELIMITER &&
           std::memcmp(xml.data() + nameStart, name.data(), name.size()) == 0 && !isTraced();
}

void Parser::processPlainEndTag(std::size_t left)
{
    const std::size_t nameStart = left + 2;
    const std::size_t nameEnd = nameStart + innermostName().size();
    m_offset = nameEnd + 1;
    closeElement(partOf(getXml(), nameStart, nameEnd));
}

// Gets a start tag as most are, of a name only, and untraced.
// @return whether there stands one
bool Parser::getPlainStartTag(std::size_t left, Tag& tag)
{
    const std::string& xml = getXml();
    const std::size_t nameStart = left + 1;
    if (xml[left] != LEFT_DELIMITER || !LETTERS.contains(xml[nameStart]))
    {
        return false;
    }
    const std::size_t nameEnd = ELEMENT_NAME_STOPS.findFirst(xml, nameStart);
    if (nameEnd == NOT_FOUND || xml[nameEnd] != RIGHT_DELIMITER || isTraced())
    {
        return false;
    }
    m_offset = nameEnd + 1;
    tag.name = partOf(xml, nameStart, nameEnd);
    tag.isLeaf = isLeafElement(false, false);
    return true;
}

// Finds the next tag of an element and says what it is; without any the scan is at its end.
bool Parser::getNextTag(std::size_t from, Tag& tag)
{
    const std::string& xml = getXml();
    const std::size_t left = findLeftDelimiter(from);
    if (left == NOT_FOUND)
    {
        m_offset = xml.size();
        return true;
    }

    // The delimiters of tags end white space and names, so the right one is not before their end.
    tag.isEndTag = xml[left + 1] == END_MARKER;
    const std::size_t nameStart = WHITE_SPACE.findFirstOther(xml, left + (tag.isEndTag ? 2 : 1));
    const std::size_t nameEnd = ELEMENT_NAME_STOPS.findFirst(xml, nameStart);
    const std::size_t right = nameEnd != NOT_FOUND && xml[nameEnd] == RIGHT_DELIMITER
                                  ? nameEnd
                                  : findRightDelimiter(xml, nameEnd);
    if (right == NOT_FOUND)
    {
        const std::size_t end = xml.find(RIGHT_DELIMITER, left);
        const std::size_t behind = end == NOT_FOUND ? xml.size() : end + 1;
        warn(GENERIC_UTILS_HERE, MALFORMED_TAG,
             "Can not find right tag delimiter for left tag delimiter\nstarting offset ", left,
             " ending offset ", end, '\n', partOf(xml, left, behind), '\n');
        return false;
    }
    m_offset = right + 1;
    tag.isEmptyElement = xml[right - 1] == END_MARKER;

    if (!getElementName(left, nameStart, nameEnd, tag))
    {
        return false;
    }
    tag.attributes = right == nameEnd ? std::string_view()
                                      : getAttributes(xml, nameEnd, right, tag.isEmptyElement);
    tag.isLeaf = isLeafElement(tag.isEndTag, tag.isEmptyElement);
    GENERIC_UTILS_TRACE_STEP(2, "Found next tag: name = '"
                                    << tag.name << "', attributes = '" << tag.attributes
                                    << "', leaf? = " << tag.isLeaf
                                    << ", end tag? = " << tag.isEndTag
                                    << ", empty element? = " << tag.isEmptyElement << ".");
    return true;
}

std::size_t Parser::findLeftDelimiter(std::size_t from)
{
    const std::string& xml = getXml();
    const bool isElementTag =
        xml[from] == LEFT_DELIMITER && xml[from + 1] != '?' && xml[from + 1] != '!';
    return isElementTag ? from : findElementTag(xml, from, m_offset);
}

// Keeps the text of a malformed tag; to keep every one would be a tenth of the time of parsing.
bool Parser::getElementName(std::size_t left, std::size_t start, std::size_t end, Tag& tag)
{
    if (end <= start)
    {
        m_tag = partOf(getXml(), left, m_offset);
        warn(GENERIC_UTILS_HERE, MALFORMED_TAG, "No element name specified in tag '",
             std::string_view(m_tag), "' in XML document near offset:", start - left, '\n');
        return false;
    }
    tag.name = partOf(getXml(), start, end);
    return true;
}

// Also moves the scan position past white space. With nothing behind it, that is the position of
// what was not found, which ends the scan and is reported as it is.
bool Parser::isLeafElement(bool endTag, bool emptyElement)
{
    if (emptyElement || endTag)
    {
        return emptyElement;
    }
    const std::string& xml = getXml();
    m_offset = WHITE_SPACE.findFirstOther(xml, m_offset);
    if (m_offset == NOT_FOUND)
    {
        return false;
    }
    return xml[m_offset] != LEFT_DELIMITER || xml[m_offset + 1] == END_MARKER;
}

bool Parser::getLeafValue()
{
    const std::string& xml = getXml();
    const std::size_t start = WHITE_SPACE.findFirstOther(xml, m_offset);
    const std::size_t end = xml.find(LEFT_DELIMITER, start);
    if (end == NOT_FOUND)
    {
        warn(GENERIC_UTILS_HERE, MALFORMED_ELEMENT, "Can not determine value for leaf element '",
             std::string_view(innermostName()), '\n');
        return false;
    }
    m_leafEnd = end;
    m_copier->copy(WHITE_SPACE.trimEnd(partOf(xml, start, end)), m_leafData.value);
    return true;
}

bool Parser::processNonEndTag(const Tag& tag)
{
    openElement(tag.name);
    GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of start of element '"
                                    << tag.name << "'- current level = " << m_level << ".");
    m_startData.level = m_level;
    m_copier->copy(tag.name, m_startData.name);
    m_documentPtr->m_startOfElementEvent.notify(&m_startData);

    if (!tag.attributes.empty() && !parseAttributesAndNotify(tag.attributes))
    {
        return false;
    }

    if (!tag.isLeaf || tag.isEmptyElement)
    {
        m_leafData.value.clear();
    }
    else if (!getLeafValue())
    {
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of leaf element '"
                                    << tag.name << "' with value '" << m_leafData.value
                                    << "' - current level = " << m_level << ".");
    m_leafData.level = m_level;
    m_copier->copy(tag.name, m_leafData.name);
    m_documentPtr->m_leafElementEvent.notify(&m_leafData);
    if (!m_leafData.proceed)
    {
        return false;
    }

    if (tag.isEmptyElement)
    {
        GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of end of element '"
                                        << tag.name << "'- current level = " << m_level << ".");
        closeElement(tag.name);
    }
    return true;
}

bool Parser::parseAttributesAndNotify(std::string_view attributes)
{
    GENERIC_UTILS_TRACE_STEP(2, "Parsing '" << attributes << "' for attribute names/values.");
    AttributePosition at;
    while (at.start < attributes.size())
    {
        std::string_view name;
        if (!getAttributeName(attributes, at, name))
        {
            return false;
        }
        if (at.separator < at.nameEnd)
        {
            at.separator = WHITE_SPACE.findFirstOther(attributes, at.nameEnd);
        }
        if (at.separator == NOT_FOUND || attributes[at.separator] != NAME_VALUE_SEPARATOR)
        {
            warn(GENERIC_UTILS_HERE, MALFORMED_ATTRIBUTE,
                 "Missing attribute name/value separator for attribute '", name, '\n');
            return false;
        }
        std::string_view value;
        std::size_t valueEnd = 0;
        if (!getAttributeValue(attributes, at.valueFrom, name, value, valueEnd))
        {
            return false;
        }
        GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of attribute: element name = '"
                                        << innermostName() << "', attribute name = '" << name
                                        << "', attribute value = '" << value << "'.");
        m_attributeData.level = m_level;
        m_copier->copy(name, m_attributeData.name);
        m_copier->copy(value, m_attributeData.value);
        m_documentPtr->m_attributeEvent.notify(&m_attributeData);
        if (!m_attributeData.proceed)
        {
            return false;
        }
        at.start = WHITE_SPACE.findFirstOther(attributes, valueEnd + 1);
    }
    return true;
}

bool Parser::processEndTag(const Tag& tag)
{
    if (m_level <= 0)
    {
        warn(GENERIC_UTILS_HERE, TAG_MISMATCH, "No beginning tag specified for end tag '", tag.name,
             '\n');
        return false;
    }
    if (tag.name != innermostName())
    {
        warn(GENERIC_UTILS_HERE, TAG_MISMATCH, "End tag '", tag.name,
             "' does not match begin tag '", std::string_view(innermostName()), '\n');
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(2, "Notifying observers of end of element '"
                                    << tag.name << "'- current level = " << m_level << ".");
    closeElement(tag.name);
    return true;
}

void Parser::openElement(std::string_view name)
{
    ++m_level;
    m_copier->append(name, m_elementNames);
}

void Parser::closeElement(std::string_view name)
{
    m_endData.level = m_level;
    m_copier->copy(name, m_endData.name);
    m_documentPtr->m_endOfElementEvent.notify(&m_endData);
    --m_level;
    m_copier->removeLast(m_elementNames);
}

const std::string& Parser::innermostName() const
{
    return m_elementNames[static_cast<std::size_t>(m_level)];
}

}  // namespace utils::xml
