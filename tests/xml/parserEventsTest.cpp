// The events of elements.
//
// - their order, levels, names and values
// - leaves: their text trimmed, inner white space and entities kept; empty ones; empty-element tags
// - elements that are no leaf raise a leaf element with an empty value all the same
// - the path of open elements, the document's root first
// - names: white space around them, what ends them, any other characters, NUL included
// - texts outside of elements; texts without any element
// - clearing proceed in a leaf element's record stops the parser, in a start's or end's it does not
// - the value of a record of a start or an end is empty; records are the same in every notification

#include <gmock/gmock.h>

#include <set>

#include "xml/XmlTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

using XmlEvents = test::XmlTest;

TEST_F(XmlEvents, ComeInDocumentOrder)
{
    EXPECT_TRUE(parse("<a x='1'><b>t</b><c/></a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "attribute 1 x='1'", "leaf 1 a=''", "start 2 b",
                                      "leaf 2 b='t'", "end 2 b", "start 2 c", "leaf 2 c=''",
                                      "end 2 c", "end 1 a"));
}

TEST_F(XmlEvents, OfALeafHaveItsTrimmedText)
{
    EXPECT_TRUE(parse("<a>  text  with \r\n spaces\t</a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a='text  with \r\n spaces'", "end 1 a"));
}

TEST_F(XmlEvents, OfALeafHaveItsTextUndecoded)
{
    EXPECT_TRUE(parse("<a>1 &lt; 2 > 0 \xC3\xA9</a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a='1 &lt; 2 > 0 \xC3\xA9'", "end 1 a"));
}

TEST_F(XmlEvents, OfAnEmptyLeafHaveAnEmptyValue)
{
    EXPECT_TRUE(parse("<a></a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_TRUE(parse("<a>  </a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, OfAnEmptyElementTagAreAllOfThem)
{
    EXPECT_TRUE(parse("<a/>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_TRUE(parse("<a x=\"it's\" />"));
    EXPECT_THAT(m_events,
                ElementsAre("start 1 a", "attribute 1 x='it's'", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, OfAnEmptyElementTagDoNotShowAnEarlierValue)
{
    EXPECT_TRUE(parse("<a><b>t</b><c/><d><e/></d></a>"));
    EXPECT_THAT(m_events,
                ElementsAre("start 1 a", "leaf 1 a=''", "start 2 b", "leaf 2 b='t'", "end 2 b",
                            "start 2 c", "leaf 2 c=''", "end 2 c", "start 2 d", "leaf 2 d=''",
                            "start 3 e", "leaf 3 e=''", "end 3 e", "end 2 d", "end 1 a"));
}

TEST_F(XmlEvents, OfMixedContentHaveTheTextBeforeTheFirstElement)
{
    EXPECT_TRUE(parse("<a> one <b/> two </a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a='one'", "start 2 b", "leaf 2 b=''",
                                      "end 2 b", "end 1 a"));
}

TEST_F(XmlEvents, OfAnElementBeforeACommentHaveNoValue)
{
    EXPECT_TRUE(parse("<a><!-- c --><b/></a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "start 2 b", "leaf 2 b=''",
                                      "end 2 b", "end 1 a"));
    EXPECT_TRUE(parse("<a><!-- c -->text</a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, OfSeveralTopLevelElementsAreAllOfLevelOne)
{
    EXPECT_TRUE(parse("x<a/>y<b>z</b>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a", "start 1 b",
                                      "leaf 1 b='z'", "end 1 b"));
}

TEST_F(XmlEvents, AreNoneInATextWithoutElements)
{
    EXPECT_TRUE(parse(""));
    EXPECT_TRUE(parse("text > & / text"));
    EXPECT_TRUE(parse(" \n"));
    EXPECT_THAT(m_events, IsEmpty());
}

TEST_F(XmlEvents, TakeWhiteSpaceAroundNames)
{
    EXPECT_TRUE(parse("< a ></ a \n>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_TRUE(parse("<\t\r\na />"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, TakeAnyOtherCharactersInNames)
{
    EXPECT_TRUE(parse("<a-b.c:d='\"x></a-b.c:d='\"x>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a-b.c:d='\"x", "leaf 1 a-b.c:d='\"x=''",
                                      "end 1 a-b.c:d='\"x"));
}

TEST_F(XmlEvents, TakeNulLikeAnyOtherCharacter)
{
    const std::string nul(1, '\0');
    EXPECT_TRUE(parse("<a" + nul + "b x" + nul + "='" + nul + "'>" + nul + " t " + nul + "</a" +
                      nul + "b>"));
    EXPECT_THAT(
        m_events,
        ElementsAre("start 1 a" + nul + "b", "attribute 1 x" + nul + "='" + nul + "'",
                    "leaf 1 a" + nul + "b='" + nul + " t " + nul + "'", "end 1 a" + nul + "b"));
}

TEST_F(XmlEvents, EndNamesAtASlash)
{
    EXPECT_TRUE(parse("<a/b></a>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, OfAnEndTagIgnoreItsAttributes)
{
    EXPECT_TRUE(parse("<a></a x='1'>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, OfATagWithTwoSlashesAreThoseOfAnEndTag)
{
    EXPECT_TRUE(parse("<a></a/>"));
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlEvents, ShowThePathOfOpenElements)
{
    const DocumentForParsing document("<a><bb y='1'>t</bb></a>");
    std::vector<std::vector<std::string>> paths;
    test::ElementNotifier notifier([&](ElementData& data) { paths.push_back(*data.elementNames); });
    document.m_startOfElementEvent.registerInterest(&notifier, 0);
    document.m_attributeEvent.registerInterest(&notifier, 0);
    document.m_leafElementEvent.registerInterest(&notifier, 0);
    document.m_endOfElementEvent.registerInterest(&notifier, 0);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_THAT(paths, ElementsAre(ElementsAre("xml_root_node", "a"),        // start
                                   ElementsAre("xml_root_node", "a"),        // leaf
                                   ElementsAre("xml_root_node", "a", "bb"),  // start
                                   ElementsAre("xml_root_node", "a", "bb"),  // attribute
                                   ElementsAre("xml_root_node", "a", "bb"),  // leaf
                                   ElementsAre("xml_root_node", "a", "bb"),  // end
                                   ElementsAre("xml_root_node", "a")));      // end
}

TEST_F(XmlEvents, UseOneRecordOfEachKind)
{
    const DocumentForParsing document("<a x='1' y='2'><b z='3'>t</b><c/></a>");
    std::set<ElementData*> starts;
    std::set<ElementData*> attributes;
    std::set<ElementData*> leaves;
    std::set<ElementData*> ends;
    test::ElementNotifier start([&](ElementData& data) { starts.insert(&data); });
    test::ElementNotifier attribute([&](ElementData& data) { attributes.insert(&data); });
    test::ElementNotifier leaf([&](ElementData& data) { leaves.insert(&data); });
    test::ElementNotifier end([&](ElementData& data) { ends.insert(&data); });
    document.m_startOfElementEvent.registerInterest(&start, 0);
    document.m_attributeEvent.registerInterest(&attribute, 0);
    document.m_leafElementEvent.registerInterest(&leaf, 0);
    document.m_endOfElementEvent.registerInterest(&end, 0);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_THAT(starts, SizeIs(1));
    EXPECT_THAT(attributes, SizeIs(1));
    EXPECT_THAT(leaves, SizeIs(1));
    EXPECT_THAT(ends, SizeIs(1));
}

TEST_F(XmlEvents, StopWhenALeafElementSaysSo)
{
    const DocumentForParsing document("<a><b>stop</b><c/></a>");
    const test::EventJournal journal(document,
                                     [this](const std::string& line) { m_events.push_back(line); });
    test::ElementNotifier stopper([](ElementData& data) { data.proceed = data.value != "stop"; });
    document.m_leafElementEvent.registerInterest(&stopper, 1);
    EXPECT_FALSE(Parser(&document).parse());
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "start 2 b", "leaf 2 b='stop'"));
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

TEST_F(XmlEvents, DoNotEndAnEmptyElementWhenItsLeafElementStops)
{
    const DocumentForParsing document("<a/>");
    const test::EventJournal journal(document,
                                     [this](const std::string& line) { m_events.push_back(line); });
    test::ElementNotifier stopper([](ElementData& data) { data.proceed = false; });
    document.m_leafElementEvent.registerInterest(&stopper, 1);
    EXPECT_FALSE(Parser(&document).parse());
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''"));
}

TEST_F(XmlEvents, DoNotStopWhenAStartOrAnEndSaysSo)
{
    const DocumentForParsing document("<a><b/></a>");
    test::ElementNotifier stopper([](ElementData& data) { data.proceed = false; });
    document.m_startOfElementEvent.registerInterest(&stopper, 1);
    document.m_endOfElementEvent.registerInterest(&stopper, 1);
    EXPECT_TRUE(Parser(&document).parse());
}

}  // namespace
