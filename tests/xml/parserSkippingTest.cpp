// What is skipped: processing instructions, comments, a document type declaration.
//
// - each raises nothing, wherever it stands, and may contain what would be tags
// - the closing marker is searched behind the opening one, and may overlap nothing
// - a document type declaration ends at the first ">"
// - markers are taken literally: other markup is an element
// - one that is never closed ends the text, without a message of its own

#include <gmock/gmock.h>

#include "xml/XmlTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

using XmlSkipping = test::XmlTest;

TEST_F(XmlSkipping, RaisesNothing)
{
    EXPECT_EQ(outcomeOf("<?xml version='1.0'?>\n<!DOCTYPE a>\n<!-- <b> -->\n<a/>\n<?php <c> ?>"),
              "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlSkipping, HappensInsideOfElements)
{
    EXPECT_EQ(outcomeOf("<a><?p?><!--c--><!DOCTYPE d><b/><!--c--></a>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "start 2 b", "leaf 2 b=''",
                                      "end 2 b", "end 1 a"));
}

TEST_F(XmlSkipping, NeedsWholeClosingMarkers)
{
    EXPECT_EQ(outcomeOf("<?a>?><b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 b", "leaf 1 b=''", "end 1 b"));
    EXPECT_EQ(outcomeOf("<!--a->--><b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 b", "leaf 1 b=''", "end 1 b"));
}

TEST_F(XmlSkipping, SearchesTheClosingMarkerBehindTheOpeningOne)
{
    EXPECT_EQ(outcomeOf("<?><a/>?><b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 b", "leaf 1 b=''", "end 1 b"));
    EXPECT_EQ(outcomeOf("<!--><a/>--><b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 b", "leaf 1 b=''", "end 1 b"));
    EXPECT_EQ(outcomeOf("<!----><b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 b", "leaf 1 b=''", "end 1 b"));
}

TEST_F(XmlSkipping, EndsADocumentTypeAtTheFirstRightDelimiter)
{
    EXPECT_EQ(outcomeOf("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_EQ(outcomeOf("<!DOCTYPE><a/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
}

TEST_F(XmlSkipping, TakesMarkersLiterally)
{
    EXPECT_EQ(outcomeOf("<!doctype/><!-a/><! DOCTYPE='x'/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 !doctype", "leaf 1 !doctype=''", "end 1 !doctype",
                                      "start 1 !-a", "leaf 1 !-a=''", "end 1 !-a", "start 1 !",
                                      "attribute 1 DOCTYPE='x'", "leaf 1 !=''", "end 1 !"));
}

TEST_F(XmlSkipping, EndsTheTextWhenTheClosingMarkerIsMissing)
{
    EXPECT_EQ(outcomeOf("<a/><?p <b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_EQ(outcomeOf("<a/><!-- <b/>"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_EQ(outcomeOf("<a/><!DOCTYPE <b/"), "true");
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "leaf 1 a=''", "end 1 a"));
    EXPECT_EQ(outcomeOf("<!--"), "true");
    EXPECT_THAT(m_events, IsEmpty());
}

TEST_F(XmlSkipping, LeavesElementsOpenWhenTheClosingMarkerIsMissing)
{
    EXPECT_EQ(outcomeOf("<a><!-- </a>"),
              "false\nTag Mismatch, parse: Missing one or more end tags in XML document near "
              "offset:12");
}

}  // namespace
