// The configuration:
// - what the file says is what the channels, states and interlocks are; what may be left out has a
//   default
// - malformed XML is told in the reader's words, with file, line and column
// - what makes no sense is told with file, line and column: unknown elements and attributes,
//   attributes that are missing or there twice, numbers that are none or out of range, unknown wave
//   forms, a pool without tasks, channels without name, wave form or range, names that are there
//   twice, bad interlocks
// - comments, declarations and tags before a mistake do not move its place
// - the file that comes with the example is good

#include <gtest/gtest.h>

#include <ostream>

#include "Device.h"
#include "support/TemporaryFolder.h"

using instrument::Configuration;
using instrument::readConfiguration;
using instrument::readConfigurationFile;
using instrument::WaveForm;
using test::ConfigDirectory;

namespace
{

// What is wrong with a configuration.
std::string problemOf(const std::string& xml)
{
    const ConfigDirectory flags;
    try
    {
        readConfiguration(xml, "x.xml");
        return "";
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
}

// A good channel around more elements.
std::string channelWith(const std::string& elements)
{
    return "<instrument>\n<channel name='A'>\n<wave form='dc'/><range volts='1'/>\n" + elements +
           "</channel>\n</instrument>\n";
}

// A good instrument around more elements.
std::string instrumentWith(const std::string& elements)
{
    return "<instrument>\n<channel name='A'><wave form='dc'/><range volts='1'/></channel>\n" +
           elements + "</instrument>\n";
}

}  // namespace

TEST(InstrumentConfiguration, SaysWhatTheInstrumentIs)
{
    const ConfigDirectory flags;
    const Configuration configuration = readConfiguration(
        "<?xml version='1.0'?>\n"
        "<instrument><pool size='3'/>"
        "<channel name='Probe_1'><wave form='sine' amplitude='2' offset='-0.5' frequency='1e3'/>"
        "<noise rms='0.25' seed='42'/><sampling rate='5000' settle='2.5'/>"
        "<range volts='10'/><range volts='1' default='yes'/></channel>"
        "<state name='door' value='1'/><interlock name='guard'> door &\n\tdoor </interlock>"
        "</instrument>",
        "x.xml");

    EXPECT_EQ(configuration.poolSize, 3U);
    ASSERT_EQ(configuration.channels.size(), 1U);
    const auto& channel = configuration.channels[0];
    EXPECT_EQ(channel.name, "Probe_1");
    EXPECT_EQ(channel.waveForm, WaveForm::SINE);
    EXPECT_EQ(channel.amplitude, 2);
    EXPECT_EQ(channel.offset, -0.5);
    EXPECT_EQ(channel.frequency, 1000);
    EXPECT_EQ(channel.noiseRms, 0.25);
    EXPECT_EQ(channel.noiseSeed, 42U);
    EXPECT_EQ(channel.sampleRate, 5000);
    EXPECT_EQ(channel.settleMs, 2.5);
    EXPECT_EQ(channel.ranges, (std::vector<double>{1, 10}));
    EXPECT_EQ(channel.defaultRange, 1);
    ASSERT_EQ(configuration.states.size(), 1U);
    EXPECT_EQ(configuration.states[0].name, "door");
    EXPECT_TRUE(configuration.states[0].isSet);
    ASSERT_EQ(configuration.interlocks.size(), 1U);
    EXPECT_EQ(configuration.interlocks[0].name, "guard");
    EXPECT_EQ(configuration.interlocks[0].expression, "door &  door");
}

TEST(InstrumentConfiguration, HasDefaults)
{
    const ConfigDirectory flags;
    const Configuration configuration = readConfiguration(
        "<instrument><channel name='A'><wave form='triangle'/><range volts='1'/>"
        "<range volts='3'/></channel><state name='s'/></instrument>",
        "x.xml");

    EXPECT_EQ(configuration.poolSize, 1U);
    const auto& channel = configuration.channels.at(0);
    EXPECT_EQ(channel.waveForm, WaveForm::TRIANGLE);
    EXPECT_EQ(channel.amplitude, 0);
    EXPECT_EQ(channel.offset, 0);
    EXPECT_EQ(channel.frequency, 0);
    EXPECT_EQ(channel.noiseRms, 0);
    EXPECT_EQ(channel.sampleRate, 10000);
    EXPECT_EQ(channel.settleMs, 0);
    EXPECT_EQ(channel.defaultRange, 3);
    EXPECT_FALSE(configuration.states.at(0).isSet);
}

TEST(InstrumentConfiguration, OfTheExampleIsGood)
{
    const ConfigDirectory flags;
    const Configuration configuration = readConfigurationFile(INSTRUMENT_FOLDER "/instrument.xml");
    EXPECT_EQ(configuration.channels.size(), 4U);
    EXPECT_EQ(configuration.states.size(), 3U);
    EXPECT_EQ(configuration.interlocks.size(), 2U);
}

TEST(InstrumentConfiguration, FileThatIsNotThereIsTold)
{
    const ConfigDirectory flags;
    try
    {
        readConfigurationFile(flags.getPath() + "/none.xml");
        FAIL();
    }
    catch (const std::exception& error)
    {
        EXPECT_EQ(error.what(), flags.getPath() + "/none.xml: No such file or directory");
    }
}

TEST(InstrumentConfiguration, EmptyFileHasNoChannel)
{
    EXPECT_EQ(problemOf(""), "x.xml:1:1: no channel is configured");
}

namespace
{

struct Case
{
    const char* name;
    std::string xml;
    std::string problem;
};

// For the name of the test.
void PrintTo(const Case& which, std::ostream* os)
{
    *os << which.name;
}

}  // namespace

class InstrumentConfigurationProblem : public testing::TestWithParam<Case>
{
};

TEST_P(InstrumentConfigurationProblem, IsToldWithItsPlace)
{
    EXPECT_EQ(problemOf(GetParam().xml), GetParam().problem);
}

INSTANTIATE_TEST_SUITE_P(
    Reader, InstrumentConfigurationProblem,
    testing::Values(
        Case{"TagWithoutEnd", "<instrument>\n  <pool size='1'\n  <channel/>\n</instrument>",
             "x.xml:2:3: Malformed Tag: Can not find right tag delimiter for left tag delimiter\n"
             "starting offset 15 ending offset 41\n<pool size='1'\n  <channel/>"},
        Case{"TagWithoutName", "<instrument>\n <!-- < > -->\n  <>\n</instrument>",
             "x.xml:3:3: Malformed Tag: No element name specified in tag '<>' in XML document near "
             "offset:1"},
        Case{"AttributeWithoutValue", "<instrument>\n<pool size=1/>\n</instrument>",
             "x.xml:2:7: Malformed Attribute: Can not find value delimiter for attribute 'size"},
        Case{"SecondAttributeWithoutEquals",
             "<instrument>\n<pool size='1'  x y='2'/>\n</instrument>",
             "x.xml:2:17: Malformed Attribute: Missing attribute name/value separator for "
             "attribute 'x"},
        Case{"AttributeWithoutEndOfValue", "<instrument>\n<pool size='1/>\n</instrument>",
             "x.xml:2:7: Malformed Attribute: Missing proper right value delimiter for attribute "
             "'size"},
        Case{"WrongEndTag", "<instrument>\n<pool size='1'/>\n  </instrumemt>\n",
             "x.xml:3:3: Tag Mismatch: End tag 'instrumemt' does not match begin tag 'instrument"},
        Case{"EndTagAlone", "\n</instrument>",
             "x.xml:2:1: Tag Mismatch: No beginning tag specified for end tag 'instrument"},
        Case{"MissingEndTag", "<!-- c -->\n  <instrument>\n<pool size='1'/>\n",
             "x.xml:2:3: Tag Mismatch: Missing one or more end tags in XML document near "
             "offset:43"},
        Case{"LeafWithoutEnd", instrumentWith("").substr(0, 13) + " <interlock name='i'>text",
             "x.xml:2:2: Malformed Element: Can not determine value for leaf element 'interlock"}));

INSTANTIATE_TEST_SUITE_P(
    Structure, InstrumentConfigurationProblem,
    testing::Values(Case{"OtherRoot", "<device/>", "x.xml:1:1: element 'device' is not known here"},
                    Case{"UnknownElement", instrumentWith("  <chanel name='B'/>\n"),
                         "x.xml:3:3: element 'chanel' is not known here"},
                    Case{"ElementInTheWrongPlace", instrumentWith("<range volts='1'/>\n"),
                         "x.xml:3:1: element 'range' is not known here"},
                    Case{"NestedRoot", instrumentWith("<instrument/>"),
                         "x.xml:3:1: element 'instrument' is not known here"},
                    Case{"TwoRoots", instrumentWith("") + "<instrument/>",
                         "x.xml:4:1: element 'instrument' is there twice"},
                    Case{"TextWhereNoneBelongs",
                         "<instrument>\n<pool size='1'>2</pool></instrument>",
                         "x.xml:2:1: element 'pool' has no text"},
                    Case{"UnknownAttribute",
                         "<instrument>\n<pool size='1'\n  speed='2'/></instrument>",
                         "x.xml:3:3: element 'pool' does not have an attribute 'speed'"},
                    Case{"AttributeTwice", "<instrument>\n<pool size='1' size='2'/></instrument>",
                         "x.xml:2:16: attribute 'size' is there twice"},
                    Case{"NoChannel", "<instrument>\n<pool size='1'/></instrument>",
                         "x.xml:1:1: no channel is configured"}));

INSTANTIATE_TEST_SUITE_P(
    Pool, InstrumentConfigurationProblem,
    testing::Values(Case{"SizeZero", "<instrument>\n <pool size='0'/></instrument>",
                         "x.xml:2:8: attribute 'size': 0 is not in 1 ... 64"},
                    Case{"SizeTooLarge", "<instrument><pool size='65'/></instrument>",
                         "x.xml:1:19: attribute 'size': 65 is not in 1 ... 64"},
                    Case{"SizeNegative", "<instrument><pool size='-1'/></instrument>",
                         "x.xml:1:19: attribute 'size': '-1' is not a number"},
                    Case{"SizeMissing", "<instrument>\n<pool/></instrument>",
                         "x.xml:2:1: element 'pool' has no attribute 'size'"},
                    Case{"Twice", "<instrument><pool size='1'/>\n<pool size='1'/></instrument>",
                         "x.xml:2:1: element 'pool' is there twice"}));

INSTANTIATE_TEST_SUITE_P(
    Channel, InstrumentConfigurationProblem,
    testing::Values(
        Case{"WithoutName", "<instrument>\n <channel/></instrument>",
             "x.xml:2:2: element 'channel' has no attribute 'name'"},
        Case{"BadName", "<instrument>\n<channel name='1A'/></instrument>",
             "x.xml:2:10: attribute 'name': '1A' is not a letter and up to 31 letters, digits and "
             "'_'"},
        Case{"Twice", instrumentWith("<channel name=\"a\"><wave form='dc'/></channel>"),
             "x.xml:3:10: 'a' is there twice"},
        Case{"WithoutWave",
             "<instrument>\n<channel name='A'><range volts='1'/></channel></instrument>",
             "x.xml:2:1: channel 'A' has no wave form"},
        Case{"UnknownWave",
             "<instrument><channel name='A'>\n<wave form='saw'/></channel></instrument>",
             "x.xml:2:7: wave form 'saw' is not known; there are dc, sine, square and triangle"},
        Case{"TwoWaves", channelWith("<wave form='dc'/>"),
             "x.xml:4:1: element 'wave' is there twice"},
        Case{"NegativeNoise", channelWith("<noise rms='-1'/>"),
             "x.xml:4:8: attribute 'rms': -1 is not in 0 ... 1000000"},
        Case{"NoiseIsNoNumber", channelWith("<noise rms='nan'/>"),
             "x.xml:4:8: attribute 'rms': nan is not in 0 ... 1000000"},
        Case{"NoSampleRate", channelWith("<sampling rate='0'/>"),
             "x.xml:4:11: attribute 'rate': 0 is not in 0.001 ... 1000000000"},
        Case{"SettlesTooLong", channelWith("<sampling settle='1001'/>"),
             "x.xml:4:11: attribute 'settle': 1001 is not in 0 ... 1000"},
        Case{"WithoutRange",
             "<instrument>\n <channel name='A'><wave form='dc'/></channel></instrument>",
             "x.xml:2:2: channel 'A' has no range"},
        Case{"RangeWithoutNumber", channelWith("<range/>"),
             "x.xml:4:1: element 'range' has no attribute 'volts'"},
        Case{"RangeIsNoNumber", channelWith("<range volts='ten'/>"),
             "x.xml:4:8: attribute 'volts': 'ten' is not a number"},
        Case{"RangeWithUnit", channelWith("<range volts='10V'/>"),
             "x.xml:4:8: attribute 'volts': '10V' is not a number"},
        Case{"RangeTwice", channelWith("<range volts='1.0'/>"),
             "x.xml:4:1: the range of 1 V is there twice"},
        Case{"TwoDefaults",
             channelWith("<range volts='2' default='yes'/><range volts='3' default='yes'/>"),
             "x.xml:4:33: another range is the default already"},
        Case{"DefaultIsNoTruthValue", channelWith("<range volts='2' default='true'/>"),
             "x.xml:4:18: attribute 'default': 'true' is not yes or no"}));

INSTANTIATE_TEST_SUITE_P(
    Interlock, InstrumentConfigurationProblem,
    testing::Values(
        Case{"StateTwice", instrumentWith("<state name='s'/><state name='S'/>"),
             "x.xml:3:25: 'S' is there twice"},
        Case{"StateIsNoTruthValue", instrumentWith("<state name='s' value='2'/>"),
             "x.xml:3:17: attribute 'value': 2 is not in 0 ... 1"},
        Case{"WithoutName", instrumentWith("<interlock>s</interlock>"),
             "x.xml:3:1: element 'interlock' has no attribute 'name'"},
        Case{"Twice",
             instrumentWith("<state name='s'/><interlock name='i'>s</interlock>"
                            "<interlock name='i'>s</interlock>"),
             "x.xml:3:62: 'i' is there twice"},
        Case{"WithoutExpression", instrumentWith("<interlock name='i'/>"),
             "x.xml:3:1: interlock 'i': an operand is missing at its end"},
        Case{"UnknownState",
             instrumentWith("<state name='s'/>\n<interlock name='i'>s|t</interlock>"),
             "x.xml:4:1: interlock 'i': state 't' is not known"},
        Case{"EscapedOperator",
             instrumentWith("<state name='s'/>\n<interlock name='i'>s&amp;s</interlock>"),
             "x.xml:4:1: interlock 'i': state 'amp;s' is not known"}));
