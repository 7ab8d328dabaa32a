// Letter case is that of the global locale at the time of each call.
//
// - the character helpers, the forms and the comparison follow the locale's facet
// - a locale that was combined with the classic one, and calls itself equal, governs as well
// - a change of the global locale shows at the next call, also that back to the classic one
// - in the classic locale, and in another one, every character is what the facet says
// - a facet whose upper and lower case do not correspond cannot make a comparison endless

#include <gtest/gtest.h>

#include <locale>
#include <string>

#include <utils/scpi/ScpiString.h>

#include "support/ConfigDirectory.h"

namespace
{

using utils::scpi::ScpiString;

// Beside the usual letters, '{' and '[' are one letter, lower and upper case.
class BracketLetters : public std::ctype<char>
{
  public:
    BracketLetters() : ctype(makeTable()) {}

  protected:
    char do_tolower(char c) const override { return c == '[' ? '{' : ctype::do_tolower(c); }
    char do_toupper(char c) const override { return c == '{' ? '[' : ctype::do_toupper(c); }

  private:
    static const mask* makeTable()
    {
        static mask table[table_size];
        for (std::size_t i = 0; i < table_size; ++i)
        {
            table[i] = classic_table()[i];
        }
        table[static_cast<unsigned char>('{')] = lower | alpha;
        table[static_cast<unsigned char>('[')] = upper | alpha;
        return table;
    }
};

// Every letter has the same lower case, but no character is that or its own upper case.
class LostLetters : public std::ctype<char>
{
  protected:
    char do_tolower(char) const override { return '1'; }
    char do_toupper(char) const override { return '2'; }
};

class ScpiLocale : public testing::Test
{
  protected:
    ~ScpiLocale() override { std::locale::global(m_original); }

    static void use(std::ctype<char>* facet)
    {
        std::locale::global(std::locale(std::locale::classic(), facet));
    }

    const test::ConfigDirectory m_emptyConfiguration;
    const std::locale m_original;
};

TEST_F(ScpiLocale, GovernsTheCharacterHelpers)
{
    EXPECT_FALSE(ScpiString::isLower('{'));
    EXPECT_EQ(ScpiString::toUpper('{'), '{');
    EXPECT_EQ(ScpiString::toLower('['), '[');
    use(new BracketLetters);
    EXPECT_TRUE(ScpiString::isLower('{'));
    EXPECT_EQ(ScpiString::toUpper('{'), '[');
    EXPECT_EQ(ScpiString::toLower('['), '{');
}

TEST_F(ScpiLocale, GovernsWhenItIsCombinedWithTheClassicOne)
{
    const std::locale owner(std::locale::classic(), new BracketLetters);
    std::locale::global(std::locale::classic().combine<std::ctype<char>>(owner));
    EXPECT_TRUE(ScpiString::isLower('{'));
    EXPECT_EQ(ScpiString::toUpper('{'), '[');
    EXPECT_EQ(ScpiString::toLower('['), '{');
    EXPECT_EQ(ScpiString("fre{").getLongName(), "FRE[");
    EXPECT_TRUE(ScpiString("fre{").isCompliant("FRE{"));
}

TEST_F(ScpiLocale, GovernsTheForms)
{
    EXPECT_EQ(ScpiString("{abcd[x").getLongName(), "{ABCd[x");
    use(new BracketLetters);
    EXPECT_EQ(ScpiString("{abcd[x").getLongName(), "[ABCd{x");
    EXPECT_EQ(ScpiString("{abcd[x").getShortName(), "[ABC");
}

TEST_F(ScpiLocale, GovernsTheComparisonAtEveryCall)
{
    const ScpiString command("[abc[def");
    EXPECT_FALSE(command.isCompliant("{abc[def"));
    EXPECT_TRUE(command.isCompliant("[abc[def"));
    use(new BracketLetters);
    EXPECT_TRUE(command.isCompliant("{abc{def"));
    EXPECT_EQ(ScpiString("[abc[def").getLongName(), "[ABC{def");
    EXPECT_TRUE(ScpiString("[abc[def").isCompliant("{abc[def"));
}

TEST_F(ScpiLocale, GovernsAgainWhenItIsTheClassicOne)
{
    const ScpiString command("[abc[def");
    use(new BracketLetters);
    EXPECT_TRUE(command.isCompliant("{abc{def"));
    std::locale::global(std::locale::classic());
    EXPECT_FALSE(command.isCompliant("{abc{def"));
    EXPECT_EQ(ScpiString("{abcd[x").getLongName(), "{ABCd[x");
}

TEST_F(ScpiLocale, GovernsEveryCharacter)
{
    const auto expectFacet = []
    {
        const std::locale locale;
        const auto& facet = std::use_facet<std::ctype<char>>(locale);
        for (int code = 0; code < 256; ++code)
        {
            const char character = static_cast<char>(code);
            EXPECT_EQ(ScpiString::isLower(character), facet.is(std::ctype_base::lower, character));
            EXPECT_EQ(ScpiString::toLower(character), facet.tolower(character)) << code;
            EXPECT_EQ(ScpiString::toUpper(character), facet.toupper(character)) << code;
        }
    };
    expectFacet();
    use(new BracketLetters);
    expectFacet();
}

TEST_F(ScpiLocale, MayBeInconsistentWithoutEndlessComparison)
{
    const ScpiString command("abc:def");
    use(new LostLetters);
    EXPECT_FALSE(command.isCompliant("abc:def"));
    EXPECT_FALSE(command.isCompliant(":"));
}

}  // namespace
