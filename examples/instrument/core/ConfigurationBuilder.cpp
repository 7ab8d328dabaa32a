#include "core/ConfigurationBuilder.h"

#include <strings.h>

#include <algorithm>
#include <map>
#include <utility>

#include <fmt/format.h>

#include "core/ConfigurationError.h"
#include "core/checkExpression.h"
#include "core/limits.h"

namespace instrument
{

namespace
{

using utils::xml::ElementData;

constexpr double MAX_VOLTS = 1e6;
constexpr double MIN_VOLTS = 1e-9;
constexpr double MAX_HERTZ = 1e9;
constexpr double MIN_SAMPLE_RATE = 1e-3;
constexpr double DEFAULT_SAMPLE_RATE = 10e3;

const std::map<std::string, WaveForm> WAVE_FORMS = {{"dc", WaveForm::DC},
                                                    {"sine", WaveForm::SINE},
                                                    {"square", WaveForm::SQUARE},
                                                    {"triangle", WaveForm::TRIANGLE}};

// Which elements there are, and inside of which. The document itself is the empty name.
const std::map<std::string, std::string> PARENTS = {
    {"instrument", ""},   {"pool", "instrument"},  {"channel", "instrument"},
    {"wave", "channel"},  {"noise", "channel"},    {"sampling", "channel"},
    {"range", "channel"}, {"state", "instrument"}, {"interlock", "instrument"},
};

std::string parentOf(const ElementData& element)
{
    const auto level = static_cast<std::size_t>(element.level);
    return level <= 1 ? "" : element.elementNames->at(level - 1);
}

// Names differ in more than the letter case, which clients need not keep to.
template <typename Things>
void requireNew(const Things& things, const ElementAttributes::Text& name)
{
    const bool isThere = std::any_of(
        things.begin(), things.end(),
        [&](const auto& other) { return strcasecmp(other.name.c_str(), name.value.c_str()) == 0; });
    if (isThere)
    {
        throw ConfigurationError(name.offset, fmt::format("'{}' is there twice", name.value));
    }
}

}  // namespace

void ConfigurationBuilder::startElement(const ElementData& element)
{
    m_position.startElement();
    const std::size_t offset = m_position.getTagOffset();
    const auto known = PARENTS.find(element.name);
    if (known == PARENTS.end() || known->second != parentOf(element))
    {
        throw ConfigurationError(offset,
                                 fmt::format("element '{}' is not known here", element.name));
    }
    m_attributes.reset(element.name, offset);
}

void ConfigurationBuilder::attribute(const ElementData& attribute)
{
    m_position.attribute(attribute.value);
    m_attributes.add(attribute.name, attribute.value, m_position.getAttributeOffset());
}

// Comes for every element, when all its attributes have come.
void ConfigurationBuilder::leaf(const ElementData& element)
{
    if (element.name == "interlock")
    {
        addInterlock(element.value);
    }
    else if (!element.value.empty())
    {
        throw ConfigurationError(m_position.getTagOffset(),
                                 fmt::format("element '{}' has no text", element.name));
    }
    else
    {
        static const std::map<std::string, void (ConfigurationBuilder::*)()> ADD = {
            {"instrument", &ConfigurationBuilder::addInstrument},
            {"pool", &ConfigurationBuilder::addPool},
            {"channel", &ConfigurationBuilder::addChannel},
            {"wave", &ConfigurationBuilder::addWave},
            {"noise", &ConfigurationBuilder::addNoise},
            {"sampling", &ConfigurationBuilder::addSampling},
            {"range", &ConfigurationBuilder::addRange},
            {"state", &ConfigurationBuilder::addState},
        };
        (this->*ADD.at(element.name))();
    }
    m_attributes.requireNone();
}

void ConfigurationBuilder::endElement(const ElementData& element)
{
    m_position.endElement();
    if (element.name == "channel")
    {
        endChannel();
    }
}

Configuration ConfigurationBuilder::finish()
{
    if (m_configuration.channels.empty())
    {
        throw ConfigurationError(0, "no channel is configured");
    }
    // Only now all states are known.
    for (std::size_t i = 0; i < m_configuration.interlocks.size(); ++i)
    {
        const std::string problem =
            checkExpression(m_configuration.interlocks[i].expression, m_configuration.states);
        if (!problem.empty())
        {
            throw ConfigurationError(
                m_interlockOffsets[i],
                fmt::format("interlock '{}': {}", m_configuration.interlocks[i].name, problem));
        }
    }
    return std::move(m_configuration);
}

void ConfigurationBuilder::requireOnce(const std::string& element)
{
    if (!m_seenOnce.insert(element).second)
    {
        throw ConfigurationError(m_attributes.getElementOffset(),
                                 fmt::format("element '{}' is there twice", element));
    }
}

void ConfigurationBuilder::addInstrument()
{
    requireOnce("instrument");
}

void ConfigurationBuilder::addPool()
{
    requireOnce("pool");
    m_configuration.poolSize = m_attributes.takeWhole("size", 1, limits::MAX_POOL_SIZE);
}

void ConfigurationBuilder::addChannel()
{
    const ElementAttributes::Text name = m_attributes.takeIdentifier("name");
    requireNew(m_configuration.channels, name);
    m_configuration.channels.emplace_back().name = name.value;
    channel().sampleRate = DEFAULT_SAMPLE_RATE;
    m_channelOffset = m_attributes.getElementOffset();
    for (const char* const part : {"wave", "noise", "sampling"})
    {
        m_seenOnce.erase(part);
    }
}

void ConfigurationBuilder::addWave()
{
    requireOnce("wave");
    const ElementAttributes::Text form = m_attributes.takeText("form");
    const auto found = WAVE_FORMS.find(form.value);
    if (found == WAVE_FORMS.end())
    {
        throw ConfigurationError(form.offset, fmt::format("wave form '{}' is not known; there are "
                                                          "dc, sine, square and triangle",
                                                          form.value));
    }
    channel().waveForm = found->second;
    channel().amplitude = m_attributes.takeNumber("amplitude", 0, MAX_VOLTS, 0);
    channel().offset = m_attributes.takeNumber("offset", -MAX_VOLTS, MAX_VOLTS, 0);
    channel().frequency = m_attributes.takeNumber("frequency", 0, MAX_HERTZ, 0);
}

void ConfigurationBuilder::addNoise()
{
    requireOnce("noise");
    channel().noiseRms = m_attributes.takeNumber("rms", 0, MAX_VOLTS);
    channel().noiseSeed = m_attributes.takeWhole("seed", 0, UINT64_MAX, 0);
}

void ConfigurationBuilder::addSampling()
{
    requireOnce("sampling");
    channel().sampleRate =
        m_attributes.takeNumber("rate", MIN_SAMPLE_RATE, MAX_HERTZ, DEFAULT_SAMPLE_RATE);
    channel().settleMs = m_attributes.takeNumber("settle", 0, limits::MAX_SETTLE_MS, 0);
}

void ConfigurationBuilder::addRange()
{
    const double volts = m_attributes.takeNumber("volts", MIN_VOLTS, MAX_VOLTS);
    std::vector<double>& ranges = channel().ranges;
    if (std::find(ranges.begin(), ranges.end(), volts) != ranges.end())
    {
        throw ConfigurationError(m_attributes.getElementOffset(),
                                 fmt::format("the range of {} V is there twice", volts));
    }
    ranges.push_back(volts);
    std::sort(ranges.begin(), ranges.end());
    if (m_attributes.takeBool("default", false))
    {
        if (channel().defaultRange != 0)
        {
            throw ConfigurationError(m_attributes.getElementOffset(),
                                     "another range is the default already");
        }
        channel().defaultRange = volts;
    }
}

void ConfigurationBuilder::addState()
{
    const ElementAttributes::Text name = m_attributes.takeIdentifier("name");
    requireNew(m_configuration.states, name);
    const bool isSet = m_attributes.takeWhole("value", 0, 1, 0) != 0;
    m_configuration.states.push_back({name.value, isSet});
}

void ConfigurationBuilder::addInterlock(const std::string& expression)
{
    const ElementAttributes::Text name = m_attributes.takeIdentifier("name");
    requireNew(m_configuration.interlocks, name);
    // Blanks are all the white space that the library's expressions know.
    std::string oneLine = expression;
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; },
        ' ');
    m_configuration.interlocks.push_back({name.value, oneLine});
    m_interlockOffsets.push_back(m_attributes.getElementOffset());
}

void ConfigurationBuilder::endChannel()
{
    if (!m_seenOnce.contains("wave"))
    {
        throw ConfigurationError(m_channelOffset,
                                 fmt::format("channel '{}' has no wave form", channel().name));
    }
    if (channel().ranges.empty())
    {
        throw ConfigurationError(m_channelOffset,
                                 fmt::format("channel '{}' has no range", channel().name));
    }
    if (channel().defaultRange == 0)
    {
        channel().defaultRange = channel().ranges.back();
    }
}

}  // namespace instrument
