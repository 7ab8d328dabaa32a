#ifndef INSTRUMENT_CORE_CONFIGURATIONERROR_H
#define INSTRUMENT_CORE_CONFIGURATIONERROR_H

#include <cstddef>
#include <stdexcept>
#include <string>

namespace instrument
{

/// A configuration that cannot be used: what is wrong, and where in the text it is.
class ConfigurationError : public std::runtime_error
{
  public:
    ConfigurationError(std::size_t offset, const std::string& text)
        : std::runtime_error(text), m_offset(offset)
    {
    }

    std::size_t getOffset() const { return m_offset; }

  private:
    std::size_t m_offset;
};

}  // namespace instrument

#endif
