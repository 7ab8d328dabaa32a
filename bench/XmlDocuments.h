#ifndef BENCH_XMLDOCUMENTS_H
#define BENCH_XMLDOCUMENTS_H

#include <cstddef>
#include <string>

namespace bench
{

/// What most of a document is made of.
enum class XmlKind
{
    attributes,  // readings, each an empty-element tag with seven attributes, one a line
    elements,    // the same readings, each of nine small elements, one a line
    text,        // sections of paragraphs of some hundred characters, indented
    nested,      // elements in each other, as deep as the size allows
    oneTag       // one element with as many attributes as the size allows
};

/// A document of about this many bytes; always the same for the same arguments.
///
/// It is well-formed, of ASCII characters, and uses nothing that any of the parsers does not know:
/// no entities, no CDATA, no text behind a child element, no empty values.
std::string makeXmlDocument(XmlKind kind, std::size_t size);

}  // namespace bench

#endif
