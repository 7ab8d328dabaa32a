// Values of logical expressions.
//
// - identifiers, operators in both spellings, blanks, parentheses
// - "&" and "|" from left to right with equal precedence
// - identifiers: all characters that are not operators, blanks in between dropped; unknown ones
// - what identifiers are rewritten to, and a section's value
// - negations: two passes a section, not reduced any further
// - the digit of a section joins its neighbours
// - malformed expressions have values; sections that were never opened, or never closed
// - empty sections: std::out_of_range
// - deep and long expressions, in linear time and on a small stack

#include <gtest/gtest.h>

#include <pthread.h>

#include <map>
#include <stdexcept>
#include <string>

#include <utils/logexp/LogExp.h>

#include "support/ConfigDirectory.h"
#include "support/SmallStack.h"

namespace
{

using utils::logexp::LogExp;

class LogExpTest : public testing::Test
{
  protected:
    bool evaluate(const std::string& expression) const
    {
        return LogExp::evaluate(expression, m_table);
    }

    std::string parse(const std::string& expression) const
    {
        return LogExp::parse(expression, m_table);
    }

    const test::ConfigDirectory m_emptyConfiguration;
    const std::map<std::string, bool> m_table{{"a", true}, {"b", false}, {"ab", true}, {"0", true}};
};

TEST_F(LogExpTest, AnEmptyExpressionIsTrue)
{
    EXPECT_TRUE(evaluate(""));
    EXPECT_TRUE(LogExp::evaluate("", {}));
}

TEST_F(LogExpTest, AnIdentifierHasItsValue)
{
    EXPECT_TRUE(evaluate("a"));
    EXPECT_FALSE(evaluate("b"));
}

TEST_F(LogExpTest, AndNeedsBothOrNeedsOne)
{
    EXPECT_TRUE(evaluate("a&a"));
    EXPECT_FALSE(evaluate("a&b"));
    EXPECT_FALSE(evaluate("b&a"));
    EXPECT_FALSE(evaluate("b&b"));
    EXPECT_TRUE(evaluate("a|a"));
    EXPECT_TRUE(evaluate("a|b"));
    EXPECT_TRUE(evaluate("b|a"));
    EXPECT_FALSE(evaluate("b|b"));
}

TEST_F(LogExpTest, NotTurnsRound)
{
    EXPECT_TRUE(evaluate("!b"));
    EXPECT_FALSE(evaluate("!a"));
    EXPECT_TRUE(evaluate("a&!b"));
    EXPECT_TRUE(evaluate("!b|b"));
}

TEST_F(LogExpTest, TheOtherSpellingsMeanTheSame)
{
    EXPECT_TRUE(evaluate("^b"));
    EXPECT_FALSE(evaluate("^a"));
    EXPECT_TRUE(evaluate("a@!b"));
    EXPECT_FALSE(evaluate("a@b"));
    EXPECT_TRUE(evaluate("a@^b"));
}

TEST_F(LogExpTest, ParenthesesGoFirst)
{
    EXPECT_TRUE(evaluate("(a|b)&!(b)"));
    EXPECT_TRUE(evaluate("a|(b&a)"));
    EXPECT_TRUE(evaluate("a|(a&b)"));
    EXPECT_FALSE(evaluate("(a|a)&b"));
    EXPECT_FALSE(evaluate("a&(b|(a&(b|b)))"));
    EXPECT_TRUE(evaluate("((((a))))"));
}

TEST_F(LogExpTest, AndAndOrHaveEqualPrecedence)
{
    EXPECT_FALSE(evaluate("b|a&b"));
    EXPECT_FALSE(evaluate("a|b&b"));
    EXPECT_TRUE(evaluate("b&b|a"));
    EXPECT_TRUE(evaluate("b&a|a&a"));
}

TEST_F(LogExpTest, ANegatedSectionIsReducedBeforeItsNegation)
{
    EXPECT_FALSE(evaluate("!(a)"));
    EXPECT_TRUE(evaluate("!(b)"));
    EXPECT_TRUE(evaluate("!(a&b)"));
}

TEST_F(LogExpTest, BlanksAreDropped)
{
    EXPECT_TRUE(evaluate(" a | b "));
    EXPECT_TRUE(evaluate("! b"));
    EXPECT_TRUE(evaluate("( a ) & ! ( b )"));
}

TEST_F(LogExpTest, BlanksDoNotEndAnIdentifier)
{
    EXPECT_EQ(parse("a b"), "1");
    EXPECT_EQ(parse("b a"), "0");
    EXPECT_EQ(parse("  a  b  "), "1");
}

TEST_F(LogExpTest, OnlyBlanksAreDropped)
{
    EXPECT_EQ(parse("a\t"), "0");
    EXPECT_EQ(parse("a\n&a"), "0&1");
}

TEST_F(LogExpTest, UnknownIdentifiersAreFalse)
{
    EXPECT_FALSE(evaluate("c"));
    EXPECT_TRUE(evaluate("!c"));
    EXPECT_FALSE(evaluate("A"));
}

TEST_F(LogExpTest, DigitsAreIdentifiers)
{
    EXPECT_TRUE(evaluate("0"));
    EXPECT_FALSE(evaluate("1"));
    EXPECT_FALSE(evaluate("01"));
}

TEST_F(LogExpTest, AnyOtherCharacterBelongsToAnIdentifier)
{
    const std::map<std::string, bool> table{
        {"x.y-z[1]\xC3\xA9", true}, {std::string("n\0l", 3), true}, {"n", false}};
    EXPECT_TRUE(LogExp::evaluate("x.y-z[1]\xC3\xA9", table));
    EXPECT_TRUE(LogExp::evaluate(std::string("n\0l", 3), table));
    EXPECT_FALSE(LogExp::evaluate("n", table));
    EXPECT_EQ(LogExp::parse(std::string("\0", 1), table), "0");
}

TEST_F(LogExpTest, IsParsedIntoDigitsAndOperators)
{
    EXPECT_EQ(parse("(a @ ^b) | !(c & ab)"), "(1&!0)|!(0&1)");
    EXPECT_EQ(parse("^^@@!!&&||(("), "!!&&!!&&||((");
    EXPECT_EQ(parse(""), "");
    EXPECT_EQ(parse("   "), "");
}

TEST_F(LogExpTest, LooksIdentifiersUp)
{
    EXPECT_TRUE(LogExp::getIdValue("a", m_table));
    EXPECT_FALSE(LogExp::getIdValue("b", m_table));
    EXPECT_FALSE(LogExp::getIdValue("c", m_table));
    EXPECT_FALSE(LogExp::getIdValue("", m_table));
}

TEST_F(LogExpTest, CalculatesWhatIsParsedAlready)
{
    EXPECT_TRUE(LogExp::calculate("(1|0)&1"));
    EXPECT_FALSE(LogExp::calculate("(1|0)&0"));
    EXPECT_TRUE(LogExp::calculateSection("1&1", 7));
    EXPECT_FALSE(LogExp::calculateSection("1&1&0", 0));
}

TEST_F(LogExpTest, ADoubleNegationIsNotReducedAnyFurther)
{
    EXPECT_FALSE(evaluate("!!a"));  // "!!1", "!0"
    EXPECT_FALSE(evaluate("!!b"));  // "!!0", "!1", "0"
    EXPECT_FALSE(evaluate("!!!a"));
    EXPECT_FALSE(evaluate("!!!b"));  // "!!1", "!0"
    EXPECT_FALSE(evaluate("a&!!b"));
    EXPECT_TRUE(evaluate("a&!!a"));  // "1&!0": what follows "&" is "!"
}

TEST_F(LogExpTest, ASectionIsNegatedAfterItsOwnPasses)
{
    EXPECT_TRUE(evaluate("!(!a)"));
    EXPECT_FALSE(evaluate("!(!b)"));
    EXPECT_TRUE(evaluate("!(!(!b))|b"));
    EXPECT_FALSE(evaluate("!(!!a)&b"));
    EXPECT_TRUE(evaluate("!(!!a)"));
}

TEST_F(LogExpTest, TheDigitOfASectionJoinsItsNeighbours)
{
    EXPECT_TRUE(evaluate("a(b)"));       // "10"
    EXPECT_FALSE(evaluate("(b)(a)"));    // "01"
    EXPECT_FALSE(evaluate("(b)a|b"));    // "01|0"
    EXPECT_FALSE(evaluate("a&(b)(a)"));  // "1&01"
    EXPECT_TRUE(evaluate("a&(a)(b)"));   // "1&10"
    EXPECT_TRUE(evaluate("!(b)(b)"));    // "!00", "10"
}

TEST_F(LogExpTest, StrayOperatorsArePassedOver)
{
    EXPECT_TRUE(evaluate("a&"));
    EXPECT_TRUE(evaluate("a|"));
    EXPECT_TRUE(evaluate("a!"));
    EXPECT_FALSE(evaluate("&a"));
    EXPECT_FALSE(evaluate("|a"));  // nothing comes before the first character
    EXPECT_FALSE(evaluate("!"));
    EXPECT_FALSE(evaluate("&"));
    EXPECT_TRUE(evaluate("a&&b|a"));
    EXPECT_FALSE(evaluate("a&|b&b"));
    EXPECT_TRUE(evaluate("a|&a"));
}

TEST_F(LogExpTest, ASectionThatIsNeverClosedStaysInTheText)
{
    EXPECT_FALSE(evaluate("(a"));
    EXPECT_TRUE(evaluate("(b|a"));
    EXPECT_TRUE(evaluate("a&(b"));
    EXPECT_FALSE(evaluate("a&((b)&b"));
    EXPECT_FALSE(evaluate("("));
    EXPECT_TRUE(evaluate("((a)|a"));
}

TEST_F(LogExpTest, ASectionThatWasNeverOpenedBeginsBehindTheFirstCharacter)
{
    EXPECT_FALSE(evaluate("a&b)"));         // "&0"
    EXPECT_FALSE(evaluate("a|a)"));         // "|1"
    EXPECT_TRUE(evaluate("!a)"));           // "1"
    EXPECT_TRUE(evaluate("(b)(a))"));       // "01": "1"
    EXPECT_FALSE(evaluate("a&a)|b)&a|b"));  // "&1": "0|0": "|0": "0&1|0"
}

TEST_F(LogExpTest, AnEmptySectionIsOutOfRange)
{
    EXPECT_THROW(evaluate("()"), std::out_of_range);
    EXPECT_THROW(evaluate("a&()"), std::out_of_range);
    EXPECT_THROW(evaluate("( )"), std::out_of_range);
    EXPECT_THROW(evaluate("(a)&(())"), std::out_of_range);
    EXPECT_THROW(LogExp::calculateSection("", 0), std::out_of_range);
}

TEST_F(LogExpTest, AnExpressionOfBlanksIsOutOfRange)
{
    EXPECT_THROW(evaluate(" "), std::out_of_range);
    EXPECT_THROW(LogExp::calculate(""), std::out_of_range);
}

TEST_F(LogExpTest, NothingBehindTheFirstCharacterIsOutOfRange)
{
    EXPECT_THROW(evaluate(")"), std::out_of_range);
    EXPECT_THROW(evaluate(")a"), std::out_of_range);
    EXPECT_THROW(evaluate("a)"), std::out_of_range);
    EXPECT_THROW(evaluate("(a))"), std::out_of_range);
}

TEST_F(LogExpTest, LongExpressionsTakeLinearTime)
{
    std::string chain = "a";
    std::string sections = "a";
    for (int i = 0; i < 1'000'000; ++i)
    {
        chain += "&!b|b";
        sections += "&(a|b)";
    }
    EXPECT_TRUE(evaluate(chain));
    EXPECT_FALSE(evaluate(chain + "&b"));
    EXPECT_TRUE(evaluate(sections));
    EXPECT_FALSE(evaluate(std::string(10'000'000, '!') + "a"));
    EXPECT_FALSE(evaluate(std::string(10'000'000, 'a')));
    EXPECT_FALSE(evaluate(std::string(10'000'000, '(')));
    EXPECT_THROW(evaluate(std::string(10'000'000, ')')), std::out_of_range);
}

TEST_F(LogExpTest, SectionsThatWereNeverOpenedTakeLinearTime)
{
    std::string expression;
    for (int i = 0; i < 1'000'000; ++i)
    {
        expression += "a|a)";
    }
    EXPECT_TRUE(evaluate(expression + "|a"));
}

void* evaluateDeepNesting(void* result)
{
    constexpr std::size_t depth = 1'000'000;
    std::string expression;
    for (std::size_t i = 0; i < depth; ++i)
    {
        expression += "!(";
    }
    expression += "a" + std::string(depth, ')');
    *static_cast<bool*>(result) = LogExp::evaluate(expression, {{"a", true}});
    return nullptr;
}

TEST_F(LogExpTest, DeepNestingNeedsLittleStack)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, test::smallStackSize()), 0);
    bool result = false;
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, evaluateDeepNesting, &result), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(result);
}

}  // namespace
