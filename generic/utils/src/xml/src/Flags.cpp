#include <utils/xml/Flags.h>

namespace utils::singleton
{
template class SingletonT<xml::Flags>;
}

namespace utils::xml
{

Flags::Flags()
    : m_traceSteps("utils::xml::m_traceSteps", 0),
      m_xmlDeclaration("utils::xml::m_xmlDeclaration", "<?xml version='1.0'?>")
{
}

Flags::~Flags() = default;

}  // namespace utils::xml
