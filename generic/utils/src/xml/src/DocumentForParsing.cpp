#include <utils/xml/DocumentForParsing.h>

#include <utils/flag/Trace.h>
#include <utils/xml/Flags.h>

#include "internal/LastWords.h"
#include "xml/src/copyText.h"

namespace utils::xml
{

// Never destroyed, like the error names of utils::error::Error.
const std::string& DocumentForParsing::ROOT_ELEMENT_NAME = *new std::string("xml_root_node");

DocumentForParsing::DocumentForParsing(const std::string& xml) : m_xmlString(copyText(xml))
{
    GENERIC_UTILS_TRACE_STEP(1, "Creating XML document for parsing:\n" << m_xmlString);
}

DocumentForParsing::~DocumentForParsing()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying XML document for parsing."));
}

}  // namespace utils::xml
