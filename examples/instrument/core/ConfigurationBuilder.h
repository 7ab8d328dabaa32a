#ifndef INSTRUMENT_CORE_CONFIGURATIONBUILDER_H
#define INSTRUMENT_CORE_CONFIGURATIONBUILDER_H

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include <utils/xml/ElementData.h>

#include "core/Configuration.h"
#include "core/ElementAttributes.h"
#include "core/XmlPosition.h"

namespace instrument
{

/// Makes a configuration from the events of the XML reader. All operations throw
/// ConfigurationError when the configuration makes no sense.
class ConfigurationBuilder
{
  public:
    /// @param position goes along with the events; not owned
    explicit ConfigurationBuilder(XmlPosition& position) : m_position(position) {}

    /// @name The events of the reader
    /// @{
    void startElement(const utils::xml::ElementData& element);
    void attribute(const utils::xml::ElementData& attribute);
    void leaf(const utils::xml::ElementData& element);
    void endElement(const utils::xml::ElementData& element);
    /// @}

    /// The whole.
    Configuration finish();

  private:
    void addInstrument();
    void addPool();
    void addChannel();
    void addWave();
    void addNoise();
    void addSampling();
    void addRange();
    void addState();
    void addInterlock(const std::string& expression);
    void endChannel();

    void requireOnce(const std::string& element);
    ChannelConfiguration& channel() { return m_configuration.channels.back(); }

    XmlPosition& m_position;
    Configuration m_configuration;
    ElementAttributes m_attributes;
    std::set<std::string> m_seenOnce;  // elements that may not come again
    std::size_t m_channelOffset = 0;   // of the current channel
    std::vector<std::size_t> m_interlockOffsets;
};

}  // namespace instrument

#endif
