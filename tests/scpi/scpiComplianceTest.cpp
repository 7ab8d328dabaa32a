// Which headers mean a command.
//
// - each node in its short form or in its whole long form, forms mixed, in any letter case
// - neither more nor fewer characters than that, and neither more nor fewer nodes
// - null and empty headers never
// - a query only with its last node in long form
// - a header in double quotes only with its last node in long form; quotes that are skipped, and those that are not
// - names with quotes, empty nodes, empty names
// - a header ends at its first NUL
// - long headers in linear time

#include <gtest/gtest.h>

#include <string>

#include <utils/scpi/ScpiString.h>

#include "support/ConfigDirectory.h"

namespace
{

using utils::scpi::ScpiString;

class ScpiCompliance : public testing::Test
{
  protected:
    static bool isCompliant(const std::string& name, const std::string& header)
    {
        return ScpiString(name).isCompliant(header);
    }

    const test::ConfigDirectory m_emptyConfiguration;
};

TEST_F(ScpiCompliance, TakesTheShortAndTheLongForm)
{
    EXPECT_TRUE(isCompliant("frequency", "FREQ"));
    EXPECT_TRUE(isCompliant("frequency", "FREQuency"));
}

TEST_F(ScpiCompliance, TakesAnyLetterCase)
{
    EXPECT_TRUE(isCompliant("frequency", "freq"));
    EXPECT_TRUE(isCompliant("frequency", "frequency"));
    EXPECT_TRUE(isCompliant("frequency", "FrEqUeNcY"));
    EXPECT_TRUE(isCompliant("FREQUENCY", "fREQ"));
}

TEST_F(ScpiCompliance, TakesNothingBetweenTheForms)
{
    EXPECT_FALSE(isCompliant("frequency", "F"));
    EXPECT_FALSE(isCompliant("frequency", "FRE"));
    EXPECT_FALSE(isCompliant("frequency", "FREQU"));
    EXPECT_FALSE(isCompliant("frequency", "FREQUENC"));
    EXPECT_FALSE(isCompliant("measure:volt", "measu:volt"));
}

TEST_F(ScpiCompliance, TakesNothingBeyondTheLongForm)
{
    EXPECT_FALSE(isCompliant("frequency", "FREQUENCYS"));
    EXPECT_FALSE(isCompliant("frequency", "FREQS"));
    EXPECT_FALSE(isCompliant("frequency", "FREQ "));
    EXPECT_FALSE(isCompliant("frequency", "XFREQ"));
}

TEST_F(ScpiCompliance, MixesFormsFromNodeToNode)
{
    EXPECT_TRUE(isCompliant("frequency:power", "FREQ:POWER"));
    EXPECT_TRUE(isCompliant("frequency:power", "FREQUENCY:POW"));
    EXPECT_TRUE(isCompliant("measure:voltage", "meas:volt"));
    EXPECT_FALSE(isCompliant("measure:voltage", "meas:vol"));
}

TEST_F(ScpiCompliance, TakesNeitherMoreNorFewerNodes)
{
    EXPECT_FALSE(isCompliant("measure:voltage", "measure:voltage:dc"));
    EXPECT_FALSE(isCompliant("measure:voltage", "measure"));
    EXPECT_FALSE(isCompliant("measure:voltage", "meas:"));
    EXPECT_FALSE(isCompliant("measure:voltage", "meas:volt:"));
    EXPECT_FALSE(isCompliant("measure:voltage", ":meas:volt"));
    EXPECT_FALSE(isCompliant("measure:voltage", "meas::volt"));
}

TEST_F(ScpiCompliance, IsNeverThereForNullOrAnEmptyHeader)
{
    const ScpiString command("frequency");
    EXPECT_FALSE(command.isCompliant(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(command.isCompliant(""));
    EXPECT_FALSE(command.isCompliant(std::string()));
    EXPECT_FALSE(isCompliant("", ""));
}

TEST_F(ScpiCompliance, OfAnEmptyNameMatchesNoHeader)
{
    EXPECT_FALSE(isCompliant("", "FREQ"));
    EXPECT_FALSE(isCompliant("", ":"));
    EXPECT_FALSE(isCompliant("", "?"));
    EXPECT_FALSE(isCompliant("", " "));
}

// Of a header of quotes nothing is left that could differ.
TEST_F(ScpiCompliance, OfAnEmptyNameMatchesAHeaderOfItsQuotesOnly)
{
    EXPECT_TRUE(isCompliant("", "\""));
    EXPECT_TRUE(isCompliant("", "\"\""));
    EXPECT_FALSE(isCompliant("", "\"\"\""));
    EXPECT_FALSE(isCompliant("", "\"x"));
    EXPECT_TRUE(isCompliant("\"", "\"\""));
}

TEST_F(ScpiCompliance, OfAQueryNeedsTheLongFormInTheLastNode)
{
    EXPECT_TRUE(isCompliant("frequency?", "FREQUENCY?"));
    EXPECT_FALSE(isCompliant("frequency?", "FREQ?"));
    EXPECT_TRUE(isCompliant("measure:voltage?", "MEAS:VOLTAGE?"));
    EXPECT_FALSE(isCompliant("measure:voltage?", "MEAS:VOLT?"));
    EXPECT_TRUE(isCompliant("*idn?", "*IDN?"));
    EXPECT_TRUE(isCompliant("volt?", "volt?"));
}

TEST_F(ScpiCompliance, TellsQueriesFromCommands)
{
    EXPECT_FALSE(isCompliant("frequency", "frequency?"));
    EXPECT_FALSE(isCompliant("frequency?", "frequency"));
}

// The short form counts at the end of the header, wherever the command goes on from there.
TEST_F(ScpiCompliance, OfAQueryTakesItsLastNodeInShortFormWithoutTheQuestionMark)
{
    EXPECT_TRUE(isCompliant("frequency?", "FREQ"));
}

TEST_F(ScpiCompliance, InDoubleQuotesNeedsTheLongFormInTheLastNode)
{
    EXPECT_TRUE(isCompliant("frequency:power", "\"FREQUENCY:POWER\""));
    EXPECT_TRUE(isCompliant("frequency:power", "\"FREQ:POWER\""));
    EXPECT_FALSE(isCompliant("frequency:power", "\"FREQUENCY:POW\""));
    EXPECT_FALSE(isCompliant("frequency", "\"FREQ\""));
}

TEST_F(ScpiCompliance, SkipsOneQuoteAtTheBeginningAndOneAtADifference)
{
    EXPECT_TRUE(isCompliant("frequency", "\"FREQ"));
    EXPECT_TRUE(isCompliant("frequency", "FREQUENCY\""));
    EXPECT_FALSE(isCompliant("frequency", "\"\"FREQUENCY\""));
    EXPECT_FALSE(isCompliant("frequency", "\"FREQUENCY\"\""));
    EXPECT_FALSE(isCompliant("frequency", "\""));
}

TEST_F(ScpiCompliance, OfANameInQuotesIsThatOfItsForms)
{
    EXPECT_TRUE(isCompliant("\"abcd\"", "ABC"));
    EXPECT_TRUE(isCompliant("\"abcd\"", "abcd"));
    EXPECT_FALSE(isCompliant("\"abcd\"", "ab"));
}

TEST_F(ScpiCompliance, MatchesEmptyNodesLiterally)
{
    EXPECT_TRUE(isCompliant(":measure::volt:", ":meas::volt:"));
    EXPECT_TRUE(isCompliant(":measure::volt:", ":measure::volt:"));
    EXPECT_FALSE(isCompliant(":measure::volt:", "meas::volt:"));
}

TEST_F(ScpiCompliance, MatchesANodeWithoutAShortForm)
{
    EXPECT_TRUE(isCompliant("\"\"\"\"abc", "ABC"));
    EXPECT_FALSE(isCompliant("\"\"\"\"abc", "AB"));
}

TEST_F(ScpiCompliance, EndsWithTheHeadersFirstNul)
{
    EXPECT_TRUE(isCompliant("frequency", std::string("FREQ\0ABC", 8)));
    EXPECT_FALSE(isCompliant("frequency", std::string("\0FREQ", 5)));
}

TEST_F(ScpiCompliance, OfLongHeadersIsFoundInLinearTime)
{
    constexpr int numNodes = 1'000'000;
    std::string name;
    std::string header;
    for (int i = 0; i < numNodes; ++i)
    {
        name += "measure:";
        header += i % 2 == 0 ? "MEAS:" : "measure:";
    }
    const ScpiString command(name);
    EXPECT_TRUE(command.isCompliant(header));
    EXPECT_FALSE(command.isCompliant(header + "x"));
    EXPECT_FALSE(ScpiString(std::string(10'000'000, 'a')).isCompliant(std::string(9'999'999, 'a')));
}

}  // namespace
