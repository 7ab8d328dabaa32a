// Random texts against a model that takes the rules literally: the result and, in one order, all
// that is traced, raised and reported.
//
// - arbitrary sequences of characters that mean something
// - well-formed documents
// - well-formed documents with a few characters changed

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "support/ConfigDirectory.h"
#include "xml/ParserJournal.h"
#include "xml/ParserModel.h"

namespace
{

class XmlModel : public testing::Test
{
  protected:
    std::size_t pick(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

    template <std::size_t size>
    std::string pickFrom(const char* const (&choices)[size])
    {
        return choices[pick(size)];
    }

    std::string makeText(std::size_t maxPieces)
    {
        static const char* const pieces[] = {"<",   ">",    "/",   "<",         ">",   "/",  " ",
                                             "=",   "'",    "\"",  "a",         "b",   "\n", "</",
                                             "/>",  "<!--", "-->", "<!DOCTYPE", "<?",  "?>", "-",
                                             "<a>", "</a>", "x='", "<b ",       "='1'"};
        std::string text;
        for (std::size_t count = pick(maxPieces + 1); count > 0; --count)
        {
            text += pick(50) == 0 ? std::string(1, '\0') : pickFrom(pieces);
        }
        return text;
    }

    std::string makeWhite() { return pickFrom({"", "", "", " ", "\n", "\t \r"}); }

    std::string makeElement(int depth)
    {
        const std::string name = pickFrom({"a", "b", "long-element-name"});
        std::string text = "<" + makeWhite() + name;
        for (std::size_t count = pick(3); count > 0; --count)
        {
            text += " " + makeWhite();
            text += pickFrom({"x", "yy", "z-z"}) + makeWhite();
            text += "=" + makeWhite();
            text += pickFrom({"''", "\"\"", "'1'", "\"it's\"", "' \"2\" '", "'/'"}) + makeWhite();
        }
        text += makeWhite();
        if (pick(4) == 0)
        {
            return text + "/>" + makeWhite();
        }
        text += ">" + makeWhite();
        for (std::size_t count = depth > 0 ? pick(4) : 0; count > 0; --count)
        {
            text += pick(4) == 0 ? pickFrom({"text", "two words", "<!--c-->", "<?p?>", "&amp;"})
                                 : makeElement(depth - 1);
        }
        text += pickFrom({"", "", "t", " text "}) + "</" + makeWhite();
        text += name + makeWhite();
        return text + ">" + makeWhite();
    }

    void compare(const std::string& text)
    {
        test::ParserModel model(text);
        const bool expected = model.parse();

        const bool result = m_journal.parse(text);
        ASSERT_EQ(result, expected) << text;
        ASSERT_EQ(m_journal.getLines(), model.m_journal) << text;
        ++m_numResults[result];
    }

    const test::ConfigDirectory m_emptyConfiguration;
    std::mt19937 m_random{19980210};
    test::ParserJournal m_journal;
    std::map<bool, int> m_numResults;
};

TEST_F(XmlModel, IsEqualForArbitraryTexts)
{
    for (int i = 0; i < 30000; ++i)
    {
        ASSERT_NO_FATAL_FAILURE(compare(makeText(12)));
    }
    EXPECT_GT(m_numResults[true], 1000);
    EXPECT_GT(m_numResults[false], 10000);
}

TEST_F(XmlModel, IsEqualForWellFormedDocuments)
{
    for (int i = 0; i < 2000; ++i)
    {
        ASSERT_NO_FATAL_FAILURE(compare(makeElement(4)));
    }
    EXPECT_EQ(m_numResults[false], 0);
}

TEST_F(XmlModel, IsEqualForDocumentsWithFaults)
{
    for (int i = 0; i < 5000; ++i)
    {
        std::string text = makeElement(3);
        for (std::size_t count = 1 + pick(3); count > 0; --count)
        {
            text.replace(pick(text.size()), pick(2), makeText(1));
        }
        ASSERT_NO_FATAL_FAILURE(compare(text));
    }
    EXPECT_GT(m_numResults[true], 500);
    EXPECT_GT(m_numResults[false], 1000);
}

}  // namespace
