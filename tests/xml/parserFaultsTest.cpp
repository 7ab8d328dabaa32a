// Malformed texts: parse() returns false, one warning says why, and the events so far have come.
//
// - elements that are not closed, end tags without a beginning, end tags of another element
// - tags that do not end, that contain "<", that have no name
// - attributes without a name, a separator, a value, the end of a value
// - leaf elements whose text does not end
// - texts without a closing of a tag at their end

#include <gmock/gmock.h>

#include "xml/XmlTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

using XmlFaults = test::XmlTest;

TEST_F(XmlFaults, AnElementWithNothingBehindItIsNotClosedNearTheLargestOffset)
{
    EXPECT_EQ(outcomeOf("<a>"),
              "false\nTag Mismatch, parse: Missing one or more end tags in XML document near "
              "offset:18446744073709551615");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''"));
    EXPECT_EQ(outcomeOf("<a>  \n"),
              "false\nTag Mismatch, parse: Missing one or more end tags in XML document near "
              "offset:18446744073709551615");
}

TEST_F(XmlFaults, AnElementThatIsNotClosedAtTheEndOfTheText)
{
    EXPECT_EQ(outcomeOf("<a><b></b>"),
              "false\nTag Mismatch, parse: Missing one or more end tags in XML document near "
              "offset:10");
    EXPECT_EQ(outcomeOf("<a><b/> text"),
              "false\nTag Mismatch, parse: Missing one or more end tags in XML document near "
              "offset:12");
}

TEST_F(XmlFaults, AnEndTagWithoutABeginning)
{
    EXPECT_EQ(outcomeOf("</a>"),
              "false\nTag Mismatch, processEndTag: No beginning tag specified for end tag 'a\n");
    EXPECT_EQ(outcomeOf("<b/></a>"),
              "false\nTag Mismatch, processEndTag: No beginning tag specified for end tag 'a\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 b", "leaf 1 b=''", "end 1 b"));
    EXPECT_EQ(outcomeOf("</xml_root_node>"),
              "false\nTag Mismatch, processEndTag: No beginning tag "
              "specified for end tag 'xml_root_node\n");
}

TEST_F(XmlFaults, AnEndTagOfAnotherElement)
{
    EXPECT_EQ(outcomeOf("<a></b>"),
              "false\nTag Mismatch, processEndTag: End tag 'b' does not "
              "match begin tag 'a\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''"));
    EXPECT_EQ(outcomeOf("<a></A>"),
              "false\nTag Mismatch, processEndTag: End tag 'A' does not "
              "match begin tag 'a\n");
    EXPECT_EQ(outcomeOf("<a><b></a></b>"),
              "false\nTag Mismatch, processEndTag: End tag 'a' does "
              "not match begin tag 'b\n");
}

TEST_F(XmlFaults, ATagWithAnotherInside)
{
    EXPECT_EQ(outcomeOf("<a <b>"),
              "false\nMalformed Tag, getNextTag: Can not find right tag delimiter for left tag "
              "delimiter\nstarting offset 0 ending offset 5\n<a <b>\n");
    EXPECT_EQ(outcomeOf("<x/><a b='<'>"),
              "false\nMalformed Tag, getNextTag: Can not find right tag delimiter for left tag "
              "delimiter\nstarting offset 4 ending offset 12\n<a b='<'>\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 x", "leaf 1 x=''", "end 1 x"));
}

TEST_F(XmlFaults, ATagThatDoesNotEnd)
{
    EXPECT_EQ(outcomeOf("<a>t</a"),
              "false\nMalformed Tag, getNextTag: Can not find right tag delimiter for left tag "
              "delimiter\nstarting offset 4 ending offset 18446744073709551615\n</a\n");
    EXPECT_EQ(outcomeOf("<"),
              "false\nMalformed Tag, getNextTag: Can not find right tag delimiter for left tag "
              "delimiter\nstarting offset 0 ending offset 18446744073709551615\n<\n");
    EXPECT_EQ(outcomeOf("<a <b\nc"),
              "false\nMalformed Tag, getNextTag: Can not find right tag delimiter for left tag "
              "delimiter\nstarting offset 0 ending offset 18446744073709551615\n<a <b\nc\n");
}

TEST_F(XmlFaults, ATagWithoutAName)
{
    EXPECT_EQ(outcomeOf("< >"),
              "false\nMalformed Tag, getElementName: No element name specified "
              "in tag '< >' in XML document near offset:2\n");
    EXPECT_EQ(outcomeOf("<>"),
              "false\nMalformed Tag, getElementName: No element name specified in "
              "tag '<>' in XML document near offset:1\n");
    EXPECT_EQ(outcomeOf("</>"),
              "false\nMalformed Tag, getElementName: No element name specified "
              "in tag '</>' in XML document near offset:2\n");
    EXPECT_EQ(outcomeOf("</ >"),
              "false\nMalformed Tag, getElementName: No element name specified "
              "in tag '</ >' in XML document near offset:3\n");
    EXPECT_EQ(outcomeOf("text < /a>"),
              "false\nMalformed Tag, getElementName: No element name "
              "specified in tag '< /a>' in XML document near offset:2\n");
    EXPECT_THAT(m_events, IsEmpty());
}

TEST_F(XmlFaults, AnAttributeWithoutAName)
{
    EXPECT_EQ(outcomeOf("<a x>"),
              "false\nMalformed Attribute, getAttributeName: No attribute name "
              "specified in 'x\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 a"));
    EXPECT_EQ(outcomeOf("<a ='1'>"),
              "false\nMalformed Attribute, getAttributeName: No attribute "
              "name specified in '='1'\n");
    EXPECT_EQ(outcomeOf("<a x='1' y/>"),
              "false\nMalformed Attribute, getAttributeName: No "
              "attribute name specified in 'x='1' y\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "attribute 1 x='1'"));
}

TEST_F(XmlFaults, AnAttributeWithoutASeparator)
{
    EXPECT_EQ(outcomeOf("<a x y='1'>"),
              "false\nMalformed Attribute, parseAttributesAndNotify: Missing attribute name/value "
              "separator for attribute 'x\n");
    EXPECT_EQ(outcomeOf("<a x '1'>"),
              "false\nMalformed Attribute, parseAttributesAndNotify: Missing attribute name/value "
              "separator for attribute 'x\n");
}

TEST_F(XmlFaults, AnAttributeWithoutAValue)
{
    EXPECT_EQ(outcomeOf("<a x=1>"),
              "false\nMalformed Attribute, getAttributeValue: Can not find "
              "value delimiter for attribute 'x\n");
    EXPECT_EQ(outcomeOf("<a x=>"),
              "false\nMalformed Attribute, getAttributeValue: Can not find "
              "value delimiter for attribute 'x\n");
}

TEST_F(XmlFaults, AnAttributeWhoseValueDoesNotEnd)
{
    EXPECT_EQ(outcomeOf("<a x='1>"),
              "false\nMalformed Attribute, getAttributeValue: Missing proper right value delimiter "
              "for attribute 'x\n");
    EXPECT_EQ(outcomeOf("<a x='1\">"),
              "false\nMalformed Attribute, getAttributeValue: Missing proper right value delimiter "
              "for attribute 'x\n");
    EXPECT_EQ(outcomeOf("<a x='1>2'>"),
              "false\nMalformed Attribute, getAttributeValue: Missing proper right value delimiter "
              "for attribute 'x\n");
}

TEST_F(XmlFaults, ALeafElementWhoseTextDoesNotEnd)
{
    EXPECT_EQ(outcomeOf("<a>text"),
              "false\nMalformed Element, getLeafValue: Can not determine "
              "value for leaf element 'a\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 a"));
}

TEST_F(XmlFaults, ALoneDelimiterBehindAStartTag)
{
    EXPECT_EQ(outcomeOf("<a><"),
              "false\nMalformed Tag, getNextTag: Can not find right tag delimiter for left tag "
              "delimiter\nstarting offset 3 ending offset 18446744073709551615\n<\n");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''"));
}

}  // namespace
