// Attributes.
//
// - several, in their order, with white space wherever it may stand
// - both delimiters, each inside of the other; empty values; values undecoded and untrimmed
// - what stands between "=" and the value is ignored; a value may follow another at once
// - a slash in a value, before the end of an empty-element tag or not
// - delimiters inside of names: the value is searched from the beginning of the attribute
// - clearing proceed stops the parser

#include <gmock/gmock.h>

#include "xml/XmlTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

class XmlAttributes : public test::XmlTest
{
  protected:
    // The attributes of a tag <a ...> that is otherwise well-formed.
    std::vector<std::string> attributesOf(const std::string& text)
    {
        EXPECT_EQ(outcomeOf("<a " + text + "></a>"), "true");
        std::vector<std::string> attributes;
        for (const std::string& line : m_events)
        {
            const std::string beginning = "attribute 1 ";
            if (line.rfind(beginning, 0) == 0)
            {
                attributes.push_back(line.substr(beginning.size()));
            }
        }
        return attributes;
    }
};

TEST_F(XmlAttributes, ComeInTheirOrder)
{
    EXPECT_THAT(attributesOf("x='1' y='2' x='3'"), ElementsAre("x='1'", "y='2'", "x='3'"));
}

TEST_F(XmlAttributes, MayHaveWhiteSpaceAround)
{
    EXPECT_THAT(attributesOf("\t x\r\n = \t '1'\n y ='2' "), ElementsAre("x='1'", "y='2'"));
}

TEST_F(XmlAttributes, HaveEitherDelimiter)
{
    EXPECT_THAT(attributesOf("x=\"it's\" y='say \"no\"'"),
                ElementsAre("x='it's'", "y='say \"no\"'"));
}

TEST_F(XmlAttributes, HaveTheirValuesAsTheyAre)
{
    EXPECT_THAT(attributesOf("x=' 1 &amp; 2\n' y='' z='='"),
                ElementsAre("x=' 1 &amp; 2\n'", "y=''", "z='='"));
}

TEST_F(XmlAttributes, MayFollowEachOtherAtOnce)
{
    EXPECT_THAT(attributesOf("x='1'y=\"2\"z='3'"), ElementsAre("x='1'", "y='2'", "z='3'"));
}

TEST_F(XmlAttributes, IgnoreWhatStandsBeforeTheValue)
{
    EXPECT_THAT(attributesOf("x = nothing '1'"), ElementsAre("x='1'"));
}

TEST_F(XmlAttributes, MayHaveSlashesInTheirValues)
{
    EXPECT_THAT(attributesOf("x='/a/'"), ElementsAre("x='/a/'"));
    EXPECT_EQ(outcomeOf("<a x='/'/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "attribute 1 x='/'", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlAttributes, BehindASlashAreNone)
{
    EXPECT_EQ(outcomeOf("<a /x='1'></a>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlAttributes, MayHaveAValueInsideOfTheirNames)
{
    // The value is found in the name; what is left of the name is the next one.
    EXPECT_THAT(attributesOf("p'q'r='1'"), ElementsAre("p'q'r='q'", "r='1'"));
    EXPECT_THAT(attributesOf("''''x  ='1'"), ElementsAre("''''x=''", "''x=''", "x='1'"));
}

TEST_F(XmlAttributes, StopTheParserWhenANotifierSaysSo)
{
    const DocumentForParsing document("<a x='1' y='2' z='3'/>");
    const test::EventJournal journal(document,
                                     [this](const std::string& line) { m_events.push_back(line); });
    test::ElementNotifier stopper([](ElementData& data) { data.proceed = data.name != "y"; });
    document.m_attributeEvent.registerInterest(&stopper, 1);
    EXPECT_FALSE(Parser(&document).parse());
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "attribute 1 x='1'", "attribute 1 y='2'"));
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

}  // namespace
