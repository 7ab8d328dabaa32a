// Large texts: read in linear time, and on a small stack.
//
// - a million elements in each other, and one after the other
// - a million attributes in one tag
// - 64 million "<": one report, with the whole text in it
// - long names, values, comments; many comments; much white space
// - comments, instructions and document types that are never closed, after many elements
// - megabytes of NUL and of bytes that are no UTF-8
// - much white space behind a name with many delimiters

#include <gmock/gmock.h>

#include <pthread.h>

#include "support/SmallStack.h"
#include "xml/XmlTest.h"

namespace
{

using testing::IsEmpty;
using utils::error::Error;
using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

constexpr std::size_t MILLION = 1'000'000;

class XmlSize : public test::XmlTest
{
  protected:
    static std::string repeat(const std::string& text, std::size_t count)
    {
        std::string repeated;
        repeated.reserve(text.size() * count);
        for (std::size_t i = 0; i < count; ++i)
        {
            repeated += text;
        }
        return repeated;
    }

    // Parses without keeping the events.
    bool parseOnly(const std::string& xml)
    {
        const DocumentForParsing document(xml);
        test::ElementNotifier counter([this](ElementData&) { ++m_numEvents; });
        document.m_startOfElementEvent.registerInterest(&counter, 0);
        document.m_attributeEvent.registerInterest(&counter, 0);
        return Parser(&document).parse();
    }

    std::size_t m_numEvents = 0;
};

TEST_F(XmlSize, ElementsInEachOther)
{
    EXPECT_TRUE(parseOnly(repeat("<element>", MILLION) + repeat("</element>", MILLION)));
    EXPECT_EQ(m_numEvents, MILLION);
    EXPECT_FALSE(parseOnly(repeat("<a>", MILLION)));
}

TEST_F(XmlSize, ElementsOneAfterTheOther)
{
    EXPECT_TRUE(parseOnly("<a>" + repeat("<element x='1'>text</element>", MILLION) + "</a>"));
    EXPECT_EQ(m_numEvents, 2 * MILLION + 1);
}

TEST_F(XmlSize, AttributesInOneTag)
{
    EXPECT_TRUE(parseOnly("<a " + repeat("name='value' ", MILLION) + "/>"));
    EXPECT_EQ(m_numEvents, MILLION + 1);
}

TEST_F(XmlSize, NothingButLeftDelimiters)
{
    class SizeStrategy : public utils::strategy::StrategyT<Error>
    {
      public:
        SizeStrategy() : StrategyT("Error", "Size", false) {}
        bool isInterested(const Error&) override { return true; }
        void processClientObject(Error& error) override
        {
            m_size += error.getStream().view().size();
            ++m_numErrors;
        }

        std::size_t m_size = 0;
        int m_numErrors = 0;
    };
    SizeStrategy strategy;
    constexpr std::size_t size = std::size_t{64} * 1024 * 1024;
    EXPECT_FALSE(parseOnly(std::string(size, '<')));
    EXPECT_EQ(strategy.m_numErrors, 1);
    EXPECT_GT(strategy.m_size, size);
    EXPECT_LT(strategy.m_size, size + 1000);
}

TEST_F(XmlSize, NothingButRightDelimiters)
{
    EXPECT_TRUE(parseOnly(std::string(64 * MILLION, '>')));
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

TEST_F(XmlSize, LongNamesAndValues)
{
    const std::string name(10 * MILLION, 'n');
    EXPECT_TRUE(parseOnly("<" + name + " " + name + "='" + name + "'>" + name + "</" + name + ">"));
    EXPECT_EQ(m_numEvents, 2U);
}

TEST_F(XmlSize, CommentsLongAndMany)
{
    EXPECT_TRUE(parseOnly("<!--" + std::string(10 * MILLION, '-') + "-->"));
    EXPECT_TRUE(parseOnly("<a>" + repeat("<!--<b>-->", MILLION) + "</a>"));
    EXPECT_TRUE(parseOnly("<!--" + repeat("--", MILLION) + "<a/>"));
    EXPECT_TRUE(parseOnly(repeat("<?", MILLION)));
}

TEST_F(XmlSize, MarkupThatIsNeverClosed)
{
    const std::string elements = repeat("<a/>", MILLION);
    for (const char* const open : {"<!--", "<?", "<!DOCTYPE"})
    {
        m_numEvents = 0;
        EXPECT_TRUE(parseOnly(elements + repeat(std::string(open) + "<a/", MILLION)));
        EXPECT_EQ(m_numEvents, MILLION);
    }
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

TEST_F(XmlSize, AnyBytes)
{
    for (const char byte : {'\0', '\x80', '\xFF'})
    {
        m_numEvents = 0;
        const std::string bytes(10 * MILLION, byte);
        EXPECT_TRUE(parseOnly(bytes + "<" + bytes + " " + bytes + "='" + bytes + "'>" + bytes +
                              "</" + bytes + ">" + bytes));
        EXPECT_EQ(m_numEvents, 2U);
    }
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

TEST_F(XmlSize, MuchWhiteSpace)
{
    const std::string white(10 * MILLION, ' ');
    EXPECT_TRUE(parseOnly("<" + white + "a" + white + "x" + white + "=" + white + "'1'" + white +
                          ">" + white + "<b/>" + white + "</a" + white + ">" + white));
    EXPECT_EQ(m_numEvents, 3U);
}

TEST_F(XmlSize, MuchWhiteSpaceBehindANameOfDelimiters)
{
    const std::string delimiters(20'000, '\'');
    EXPECT_TRUE(parseOnly("<a " + delimiters + "x" + std::string(10 * MILLION, ' ') + "='1'/>"));
    EXPECT_EQ(m_numEvents, 10'002U);
}

void* parseDeepNesting(void* result)
{
    std::string xml;
    for (std::size_t i = 0; i < MILLION; ++i)
    {
        xml += "<a>";
    }
    for (std::size_t i = 0; i < MILLION; ++i)
    {
        xml += "</a>";
    }
    const DocumentForParsing document(xml);
    *static_cast<bool*>(result) = Parser(&document).parse();
    return nullptr;
}

TEST_F(XmlSize, DeepNestingNeedsLittleStack)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, test::smallStackSize()), 0);
    bool result = false;
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, parseDeepNesting, &result), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(result);
}

}  // namespace
