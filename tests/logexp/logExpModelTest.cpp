// Random expressions against a model that rewrites the text literally, each time from the start:
//
// - the value, or the exception, of well-formed and of malformed expressions
// - every step that is traced, so that each section is the same
// - the same values when nothing is traced, with a few identifiers and with many
// - expressions that no parse can yield, given to calculate() directly

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <utils/logexp/Flags.h>
#include <utils/logexp/LogExp.h>

#include "logexp/LogExpModel.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using utils::logexp::Flags;
using utils::logexp::LogExp;
using utils::singleton::SingletonT;

using Table = std::map<std::string, bool>;

class LogExpModel : public testing::Test
{
  protected:
    LogExpModel() { setLevel(3); }
    ~LogExpModel() override { setLevel(-1); }

    static void setLevel(int level)
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(level);
    }

    std::size_t pick(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

    std::string makeText(const std::string& alphabet, std::size_t maxSize)
    {
        std::string text(pick(maxSize + 1), ' ');
        for (char& c : text)
        {
            c = alphabet[pick(alphabet.size())];
        }
        return text;
    }

    std::string makeWellFormed(int depth)
    {
        std::string text;
        const std::size_t numOperands = 1 + pick(3);
        for (std::size_t i = 0; i < numOperands; ++i)
        {
            text.append(i == 0 ? 0 : 1, "&|@"[pick(3)]);
            text.append(pick(4) == 0 ? 1 : 0, "!^"[pick(2)]);
            if (depth > 0 && pick(2) == 0)
            {
                text.append("(").append(makeWellFormed(depth - 1)).append(")");
            }
            else
            {
                text += "abc"[pick(3)];
            }
        }
        return text;
    }

    // 1, 0, or -1 for std::out_of_range.
    template <typename Function>
    static int valueOf(Function function)
    {
        try
        {
            return function() ? 1 : 0;
        }
        catch (const std::out_of_range&)
        {
            return -1;
        }
    }

    template <typename Subject, typename Reference>
    void compare(const std::string& text, Subject subject, Reference reference)
    {
        test::LogExpModel model(m_table);
        const int expected = valueOf([&] { return reference(model); });
        m_traces.clear();
        ASSERT_EQ(valueOf(subject), expected) << text;
        ASSERT_EQ(m_traces.getWords(), model.m_steps) << text;
        ++m_count[expected];
    }

    void compareEvaluations(const std::string& expression)
    {
        compare(
            expression, [&] { return LogExp::evaluate(expression, m_table); },
            [&](test::LogExpModel& model) { return model.evaluate(expression); });
        compareUntraced(expression, m_table);
    }

    static void compareUntraced(const std::string& expression, const Table& table)
    {
        test::LogExpModel model(table);
        const int expected = valueOf([&] { return model.evaluate(expression); });
        setLevel(1);
        ASSERT_EQ(valueOf([&] { return LogExp::evaluate(expression, table); }), expected)
            << expression;
        setLevel(3);
    }

    const test::ConfigDirectory m_emptyConfiguration;
    const Table m_table{{"a", true}, {"b", false}};
    test::RecordingTraceStrategy m_traces;
    std::mt19937 m_random{19480531};
    std::map<int, int> m_count;
};

TEST_F(LogExpModel, IsEqualForWellFormedExpressions)
{
    for (int i = 0; i < 5000; ++i)
    {
        ASSERT_NO_FATAL_FAILURE(compareEvaluations(makeWellFormed(4)));
    }
    EXPECT_GT(m_count[0], 1000);
    EXPECT_GT(m_count[1], 1000);
    EXPECT_EQ(m_count[-1], 0);
}

TEST_F(LogExpModel, IsEqualForMalformedExpressions)
{
    for (int i = 0; i < 20000; ++i)
    {
        ASSERT_NO_FATAL_FAILURE(compareEvaluations(makeText("ab!&|() ^@ab()", 16)));
    }
    EXPECT_GT(m_count[0], 2000);
    EXPECT_GT(m_count[1], 1000);
    EXPECT_GT(m_count[-1], 1000);
}

TEST_F(LogExpModel, IsEqualForAnythingToCalculate)
{
    for (int i = 0; i < 20000; ++i)
    {
        const std::string text = makeText("0101!!&|()x", 16);
        ASSERT_NO_FATAL_FAILURE(compare(
            text, [&] { return LogExp::calculate(text); },
            [&](test::LogExpModel& model) { return model.calculate(text); }));
    }
    EXPECT_GT(m_count[0], 2000);
    EXPECT_GT(m_count[1], 1000);
    EXPECT_GT(m_count[-1], 1000);
}

// Each identifier comes several times, in turns with others and with unknown ones.
TEST_F(LogExpModel, IsEqualForManyIdentifiers)
{
    constexpr std::size_t numIdentifiers = 500;
    Table table;
    for (std::size_t i = 0; i < numIdentifiers; ++i)
    {
        table[std::string(1 + i % 5, 'x') + std::to_string(i)] = pick(2) == 0;
    }
    for (int i = 0; i < 300; ++i)
    {
        std::string expression;
        for (std::size_t j = 0; j < 40; ++j)
        {
            const std::size_t number = pick(numIdentifiers + 50);
            expression.append(j == 0 ? "" : std::string(1, "&|"[pick(2)]));
            expression.append(pick(3) == 0 ? "!" : "");
            expression += std::string(1 + number % 5, 'x') + std::to_string(number);
        }
        ASSERT_NO_FATAL_FAILURE(compareUntraced(expression, table));
    }
}

}  // namespace
