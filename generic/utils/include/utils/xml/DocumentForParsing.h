#ifndef GENERIC_UTILS_XML_DOCUMENTFORPARSING_H
#define GENERIC_UTILS_XML_DOCUMENTFORPARSING_H

#include <string>

#include <utils/export.h>
#include <utils/observer/Event.h>

namespace utils::xml
{

/// An XML text, and the events that a Parser raises while it reads it.
///
/// The data of every event is the address of an ElementData. The events can be registered on
/// through a constant document, too.
///
/// Thread safety: the text may be read by any thread. The events: see observer::Event.
class GENERIC_UTILS_EXPORT DocumentForParsing
{
  public:
    /// "xml_root_node": the name of the implicit element of level 0.
    static const std::string& ROOT_ELEMENT_NAME;

    /// @param xml copied, and never changed
    explicit DocumentForParsing(const std::string& xml);

    virtual ~DocumentForParsing();

    DocumentForParsing(const DocumentForParsing&) = delete;
    DocumentForParsing& operator=(const DocumentForParsing&) = delete;

    /// The text.
    const std::string& getXmlString() const { return m_xmlString; }

    /// @name Events, in the order in which an element raises them
    /// @{

    /// Once for each start tag and each empty-element tag.
    mutable observer::Event m_startOfElementEvent;

    /// Once for each attribute.
    mutable observer::Event m_attributeEvent;

    /// Once for each start tag and each empty-element tag, after its attributes, with the element's
    /// text. An element that has others inside raises it as well, with an empty value.
    mutable observer::Event m_leafElementEvent;

    /// Once for each end tag and each empty-element tag.
    mutable observer::Event m_endOfElementEvent;
    /// @}

  private:
    std::string m_xmlString;
};

}  // namespace utils::xml

#endif
