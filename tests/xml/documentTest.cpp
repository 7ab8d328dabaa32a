// Documents and parsers as objects.
//
// - a document copies its text, a large one, too, and keeps it as it is
// - the name of the implicit root
// - the events can be registered on through a constant document
// - neither is copyable; both have virtual destructors
// - a null document ends the process
// - a parser parses once; a second call appends the root again and finds nothing further; after a
//   stop it goes on where that was
// - a record that says stop says so until somebody lets it proceed
// - several parsers for one document, one after the other
// - the start values of an element's record

#include <gmock/gmock.h>

#include <type_traits>

#include "xml/XmlTest.h"

namespace
{

using testing::ElementsAre;
using testing::SizeIs;
using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

using XmlDocument = test::XmlTest;
using XmlParser = test::XmlTest;

TEST_F(XmlDocument, KeepsACopyOfItsText)
{
    std::string xml("<a>\0</a> ", 9);
    const DocumentForParsing document(xml);
    xml.clear();
    EXPECT_EQ(document.getXmlString(), std::string("<a>\0</a> ", 9));
}

TEST_F(XmlDocument, KeepsACopyOfALargeText)
{
    for (const std::size_t size : {std::size_t{32} << 20, (std::size_t{40} << 20) + 1})
    {
        std::string xml(size, 'x');
        xml.replace(size / 2, 4, "<a/>");
        const DocumentForParsing document(xml);
        EXPECT_TRUE(document.getXmlString() == xml) << size;
    }
}

TEST_F(XmlDocument, HasANameForItsRoot)
{
    EXPECT_EQ(DocumentForParsing::ROOT_ELEMENT_NAME, "xml_root_node");
}

TEST_F(XmlDocument, TakesRegistrationsAlsoWhenConstant)
{
    const DocumentForParsing document("<a/>");
    int numCalls = 0;
    test::ElementNotifier notifier([&](ElementData&) { ++numCalls; });
    document.m_startOfElementEvent.registerInterest(&notifier, 1);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_TRUE(document.m_startOfElementEvent.unregisterInterest(&notifier, 1));
    EXPECT_EQ(numCalls, 1);
}

TEST_F(XmlDocument, IsNotCopyableAndHasAVirtualDestructor)
{
    EXPECT_FALSE(std::is_copy_constructible_v<DocumentForParsing>);
    EXPECT_FALSE(std::is_copy_assignable_v<DocumentForParsing>);
    EXPECT_TRUE(std::has_virtual_destructor_v<DocumentForParsing>);
}

TEST_F(XmlParser, IsNotCopyableAndHasAVirtualDestructor)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Parser>);
    EXPECT_FALSE(std::is_copy_assignable_v<Parser>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Parser>);
}

TEST(XmlParserDeath, ANullDocumentEndsTheProcess)
{
    const test::ConfigDirectory emptyConfiguration;
    EXPECT_EXIT(Parser(nullptr), testing::ExitedWithCode(1),
                "^!ERROR: NullPtr by [^\n]*\n"
                "Generated from generic/utils/src/xml/src/Parser/[0-9]+/Parser:\n"
                "Null pointer \\(documentPtr\\) passed to Parser::Parser\\.\n$");
}

TEST_F(XmlParser, FindsNothingFurtherInASecondCall)
{
    const DocumentForParsing document("<a>x</a>");
    std::vector<std::string> paths;
    test::ElementNotifier notifier([&](ElementData& data) { paths.push_back(data.name); });
    document.m_startOfElementEvent.registerInterest(&notifier, 1);
    Parser parser(&document);
    EXPECT_TRUE(parser.parse());
    EXPECT_TRUE(parser.parse());
    EXPECT_THAT(paths, ElementsAre("a"));
}

TEST_F(XmlParser, AppendsTheRootAgainInASecondCall)
{
    const DocumentForParsing document("<a/>");
    const std::vector<std::string>* names = nullptr;
    test::ElementNotifier notifier([&](ElementData& data) { names = data.elementNames; });
    document.m_endOfElementEvent.registerInterest(&notifier, 1);
    Parser parser(&document);
    EXPECT_TRUE(parser.parse());
    ASSERT_NE(names, nullptr);
    EXPECT_THAT(*names, ElementsAre("xml_root_node"));
    EXPECT_TRUE(parser.parse());
    EXPECT_THAT(*names, ElementsAre("xml_root_node", "xml_root_node"));
}

TEST_F(XmlParser, MissesTheSameEndTagInASecondCall)
{
    const DocumentForParsing document("<a><b/>");
    Parser parser(&document);
    EXPECT_FALSE(parser.parse());
    m_errors.clear();
    EXPECT_FALSE(parser.parse());
    ASSERT_THAT(m_errors.getReports(), SizeIs(1));
    EXPECT_EQ(m_errors.getReports().front().getWords(),
              "Missing one or more end tags in XML document near offset:7");
}

TEST_F(XmlParser, GoesOnBehindAStopInASecondCall)
{
    const DocumentForParsing document("<a/><b/><c/>");
    std::vector<std::string> lines;
    const test::EventJournal journal(document,
                                     [&](const std::string& line) { lines.push_back(line); });
    const std::vector<std::string>* names = nullptr;
    bool isStopping = true;
    test::ElementNotifier stop(
        [&](ElementData& data)
        {
            names = data.elementNames;
            data.proceed = !isStopping;
        });
    document.m_leafElementEvent.registerInterest(&stop, 1);
    Parser parser(&document);
    EXPECT_FALSE(parser.parse());
    EXPECT_THAT(lines, ElementsAre("start 1 a", "leaf 1 a=''"));
    isStopping = false;
    lines.clear();
    EXPECT_FALSE(parser.parse());
    EXPECT_THAT(lines, ElementsAre("start 2 b", "leaf 2 b=''", "end 2 b", "start 2 c",
                                   "leaf 2 c=''", "end 2 c"));
    EXPECT_THAT(*names, ElementsAre("xml_root_node", "a", "xml_root_node"));
    ASSERT_THAT(m_errors.getReports(), SizeIs(1));
    EXPECT_EQ(m_errors.getReports().front().getWords(),
              "Missing one or more end tags in XML document near offset:12");
}

TEST_F(XmlParser, StopsAgainUntilTheRecordIsToldToProceed)
{
    for (const bool isAttribute : {false, true})
    {
        const DocumentForParsing document("<a x='1'/><b x='1'/>");
        std::vector<std::string> names;
        test::ElementNotifier stopOnce(
            [&](ElementData& data)
            {
                data.proceed = data.proceed && !names.empty();
                names.push_back((*data.elementNames).back());
            });
        (isAttribute ? document.m_attributeEvent : document.m_leafElementEvent)
            .registerInterest(&stopOnce, 1);
        Parser parser(&document);
        EXPECT_FALSE(parser.parse());
        EXPECT_FALSE(parser.parse());
        EXPECT_THAT(names, ElementsAre("a", "b"));
        EXPECT_THAT(m_errors.getReports(), testing::IsEmpty());
    }
}

TEST_F(XmlParser, KeepsWhatWasDoneToTheStartRecord)
{
    const DocumentForParsing document("<a/><b/>");
    std::vector<bool> proceeds;
    test::ElementNotifier notifier(
        [&](ElementData& data)
        {
            proceeds.push_back(data.proceed);
            data.proceed = false;
        });
    document.m_startOfElementEvent.registerInterest(&notifier, 1);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_THAT(proceeds, ElementsAre(true, false));
}

TEST_F(XmlParser, OfOneDocumentMayBeSeveral)
{
    const DocumentForParsing document("<a/>");
    int numCalls = 0;
    test::ElementNotifier notifier([&](ElementData&) { ++numCalls; });
    document.m_endOfElementEvent.registerInterest(&notifier, 1);
    Parser first(&document);
    Parser second(&document);
    EXPECT_TRUE(first.parse());
    EXPECT_TRUE(second.parse());
    EXPECT_EQ(numCalls, 2);
}

TEST_F(XmlParser, RecordsStartAtLevelMinusOneAndProceed)
{
    const ElementData data;
    EXPECT_EQ(data.level, -1);
    EXPECT_EQ(data.name, "");
    EXPECT_EQ(data.value, "");
    EXPECT_TRUE(data.proceed);
}

}  // namespace
