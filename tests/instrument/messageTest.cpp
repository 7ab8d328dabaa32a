// Program messages:
// - a stream is cut at line feeds, wherever its blocks of bytes are cut; a line feed in a block is
//   data, one in a string ends the line
// - of a line that is too long nothing is kept, and the next one is good again; so it is with a
//   block that claims too much
// - units are cut at ";" outside of strings and blocks
// - headers are taken as they are, and must be well-formed
// - parameters are numbers, words, strings and blocks; what is none of these is an error

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "core/MessageFramer.h"
#include "core/ProgramMessage.h"
#include "core/ScpiError.h"

using instrument::CommandFailure;
using instrument::cutUnit;
using instrument::MessageFramer;
using instrument::MessageUnit;
using instrument::Parameter;
using instrument::parseUnit;
using instrument::ScpiError;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr std::size_t MAX_LINE = 65536;

std::vector<std::string> takeAll(MessageFramer& framer)
{
    std::vector<std::string> texts;
    while (framer.hasMessage())
    {
        const MessageFramer::Message message = framer.takeMessage();
        texts.push_back(message.isTooLong ? "(too long)" : message.text);
    }
    return texts;
}

std::vector<std::string> cutAll(std::string_view message)
{
    std::vector<std::string> units;
    while (!message.empty())
    {
        units.emplace_back(cutUnit(message));
    }
    return units;
}

ScpiError errorOf(const std::string& unit)
{
    try
    {
        parseUnit(unit);
        return ScpiError::NO_ERROR;
    }
    catch (const CommandFailure& failure)
    {
        return failure.getError();
    }
}

Parameter parameterOf(const std::string& text)
{
    const MessageUnit unit = parseUnit("X " + text);
    EXPECT_EQ(unit.parameters.size(), 1U);
    return unit.parameters.at(0);
}

double numberOf(const std::string& text)
{
    const Parameter parameter = parameterOf(text);
    EXPECT_EQ(parameter.type, Parameter::Type::NUMBER);
    return parameter.number;
}

std::string stringOf(const std::string& text)
{
    const Parameter parameter = parameterOf(text);
    EXPECT_EQ(parameter.type, Parameter::Type::STRING);
    return parameter.text;
}

}  // namespace

TEST(InstrumentFramer, CutsAtLineFeeds)
{
    MessageFramer framer;
    framer.append("*IDN?\n\n*RST\r\n*CL");
    EXPECT_THAT(takeAll(framer), ElementsAre("*IDN?", "", "*RST\r"));
    framer.append("S\n");
    EXPECT_THAT(takeAll(framer), ElementsAre("*CLS"));
}

TEST(InstrumentFramer, DoesNotMindHowTheStreamIsCut)
{
    const std::string stream = "A #15\n;\"\n',B\n*IDN?\n";
    MessageFramer whole;
    whole.append(stream);
    MessageFramer bytewise;
    for (const char byte : stream)
    {
        bytewise.append({&byte, 1});
    }
    const std::vector<std::string> messages = takeAll(whole);
    EXPECT_THAT(messages, ElementsAre("A #15\n;\"\n',B", "*IDN?"));
    EXPECT_EQ(takeAll(bytewise), messages);
}

TEST(InstrumentFramer, EndsALineInAString)
{
    MessageFramer framer;
    framer.append("A \"b\nC\n");
    EXPECT_THAT(takeAll(framer), ElementsAre("A \"b", "C"));
}

TEST(InstrumentFramer, KeepsNothingOfALineThatIsTooLong)
{
    MessageFramer framer;
    framer.append(std::string(MAX_LINE, 'x') + "\n");
    framer.append(std::string(MAX_LINE + 1, 'x'));
    framer.append(std::string(1'000'000, 'y'));
    framer.append("\nC\n");
    EXPECT_THAT(takeAll(framer), ElementsAre(std::string(MAX_LINE, 'x'), "(too long)", "C"));
}

TEST(InstrumentFramer, DoesNotBelieveABlockThatClaimsTooMuch)
{
    MessageFramer framer;
    framer.append("A #9999999999abc\nC\nA #565530\nC\n");
    EXPECT_THAT(takeAll(framer), ElementsAre("(too long)", "C", "(too long)", "C"));
}

TEST(InstrumentFramer, TakesAHashElsewhereForNoBlock)
{
    MessageFramer framer;
    framer.append("A#15\n#15\nA \"#15\"\nA #0\nA #x\n");
    EXPECT_THAT(takeAll(framer), ElementsAre("A#15", "#15", "A \"#15\"", "A #0", "A #x"));
}

TEST(InstrumentFramer, MakesAMessageOfTheRest)
{
    MessageFramer framer;
    framer.finish();
    EXPECT_THAT(takeAll(framer), IsEmpty());
    framer.append("*IDN?");
    framer.finish();
    framer.finish();
    EXPECT_THAT(takeAll(framer), ElementsAre("*IDN?"));
}

TEST(InstrumentUnits, AreCutAtSemicolonsOutsideOfData)
{
    EXPECT_THAT(cutAll("A;B 1;C"), ElementsAre("A", "B 1", "C"));
    EXPECT_THAT(cutAll("A \";'\";B ';\"';C"), ElementsAre("A \";'\"", "B ';\"'", "C"));
    EXPECT_THAT(cutAll("A \"x\"\";\";B"), ElementsAre("A \"x\"\";\"", "B"));
    EXPECT_THAT(cutAll("A #13;\";;B"), ElementsAre("A #13;\";", "B"));
    EXPECT_THAT(cutAll("A 1,#211;;;;;;;;;;;;B"), ElementsAre("A 1,#211;;;;;;;;;;;", "B"));
    EXPECT_THAT(cutAll(";;A;"), ElementsAre("", "", "A"));
    EXPECT_THAT(cutAll("A \";B"), ElementsAre("A \";B"));
}

TEST(InstrumentUnits, HaveAHeader)
{
    EXPECT_EQ(parseUnit(" \t:volt:RANG 1").header, ":volt:RANG");
    EXPECT_FALSE(parseUnit("VOLT:RANG 1").isQuery);
    EXPECT_EQ(parseUnit("*IDN?\r").header, "*IDN");
    EXPECT_TRUE(parseUnit("*IDN?\r").isQuery);
    EXPECT_EQ(parseUnit("").header, "");
    EXPECT_EQ(parseUnit(" \t\r").header, "");
}

TEST(InstrumentUnits, WithMalformedHeadersAreErrors)
{
    for (const char* const unit : {":", "::A", "A:", "A::B", "?", "A?B", "A??", "*", "**A", "A*",
                                   ":*A", "1A", "A:1", "_A", "*:A"})
    {
        EXPECT_EQ(errorOf(unit), ScpiError::SYNTAX_ERROR) << unit;
    }
    for (const char* const unit :
         {"A,1", "A\"x\"", "$A", "A\x01", "A\x80", "A \xff", "\x7f", "(A)"})
    {
        EXPECT_EQ(errorOf(unit), ScpiError::INVALID_CHARACTER) << unit;
    }
    EXPECT_EQ(errorOf(std::string("A\0B", 3)), ScpiError::INVALID_CHARACTER);
}

TEST(InstrumentUnits, HaveParameters)
{
    const MessageUnit unit = parseUnit("X 1 , ON,\"a,b\" ,#13,;,,\t'c'  ");
    ASSERT_EQ(unit.parameters.size(), 5U);
    EXPECT_EQ(unit.parameters[0].number, 1);
    EXPECT_EQ(unit.parameters[1].type, Parameter::Type::WORD);
    EXPECT_EQ(unit.parameters[1].text, "ON");
    EXPECT_EQ(unit.parameters[2].text, "a,b");
    EXPECT_EQ(unit.parameters[3].type, Parameter::Type::BLOCK);
    EXPECT_EQ(unit.parameters[3].text, ",;,");
    EXPECT_EQ(unit.parameters[4].text, "c");
}

TEST(InstrumentParameters, AreNumbers)
{
    EXPECT_EQ(numberOf("0"), 0);
    EXPECT_EQ(numberOf("+12"), 12);
    EXPECT_EQ(numberOf("-.5"), -0.5);
    EXPECT_EQ(numberOf("1.e3"), 1000);
    EXPECT_EQ(numberOf("1.5E-3"), 0.0015);
    EXPECT_EQ(numberOf("2e+2"), 200);
    EXPECT_EQ(numberOf("#HfF"), 255);
    EXPECT_EQ(numberOf("#q17"), 15);
    EXPECT_EQ(numberOf("#B101"), 5);
}

TEST(InstrumentParameters, AreInfiniteOrZeroBeyondWhatNumbersHold)
{
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    EXPECT_EQ(numberOf("1e999"), INFINITE);
    EXPECT_EQ(numberOf("-1e999"), -INFINITE);
    EXPECT_EQ(numberOf("1e-999"), 0);
    EXPECT_EQ(numberOf("#HFFFFFFFFFFFFFFFFF"), INFINITE);
}

TEST(InstrumentParameters, AreStrings)
{
    EXPECT_EQ(stringOf("\"\""), "");
    EXPECT_EQ(stringOf("\"it's\""), "it's");
    EXPECT_EQ(stringOf("'it''s'"), "it's");
    EXPECT_EQ(stringOf("\"a\"\"b\" "), "a\"b");
    EXPECT_EQ(stringOf("\"\x80\x01\""), "\x80\x01");
}

TEST(InstrumentParameters, AreBlocks)
{
    EXPECT_EQ(parameterOf("#10").text, "");
    EXPECT_EQ(parameterOf("#203abc ").text, "abc");
    EXPECT_EQ(parameterOf("#12 \t").text, " \t");
    EXPECT_EQ(parameterOf(std::string("#14\0\n\xff;", 7)).text, std::string("\0\n\xff;", 4));
}

namespace
{

struct Case
{
    const char* name;
    const char* text;
    ScpiError error;
};

// For the name of the test.
void PrintTo(const Case& which, std::ostream* os)
{
    *os << which.name;
}

}  // namespace

class InstrumentParameterProblem : public testing::TestWithParam<Case>
{
};

TEST_P(InstrumentParameterProblem, IsAnError)
{
    EXPECT_EQ(errorOf(std::string("X ") + GetParam().text), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Syntax, InstrumentParameterProblem,
                         testing::Values(Case{"OnlyComma", ",", ScpiError::SYNTAX_ERROR},
                                         Case{"CommaAtTheEnd", "1,", ScpiError::SYNTAX_ERROR},
                                         Case{"CommaAtTheFront", ",1", ScpiError::SYNTAX_ERROR},
                                         Case{"TwoCommas", "1,,2", ScpiError::SYNTAX_ERROR},
                                         Case{"Parentheses", "(1)", ScpiError::SYNTAX_ERROR},
                                         Case{"OtherSign", "@", ScpiError::SYNTAX_ERROR},
                                         Case{"TwoWords", "A B", ScpiError::SYNTAX_ERROR},
                                         Case{"SignInAWord", "A-B", ScpiError::SYNTAX_ERROR}));

INSTANTIATE_TEST_SUITE_P(
    Number, InstrumentParameterProblem,
    testing::Values(Case{"TwoPoints", "1.2.3", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"TwoSigns", "+-1", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"OnlyASign", "-", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"OnlyAPoint", ".", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"WordForInfinity", "-inf", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"WordForNoNumber", "-nan", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"Sum", "1+1", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"NoDigits", "#H", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"NoHexDigit", "#HG", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"NoBinaryDigit", "#B2", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"SignOfHexDigits", "#H-1", ScpiError::INVALID_CHARACTER_IN_NUMBER},
                    Case{"Unit", "1V", ScpiError::SUFFIX_NOT_ALLOWED},
                    Case{"UnitAfterBlank", "1 V", ScpiError::SUFFIX_NOT_ALLOWED},
                    Case{"NoExponent", "1e", ScpiError::SUFFIX_NOT_ALLOWED}));

INSTANTIATE_TEST_SUITE_P(
    Data, InstrumentParameterProblem,
    testing::Values(Case{"StringWithoutEnd", "\"a", ScpiError::INVALID_STRING_DATA},
                    Case{"OnlyAQuote", "\"", ScpiError::INVALID_STRING_DATA},
                    Case{"OtherQuoteAtTheEnd", "'a\"", ScpiError::INVALID_STRING_DATA},
                    Case{"WordBehindAString", "\"a\"b", ScpiError::INVALID_STRING_DATA},
                    Case{"TwoStrings", "\"a\" \"b\"", ScpiError::INVALID_STRING_DATA},
                    Case{"OnlyAHash", "#", ScpiError::INVALID_BLOCK_DATA},
                    Case{"BlockOfIndefiniteLength", "#0abc", ScpiError::INVALID_BLOCK_DATA},
                    Case{"BlockWithoutLength", "#1", ScpiError::INVALID_BLOCK_DATA},
                    Case{"BlockTooShort", "#15ab", ScpiError::INVALID_BLOCK_DATA},
                    Case{"BlockTooLong", "#12abc", ScpiError::INVALID_BLOCK_DATA},
                    Case{"LengthIsNoNumber", "#3xy", ScpiError::INVALID_BLOCK_DATA},
                    Case{"LengthIsMissing", "#9", ScpiError::INVALID_BLOCK_DATA},
                    Case{"OtherLetter", "#X", ScpiError::INVALID_BLOCK_DATA}));
