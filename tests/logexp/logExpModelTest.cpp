// Random expressions against a model that rewrites the text literally, each time from the start:
//
// - the value, or the exception, of well-formed and of malformed expressions
// - every step that is traced, so that each section is the same
// - expressions that no parse can yield, given to calculate() directly

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <utils/logexp/Flags.h>
#include <utils/logexp/LogExp.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using utils::logexp::Flags;
using utils::logexp::LogExp;
using utils::singleton::SingletonT;

using Table = std::map<std::string, bool>;

class Model
{
  public:
    explicit Model(Table table) : m_table(std::move(table)) {}

    bool evaluate(const std::string& expression)
    {
        return expression.empty() ? true : calculate(parse(expression));
    }

    std::string parse(const std::string& expression)
    {
        m_steps.push_back("    parse " + expression);
        std::string output;
        std::string pending;
        for (const char c : expression)
        {
            if (c == ' ')
            {
                continue;
            }
            if (std::string("!&|()^@").find(c) == std::string::npos)
            {
                pending += c;
                continue;
            }
            flush(pending, output);
            output += c;
        }
        flush(pending, output);
        replaceAll(output, "^", "!");
        replaceAll(output, "@", "&");
        return output;
    }

    bool calculate(std::string text)
    {
        m_steps.push_back("    calculate " + text);
        for (;;)
        {
            const std::size_t close = text.find(')');
            if (close == std::string::npos)
            {
                return calculateSection(text);
            }
            std::size_t open = 0;
            for (std::size_t i = 0; i < close; ++i)
            {
                open = text[i] == '(' ? i : open;
            }
            std::string section;
            for (std::size_t i = open + 1; i < close; ++i)
            {
                section += text[i];
            }
            text.replace(open, close - open + 1, 1, calculateSection(section) ? '1' : '0');
        }
    }

    std::vector<std::string> m_steps;

  private:
    void flush(std::string& pending, std::string& output)
    {
        if (pending.empty())
        {
            return;
        }
        m_steps.push_back("    getIdValue " + pending);
        const auto found = m_table.find(pending);
        const bool value = found == m_table.end() ? false : found->second;
        m_steps.push_back("      " + pending + (found == m_table.end() ? " not found" : " found"));
        m_steps.push_back("      " + pending + " = " + (value ? "1" : "0"));
        output += value ? '1' : '0';
        pending.clear();
    }

    bool calculateSection(std::string section)
    {
        m_steps.push_back("    calculateSection.0 " + section);
        replaceAll(section, "!0", "1");
        replaceAll(section, "!1", "0");
        bool result = section.at(0) == '1';
        for (std::size_t i = 1; i + 1 < section.size(); ++i)
        {
            if (section[i] == '&' && section[i + 1] == '0')
            {
                result = false;
            }
            if (section[i] == '|' && section[i + 1] == '1')
            {
                result = true;
            }
        }
        m_steps.push_back(std::string("      result = ") + (result ? "1" : "0"));
        return result;
    }

    // Always from the start.
    static void replaceAll(std::string& text, const std::string& what, const std::string& with)
    {
        for (std::size_t found = text.find(what); found != std::string::npos;
             found = text.find(what))
        {
            text.replace(found, what.size(), with);
        }
    }

    Table m_table;
};

class LogExpModel : public testing::Test
{
  protected:
    LogExpModel() { SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(3); }
    ~LogExpModel() override { SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(-1); }

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
        Model model(m_table);
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
            [&](Model& model) { return model.evaluate(expression); });
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
            [&](Model& model) { return model.calculate(text); }));
    }
    EXPECT_GT(m_count[0], 2000);
    EXPECT_GT(m_count[1], 1000);
    EXPECT_GT(m_count[-1], 1000);
}

}  // namespace
