// Logical expressions: from the text to the value.

#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

#include <muParser.h>
#include <utils/logexp/LogExp.h>
#include <lua.hpp>

namespace bench
{

namespace
{

using utils::logexp::LogExp;

const std::map<std::string, bool> TABLE{
    {"ready", true},     {"locked", false}, {"overload", false}, {"tempOk", true},
    {"reference", true}, {"cal", false},    {"remote", true},    {"armed", true},
    {"sweeping", false}, {"settled", true}, {"uncal", false},    {"fanFail", false},
    {"doorOpen", false}, {"powerOn", true}, {"selfTest", false}, {"option1", true}};

// How a language spells the operators.
struct Spelling
{
    std::string_view notWord;
    std::string_view andWord;
    std::string_view orWord;
};

constexpr Spelling OURS{"!", "&", "|"};
constexpr Spelling LUA{"not ", " and ", " or "};
constexpr Spelling MU_PARSER{"!", "&&", "||"};

/// One random expression, in a language's spelling. Two operands each, every pair in parentheses,
/// so that precedence does not matter, and nested no deeper than a balanced tree.
class Writer
{
  public:
    Writer(const Spelling& spelling, std::size_t numOperands) : m_spelling(spelling)
    {
        writeSides(numOperands);
    }

    const std::string& getText() const { return m_text; }

  private:
    void writeSides(std::size_t numOperands)
    {
        if (numOperands < 2)
        {
            writeOperand();
            return;
        }
        writeSide(numOperands / 2);
        m_text += pick(2) == 0 ? m_spelling.andWord : m_spelling.orWord;
        writeSide(numOperands - numOperands / 2);
    }

    void writeSide(std::size_t numOperands)
    {
        if (numOperands < 2)
        {
            writeOperand();
            return;
        }
        m_text += '(';
        writeSides(numOperands);
        m_text += ')';
    }

    void writeOperand()
    {
        if (pick(3) == 0)
        {
            m_text += m_spelling.notWord;
        }
        m_text += std::next(TABLE.begin(), static_cast<std::ptrdiff_t>(pick(TABLE.size())))->first;
    }

    std::size_t pick(std::size_t count) { return m_random() % count; }

    Spelling m_spelling;
    std::mt19937 m_random{20260101};
    std::string m_text;
};

// As many operands as come close to a length in our spelling.
std::size_t toNumOperands(std::int64_t length)
{
    constexpr std::int64_t LENGTH_OF_OPERAND = 10;  // with its operator and half its parentheses
    return static_cast<std::size_t>(std::max<std::int64_t>(length / LENGTH_OF_OPERAND, 1));
}

// ---- Ours and the peers, as classes of one shape ----

class UtilsLogExp
{
  public:
    static constexpr Spelling SPELLING = OURS;

    static bool evaluate(const std::string& expression)
    {
        return LogExp::evaluate(expression, TABLE);
    }
};

class Lua
{
  public:
    static constexpr Spelling SPELLING = LUA;

    Lua() : m_state(luaL_newstate())
    {
        for (const auto& [name, value] : TABLE)
        {
            lua_pushboolean(m_state, value ? 1 : 0);
            lua_setglobal(m_state, name.c_str());
        }
    }
    ~Lua() { lua_close(m_state); }

    Lua(const Lua&) = delete;
    Lua& operator=(const Lua&) = delete;

    bool evaluate(const std::string& expression)
    {
        m_chunk.assign("return ").append(expression);
        if (luaL_loadbuffer(m_state, m_chunk.data(), m_chunk.size(), "") != LUA_OK ||
            lua_pcall(m_state, 0, 1, 0) != LUA_OK)
        {
            throw std::runtime_error(lua_tostring(m_state, -1));
        }
        const bool value = lua_toboolean(m_state, -1) != 0;
        lua_settop(m_state, 0);
        return value;
    }

  private:
    lua_State* m_state;
    std::string m_chunk;
};

class MuParser
{
  public:
    static constexpr Spelling SPELLING = MU_PARSER;

    MuParser()
    {
        for (const auto& [name, value] : TABLE)
        {
            m_parser.DefineConst(name, value ? 1 : 0);
        }
        m_parser.DefineInfixOprt("!", [](double value) { return value == 0 ? 1.0 : 0.0; });
    }

    bool evaluate(const std::string& expression)
    {
        m_parser.SetExpr(expression);
        return m_parser.Eval() != 0;
    }

  private:
    mu::Parser m_parser;
};

// ---- Measurement ----

bool isEqualToOurs(const std::string& expression, std::size_t numOperands, bool value)
{
    return Writer(OURS, numOperands).getText().size() <= expression.size() &&
           value == LogExp::evaluate(Writer(OURS, numOperands).getText(), TABLE);
}

// Per byte of the expression in our spelling.
template <typename Language>
void evaluate(benchmark::State& state)
{
    const std::size_t numOperands = toNumOperands(state.range(0));
    const std::string expression = Writer(Language::SPELLING, numOperands).getText();
    Language language;
    bool value = false;
    try
    {
        for (auto _ : state)
        {
            value = language.evaluate(expression);
            benchmark::DoNotOptimize(value);
        }
    }
    catch (const std::exception& failure)
    {
        state.SkipWithError(failure.what());
    }
    catch (const mu::ParserError& failure)
    {
        state.SkipWithError(failure.GetMsg().c_str());
    }
    if (!isEqualToOurs(expression, numOperands, value))
    {
        state.SkipWithError("a wrong value");
    }
    const std::size_t size = Writer(OURS, numOperands).getText().size();
    state.counters["length"] = static_cast<double>(size);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

// Nested so deeply that no peer accepts it; per level.
void evaluateNested(benchmark::State& state)
{
    const auto depth = static_cast<std::size_t>(state.range(0));
    std::string expression;
    for (std::size_t i = 0; i < depth; ++i)
    {
        expression += "!(";
    }
    expression += "ready" + std::string(depth, ')');
    for (auto _ : state)
    {
        if (!LogExp::evaluate(expression, TABLE))
        {
            state.SkipWithError("a wrong value");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <typename Language>
void registerLanguage(const char* name, std::int64_t longest)
{
    auto* const benchmark = benchmark::RegisterBenchmark(name, evaluate<Language>);
    for (const std::int64_t length : {50, 200})
    {
        benchmark->Arg(length);
    }
    for (std::int64_t length = 1024; length <= longest; length *= 2)
    {
        benchmark->Arg(length);
    }
}

[[maybe_unused]] const bool isRegistered = []
{
    registerLanguage<UtilsLogExp>("evaluate/utils_LogExp", 1 << 20);
    registerLanguage<Lua>("evaluate/lua", 1 << 20);
    registerLanguage<MuParser>("evaluate/muparser", 1 << 14);
    benchmark::RegisterBenchmark("nested/utils_LogExp", evaluateNested)->Arg(1'000'000);
    return true;
}();

}  // namespace

}  // namespace bench
