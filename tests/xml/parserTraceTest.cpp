// What documents and parsers trace.
//
// - level 1: creation and destruction, the beginning of parsing, with the whole text
// - level 2: tags, notifications and attributes, in their order
// - the flag, the level and the place that the full header names
// - nothing below the level, nothing while the master switch is off

#include <gmock/gmock.h>

#include <optional>

#include <utils/flag/Flags.h>
#include <utils/observer/Flags.h>
#include <utils/xml/Flags.h>

#include "support/RecordingTraceStrategy.h"
#include "xml/XmlTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using utils::singleton::SingletonT;
using utils::xml::DocumentForParsing;
using utils::xml::Flags;
using utils::xml::Parser;

class XmlTrace : public test::XmlTest
{
  protected:
    static void setLevel(int level)
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(level);
    }

    std::vector<std::string> takeWords()
    {
        std::vector<std::string> words = m_traces.getWords();
        m_traces.clear();
        return words;
    }

    test::RecordingTraceStrategy m_traces;
};

TEST_F(XmlTrace, ShowsTheTextAtLevelOne)
{
    setLevel(1);
    std::optional<DocumentForParsing> document(std::in_place, "<a>\n</a>");
    EXPECT_THAT(takeWords(), ElementsAre("Creating XML document for parsing:\n<a>\n</a>"));

    std::optional<Parser> parser(std::in_place, &*document);
    EXPECT_THAT(takeWords(), ElementsAre("Creating XML parser to parse:\n<a>\n</a>"));

    parser->parse();
    EXPECT_THAT(takeWords(), ElementsAre("Starting parsing of:\n<a>\n</a>"));

    parser.reset();
    EXPECT_THAT(takeWords(), ElementsAre("Destroying XML parser."));

    document.reset();
    EXPECT_THAT(takeWords(), ElementsAre("Destroying XML document for parsing."));
}

TEST_F(XmlTrace, ShowsTheDocumentsLifeAroundThatOfItsEvents)
{
    auto& eventLevel = SingletonT<utils::observer::Flags>::getInstancePtr()->m_traceSteps;
    setLevel(1);
    eventLevel.setValue(1);
    {
        const DocumentForParsing document("<a/>");
    }
    eventLevel.setValue(0);
    std::vector<std::string> firstWords;
    for (const std::string& words : takeWords())
    {
        firstWords.push_back(words.substr(0, words.find(' ', words.find(' ') + 1)));
    }
    EXPECT_THAT(firstWords, ElementsAre("Creating an", "Creating an", "Creating an", "Creating an",
                                        "Creating XML", "Destroying XML", "Destroying an",
                                        "Destroying an", "Destroying an", "Destroying an"));
}

TEST_F(XmlTrace, ShowsTagsAndNotificationsAtLevelTwo)
{
    const DocumentForParsing document("<a x='1' y=\"2\"><b> t </b><c /></a>");
    Parser parser(&document);
    setLevel(2);
    EXPECT_TRUE(parser.parse());
    setLevel(0);
    EXPECT_THAT(
        takeWords(),
        ElementsAre(
            "Starting parsing of:\n<a x='1' y=\"2\"><b> t </b><c /></a>",
            "Found next tag: name = 'a', attributes = 'x='1' y=\"2\"', leaf? = 0, end tag? = 0, "
            "empty element? = 0.",
            "Processing tag 'a'.",
            "Notifying observers of start of element 'a'- current level = 1.",
            "Parsing 'x='1' y=\"2\"' for attribute names/values.",
            "Notifying observers of attribute: element name = 'a', attribute name = 'x', attribute "
            "value = '1'.",
            "Notifying observers of attribute: element name = 'a', attribute name = 'y', attribute "
            "value = '2'.",
            "Notifying observers of leaf element 'a' with value '' - current level = 1.",
            "Found next tag: name = 'b', attributes = '', leaf? = 1, end tag? = 0, empty element? "
            "= 0.",
            "Processing tag 'b'.",
            "Notifying observers of start of element 'b'- current level = 2.",
            "Notifying observers of leaf element 'b' with value 't' - current level = 2.",
            "Found next tag: name = 'b', attributes = '', leaf? = 0, end tag? = 1, empty element? "
            "= 0.",
            "Processing tag 'b'.", "Notifying observers of end of element 'b'- current level = 2.",
            "Found next tag: name = 'c', attributes = '', leaf? = 1, end tag? = 0, empty element? "
            "= 1.",
            "Processing tag 'c'.",
            "Notifying observers of start of element 'c'- current level = 2.",
            "Notifying observers of leaf element 'c' with value '' - current level = 2.",
            "Notifying observers of end of element 'c'- current level = 2.",
            "Found next tag: name = 'a', attributes = '', leaf? = 0, end tag? = 1, empty element? "
            "= 0.",
            "Processing tag 'a'.",
            "Notifying observers of end of element 'a'- current level = 1."));
}

TEST_F(XmlTrace, ShowsNothingOfTextsWithoutTags)
{
    const DocumentForParsing document("text <!-- comment -->");
    Parser parser(&document);
    setLevel(2);
    EXPECT_TRUE(parser.parse());
    setLevel(0);
    EXPECT_THAT(takeWords(), ElementsAre("Starting parsing of:\ntext <!-- comment -->"));
}

TEST_F(XmlTrace, NamesFlagLevelAndPlace)
{
    setLevel(2);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgHeaders.setValue(0);
    {
        const DocumentForParsing document("<a x='1'/>");
        Parser(&document).parse();
    }
    const auto at = [](const std::string& level, const std::string& place)
    {
        return MatchesRegex("!TRACE \\(utils::xml::m_traceSteps = 2; trace level = " + level +
                            "\\) by [^\n]*\nGenerated from generic/utils/src/xml/src/" + place +
                            ":\n(.|\n)*");
    };
    EXPECT_THAT(
        m_traces.getTexts(),
        ElementsAre(at("1", "DocumentForParsing/[0-9]+/DocumentForParsing"),
                    at("1", "Parser/[0-9]+/Parser"), at("1", "Parser/[0-9]+/parse"),
                    at("2", "Parser/[0-9]+/getNextTag"), at("2", "Parser/[0-9]+/parse"),
                    at("2", "Parser/[0-9]+/processNonEndTag"),
                    at("2", "Parser/[0-9]+/parseAttributesAndNotify"),
                    at("2", "Parser/[0-9]+/parseAttributesAndNotify"),
                    at("2", "Parser/[0-9]+/processNonEndTag"),
                    at("2", "Parser/[0-9]+/processNonEndTag"), at("1", "Parser/[0-9]+/~Parser"),
                    at("1", "DocumentForParsing/[0-9]+/~DocumentForParsing")));
}

TEST_F(XmlTrace, IsOffByDefault)
{
    EXPECT_TRUE(parse("<a x='1'>t</a>"));
    EXPECT_THAT(takeWords(), IsEmpty());
}

TEST_F(XmlTrace, ObeysTheMasterSwitch)
{
    setLevel(2);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgs.setValue(false);
    EXPECT_TRUE(parse("<a x='1'>t</a>"));
    EXPECT_THAT(takeWords(), IsEmpty());
}

}  // namespace
