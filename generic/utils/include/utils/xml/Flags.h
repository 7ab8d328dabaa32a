#ifndef GENERIC_UTILS_XML_FLAGS_H
#define GENERIC_UTILS_XML_FLAGS_H

#include <string>

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::xml
{

/// The flags of XML; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::xml::m_traceSteps", default 0: level 1 traces documents and parsers, with the whole
    /// text, level 2 also every tag and notification.
    flag::FlagT<int> m_traceSteps;

    /// "utils::xml::m_xmlDeclaration", default "<?xml version='1.0'?>": what applications put
    /// before the XML that they write; the library does not use it.
    flag::FlagT<std::string> m_xmlDeclaration;
};

}  // namespace utils::xml

namespace utils::singleton
{
extern template class SingletonT<utils::xml::Flags>;
}  // namespace utils::singleton

#endif
