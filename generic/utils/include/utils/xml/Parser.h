#ifndef GENERIC_UTILS_XML_PARSER_H
#define GENERIC_UTILS_XML_PARSER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <utils/export.h>
#include <utils/xml/DocumentForParsing.h>
#include <utils/xml/ElementData.h>

namespace utils::xml
{

class PartCopier;

/// Reads an XML text once, from front to back, and raises the events of its document.
///
///     utils::xml::DocumentForParsing document("<a x='1'>text</a>");
///     document.m_leafElementEvent.registerInterest(&notifier, 0);
///     utils::xml::Parser parser(&document);
///     const bool isWhole = parser.parse();
///
/// An element raises the start of an element, one event for each attribute, the leaf element with
/// its text, the same of the elements inside, and the end of the element. Declarations, processing
/// instructions, comments and a document type declaration (without an internal subset) are skipped;
/// one that is never closed ends the text.
///
/// There is no validation, no decoding of entities or characters, no CDATA, and ">" and "<" end a
/// tag also inside of attribute values. White space is trimmed around the text of a leaf element.
///
/// Notifiers run on the calling thread. They may unregister as observer::Event says, and use other
/// parsers, but not the one that calls them.
///
/// Time grows with the length of the text, and of the names and values that are found in it; memory
/// with that of the text and the depth of the elements. No depth is too large for the stack.
///
/// Thread safety: belongs to one thread at a time. Several parsers may read one document at once
/// when its events have locks, or nobody registers meanwhile and the notifiers allow it.
class GENERIC_UTILS_EXPORT Parser
{
  public:
    /// @param documentPtr not owned; must outlive the parser. Null is reported as error NULL_PTR and
    ///        ends the process.
    explicit Parser(const DocumentForParsing* documentPtr);

    virtual ~Parser();

    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    /// Reads the text; to be called once.
    /// @return true when the text was read to its end and every element was closed. False when a
    ///         notifier of an attribute or leaf element cleared ElementData::proceed, and when the
    ///         text is malformed: then a WARNING was reported, "Malformed Tag", "Malformed Element",
    ///         "Malformed Attribute" or "Tag Mismatch".
    bool parse();

  private:
    struct Tag;

    GENERIC_UTILS_LOCAL bool processNextTag(std::size_t from, Tag& tag);
    GENERIC_UTILS_LOCAL bool isPlainEndTag(std::size_t left) const;
    GENERIC_UTILS_LOCAL void processPlainEndTag(std::size_t left);
    GENERIC_UTILS_LOCAL bool getPlainStartTag(std::size_t left, Tag& tag);
    GENERIC_UTILS_LOCAL bool getNextTag(std::size_t from, Tag& tag);
    GENERIC_UTILS_LOCAL std::size_t findLeftDelimiter(std::size_t from);
    GENERIC_UTILS_LOCAL bool getElementName(std::size_t left, std::size_t start, std::size_t end,
                                            Tag& tag);
    GENERIC_UTILS_LOCAL bool isLeafElement(bool endTag, bool emptyElement);
    GENERIC_UTILS_LOCAL bool getLeafValue();
    GENERIC_UTILS_LOCAL bool processNonEndTag(const Tag& tag);
    GENERIC_UTILS_LOCAL bool processEndTag(const Tag& tag);
    GENERIC_UTILS_LOCAL bool parseAttributesAndNotify(std::string_view attributes);
    GENERIC_UTILS_LOCAL void openElement(std::string_view name);
    GENERIC_UTILS_LOCAL void closeElement(std::string_view name);
    GENERIC_UTILS_LOCAL const std::string& innermostName() const;
    const std::string& getXml() const { return m_documentPtr->getXmlString(); }

    const DocumentForParsing* m_documentPtr;
    std::string m_tag;  // from "<" to ">", when it is malformed
    std::size_t m_offset = 0;
    std::int32_t m_level = 0;
    std::vector<std::string> m_elementNames;
    ElementData m_startData;
    ElementData m_attributeData;
    ElementData m_leafData;
    ElementData m_endData;
    std::size_t m_leafEnd = 0;  // of the last leaf's text; the next tag is not before
    std::unique_ptr<PartCopier> m_copier;
};

}  // namespace utils::xml

#endif
