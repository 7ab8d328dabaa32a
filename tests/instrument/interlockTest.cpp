// Interlocks:
// - trip when their expression over the states is true, with all operators that the library knows
// - are named in the order of the configuration
// - switch the output off when they trip, and forbid it while they do; it stays off afterwards
// The check of an expression tells what the library would pass over.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "core/Output.h"
#include "core/checkExpression.h"
#include "support/ConfigDirectory.h"

using instrument::checkExpression;
using instrument::Interlocks;
using instrument::Output;
using instrument::StateConfiguration;
using test::ConfigDirectory;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const std::vector<StateConfiguration> STATES = {{"a", true}, {"b", false}};

}  // namespace

TEST(InstrumentInterlocks, TripWhenTheirExpressionIsTrue)
{
    const ConfigDirectory flags;
    const Interlocks interlocks(STATES, {{"plain", "a"},
                                         {"no", "b"},
                                         {"not", "!b"},
                                         {"and", "a & b"},
                                         {"or", "b | a"},
                                         {"other signs", "a @ ^b"},
                                         {"parentheses", "!(a & (b | a))"}});
    EXPECT_THAT(interlocks.findTripped(), ElementsAre("plain", "not", "or", "other signs"));
}

TEST(InstrumentInterlocks, KnowTheirStates)
{
    const ConfigDirectory flags;
    Interlocks interlocks(STATES, {});
    EXPECT_THAT(interlocks.getStateNames(), ElementsAre("a", "b"));
    EXPECT_EQ(interlocks.getState("a"), true);
    EXPECT_EQ(interlocks.getState("c"), std::nullopt);
    EXPECT_TRUE(interlocks.setState("a", false));
    EXPECT_EQ(interlocks.getState("a"), false);
    EXPECT_FALSE(interlocks.setState("c", true));
}

TEST(InstrumentOutput, IsSwitchedOffWhenAnInterlockTrips)
{
    const ConfigDirectory flags;
    Interlocks interlocks(STATES, {{"guard", "b"}});
    Output output(interlocks);
    EXPECT_FALSE(output.isOn());
    EXPECT_TRUE(output.switchOn());
    EXPECT_TRUE(output.isOn());

    interlocks.setState("b", true);
    EXPECT_FALSE(output.isOn());
    EXPECT_FALSE(output.switchOn());
    EXPECT_FALSE(output.isOn());

    interlocks.setState("b", false);
    EXPECT_THAT(interlocks.findTripped(), IsEmpty());
    EXPECT_FALSE(output.isOn());
    EXPECT_TRUE(output.switchOn());
}

TEST(InstrumentOutput, StaysOnWhenAStateChangesThatDoesNotMatter)
{
    const ConfigDirectory flags;
    Interlocks interlocks(STATES, {{"guard", "b"}});
    Output output(interlocks);
    output.switchOn();
    interlocks.setState("a", false);
    EXPECT_TRUE(output.isOn());
}

TEST(InstrumentExpression, IsGood)
{
    for (const char* const expression :
         {"a", " a ", "!a", "^a&b", "a|b|a", "a&(b|!a)", "((a))", "!(!a)", "(a@b)|(b@a)"})
    {
        EXPECT_EQ(checkExpression(expression, STATES), "") << expression;
    }
}

namespace
{

struct Case
{
    const char* name;
    const char* expression;
    const char* problem;
};

// For the name of the test.
void PrintTo(const Case& which, std::ostream* os)
{
    *os << which.name;
}

}  // namespace

class InstrumentExpressionProblem : public testing::TestWithParam<Case>
{
};

TEST_P(InstrumentExpressionProblem, IsTold)
{
    EXPECT_EQ(checkExpression(GetParam().expression, STATES), GetParam().problem);
}

INSTANTIATE_TEST_SUITE_P(
    All, InstrumentExpressionProblem,
    testing::Values(Case{"Nothing", "", "an operand is missing at its end"},
                    Case{"NothingBehindAnd", "a&", "an operand is missing at its end"},
                    Case{"NothingBehindNot", "!", "an operand is missing at its end"},
                    Case{"NothingBeforeAnd", "&a", "an operand is missing before '&'"},
                    Case{"TwoOperators", "a||b", "an operand is missing before '|'"},
                    Case{"EmptyParentheses", "()", "an operand is missing before ')'"},
                    Case{"OpenParenthesis", "(a", "')' is missing"},
                    Case{"ClosingParenthesis", "a)", "'(' is missing"},
                    Case{"TwoNames", "a b", "an operator is missing before 'b'"},
                    Case{"NotBehindAName", "a!b", "an operator is missing before '!'"},
                    Case{"ParenthesisBehindAName", "a(b)", "an operator is missing before '('"},
                    Case{"TwoNegations", "!!a", "two negations in a row"},
                    Case{"TwoOtherNegations", "!^a", "two negations in a row"},
                    Case{"Mixture", "a&b|a", "'&' and '|' are mixed without parentheses"},
                    Case{"Digit", "a|1", "state '1' is not known"},
                    Case{"OtherLetterCase", "A", "state 'A' is not known"}));
