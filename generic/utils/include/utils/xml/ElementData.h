#ifndef GENERIC_UTILS_XML_ELEMENTDATA_H
#define GENERIC_UTILS_XML_ELEMENTDATA_H

#include <cstdint>
#include <string>
#include <vector>

namespace utils::xml
{

/// What the notifiers of a document's events get as their data:
///
///     void notify(void* data) override
///     {
///         auto& element = *static_cast<utils::xml::ElementData*>(data);
///         ...
///     }
///
/// The record is the parser's, which has one for each event and uses it for every notification;
/// what is to be kept is copied.
struct ElementData
{
    /// Nesting level of the element concerned: 1 for a top-level element.
    std::int32_t level = -1;

    /// Names of the open elements, outermost first. Index 0 is the document itself
    /// (DocumentForParsing::ROOT_ELEMENT_NAME), index `level` the element concerned.
    const std::vector<std::string>* elementNames = nullptr;

    /// Name of the element, or of the attribute.
    std::string name;

    /// Value of the leaf element or of the attribute, undecoded. Empty for the start and the end
    /// of an element, and for an element that is no leaf.
    std::string value;

    /// Set to false by a notifier of an attribute or of a leaf element: makes the parser stop.
    bool proceed = true;
};

}  // namespace utils::xml

#endif
