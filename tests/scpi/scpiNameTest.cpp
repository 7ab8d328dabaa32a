// Names of SCPI strings and the two forms derived from them.
//
// - the short form: four characters a node, or three when the fourth is a vowel that does not end
//   the node; the long form: the whole node, the short form's characters in upper case
// - a vowel before "?" does not end the node; a fourth vowel at the end of the name or before ":"
//   does
// - digits and other characters count like letters
// - ":" and "?" are kept and begin a new node; "?" makes a query
// - a double quote is left out of both forms but counts
// - the name is kept as given; a new name replaces all but the query mark
// - null, empty and one-character names; a name ends at its first NUL
// - an object may be given a part of its own text
// - the character helpers

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include <utils/scpi/ScpiString.h>

#include "support/ConfigDirectory.h"

namespace
{

using utils::scpi::ScpiString;

class ScpiName : public testing::Test
{
  protected:
    static std::string formsOf(const std::string& name)
    {
        const ScpiString scpiString(name);
        return scpiString.getLongName() + " / " + scpiString.getShortName();
    }

    const test::ConfigDirectory m_emptyConfiguration;
};

TEST_F(ScpiName, HasAShortFormOfFourCharacters)
{
    EXPECT_EQ(formsOf("frequency"), "FREQuency / FREQ");
    EXPECT_EQ(formsOf("VOLTAGE"), "VOLTage / VOLT");
}

TEST_F(ScpiName, HasAShortFormOfThreeCharactersBeforeAVowel)
{
    EXPECT_EQ(formsOf("power"), "POWer / POW");
    EXPECT_EQ(formsOf("cabana"), "CABana / CAB");
    EXPECT_EQ(formsOf("CABANA"), "CABana / CAB");
    EXPECT_EQ(formsOf("xyzext"), "XYZext / XYZ");
    EXPECT_EQ(formsOf("xyzint"), "XYZint / XYZ");
    EXPECT_EQ(formsOf("xyzont"), "XYZont / XYZ");
    EXPECT_EQ(formsOf("xyzunt"), "XYZunt / XYZ");
    EXPECT_EQ(formsOf("xyzynt"), "XYZYnt / XYZY");
}

TEST_F(ScpiName, KeepsAFourthVowelThatEndsTheNode)
{
    EXPECT_EQ(formsOf("data"), "DATA / DATA");
    EXPECT_EQ(formsOf("data:data"), "DATA:DATA / DATA:DATA");
}

TEST_F(ScpiName, ShortensAFourthVowelBeforeAQuestionMark)
{
    EXPECT_EQ(formsOf("data?"), "DATa? / DAT?");
}

TEST_F(ScpiName, ShortensAFourthVowelBeforeADoubleQuote)
{
    EXPECT_EQ(formsOf("data\""), "DATa / DAT");
}

TEST_F(ScpiName, KeepsShortNodesWhole)
{
    EXPECT_EQ(formsOf("a"), "A / A");
    EXPECT_EQ(formsOf("cls"), "CLS / CLS");
    EXPECT_EQ(formsOf("aaa:bb:c"), "AAA:BB:C / AAA:BB:C");
}

TEST_F(ScpiName, FormsEveryNodeByItself)
{
    EXPECT_EQ(formsOf("measure:voltage?"), "MEASure:VOLTage? / MEAS:VOLT?");
    EXPECT_EQ(formsOf("frequency:power?"), "FREQuency:POWer? / FREQ:POW?");
}

TEST_F(ScpiName, KeepsSeparatorsWhereverTheyStand)
{
    EXPECT_EQ(formsOf(":measure::volt:"), ":MEASure::VOLT: / :MEAS::VOLT:");
    EXPECT_EQ(formsOf("?abcdef?"), "?ABCDef? / ?ABCD?");
}

TEST_F(ScpiName, CountsOtherCharactersLikeLetters)
{
    EXPECT_EQ(formsOf("*idn?"), "*IDN? / *IDN?");
    EXPECT_EQ(formsOf("channel12"), "CHANnel12 / CHAN");
    EXPECT_EQ(formsOf("ch1"), "CH1 / CH1");
    EXPECT_EQ(formsOf("ch12x"), "CH12x / CH12");
    EXPECT_EQ(formsOf("a b cd"), "A B cd / A B ");
}

TEST_F(ScpiName, LeavesDoubleQuotesOutButCountsThem)
{
    EXPECT_EQ(formsOf("\"abcd\""), "ABCd / ABC");
    EXPECT_EQ(formsOf("abc\"defg"), "ABCdefg / ABC");
    EXPECT_EQ(formsOf("\"\"\"\"abc"), "abc / ");
}

TEST_F(ScpiName, IsKeptAsGiven)
{
    EXPECT_EQ(ScpiString("\"Freq\":pow?").getName(), "\"Freq\":pow?");
    EXPECT_EQ(ScpiString(std::string("Freq")).getName(), "Freq");
}

TEST_F(ScpiName, OfNullLeavesEverythingEmpty)
{
    const ScpiString scpiString(static_cast<const char*>(nullptr));
    EXPECT_EQ(scpiString.getName(), "");
    EXPECT_EQ(scpiString.getLongName(), "");
    EXPECT_EQ(scpiString.getShortName(), "");
    EXPECT_FALSE(scpiString.isQuery());
}

TEST_F(ScpiName, MayBeEmpty)
{
    EXPECT_EQ(formsOf(""), " / ");
}

TEST_F(ScpiName, EndsAtItsFirstNul)
{
    const ScpiString scpiString(std::string("freq\0uency?", 11));
    EXPECT_EQ(scpiString.getName(), "freq");
    EXPECT_EQ(scpiString.getLongName(), "FREQ");
    EXPECT_FALSE(scpiString.isQuery());
}

TEST_F(ScpiName, IsReplacedAsAWhole)
{
    ScpiString scpiString("frequency");
    scpiString.setName("power");
    EXPECT_EQ(scpiString.getName(), "power");
    EXPECT_EQ(scpiString.getLongName(), "POWer");
    EXPECT_EQ(scpiString.getShortName(), "POW");
    scpiString.setName(std::string("volt:amp"));
    EXPECT_EQ(scpiString.getLongName(), "VOLT:AMP");
    scpiString.setName(static_cast<const char*>(nullptr));
    EXPECT_EQ(scpiString.getName(), "");
    EXPECT_EQ(scpiString.getLongName(), "");
    EXPECT_EQ(scpiString.getShortName(), "");
}

TEST_F(ScpiName, MayBeAPartOfTheObjectsOwnText)
{
    ScpiString scpiString("frequency:power");
    scpiString.setName(scpiString.getLongName());
    EXPECT_EQ(scpiString.getName(), "FREQuency:POWer");
    scpiString.setName(scpiString.getName().c_str() + 10);
    EXPECT_EQ(scpiString.getName(), "POWer");
    EXPECT_EQ(scpiString.getShortName(), "POW");
}

TEST_F(ScpiName, WithAQuestionMarkMakesAQueryForGood)
{
    ScpiString scpiString("power");
    EXPECT_FALSE(scpiString.isQuery());
    scpiString.setName("power?");
    EXPECT_TRUE(scpiString.isQuery());
    scpiString.setName("power");
    EXPECT_TRUE(scpiString.isQuery());
    EXPECT_TRUE(ScpiString("po?wer").isQuery());
}

TEST_F(ScpiName, IsCopiedWithItsForms)
{
    const ScpiString original("frequency?");
    const ScpiString copy(original);
    EXPECT_EQ(copy.getName(), "frequency?");
    EXPECT_EQ(copy.getLongName(), "FREQuency?");
    EXPECT_EQ(copy.getShortName(), "FREQ?");
    EXPECT_TRUE(copy.isQuery());
}

TEST(ScpiCharacters, ChangeCase)
{
    EXPECT_EQ(ScpiString::toLower('A'), 'a');
    EXPECT_EQ(ScpiString::toLower('a'), 'a');
    EXPECT_EQ(ScpiString::toLower('1'), '1');
    EXPECT_EQ(ScpiString::toUpper('z'), 'Z');
    EXPECT_EQ(ScpiString::toUpper('Z'), 'Z');
    EXPECT_EQ(ScpiString::toUpper(':'), ':');
    EXPECT_TRUE(ScpiString::isLower('q'));
    EXPECT_FALSE(ScpiString::isLower('Q'));
    EXPECT_FALSE(ScpiString::isLower('5'));
    EXPECT_FALSE(ScpiString::isLower('\0'));
}

TEST(ScpiCharacters, AreVowelsExactlyForTheTenLetters)
{
    std::string vowels;
    for (int code = 0; code < 256; ++code)
    {
        if (ScpiString::isVowel(static_cast<char>(code)))
        {
            vowels += static_cast<char>(code);
        }
    }
    EXPECT_EQ(vowels, "AEIOUaeiou");
}

TEST(ScpiType, HasAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<ScpiString>);
}

}  // namespace
