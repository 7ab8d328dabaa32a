// Logical expressions. The first byte of an input says which of the identifiers a, b, c and d are
// true, the rest is the expression:
//
// - the value, or the exception, and every traced step are those of the literal model; the same for
//   the bare text given to calculate()
// - blanks and the other spellings of operators change nothing

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>

#include <utils/logexp/Flags.h>
#include <utils/logexp/LogExp.h>

#include "logexp/LogExpModel.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"
#include "target.h"

namespace
{

using utils::logexp::LogExp;
using utils::singleton::SingletonT;

using Table = std::map<std::string, bool>;

struct Setting
{
    Setting() { SingletonT<utils::logexp::Flags>::getInstancePtr()->m_traceSteps.setValue(3); }

    const test::ConfigDirectory emptyConfiguration;
    test::RecordingTraceStrategy traces;
};

enum class Outcome
{
    NO,
    YES,
    OUT_OF_RANGE
};

template <typename Function>
Outcome outcomeOf(Function function)
{
    try
    {
        return function() ? Outcome::YES : Outcome::NO;
    }
    catch (const std::out_of_range&)
    {
        return Outcome::OUT_OF_RANGE;
    }
}

Table makeTable(unsigned char bits)
{
    return {{"a", (bits & 1U) != 0},
            {"b", (bits & 2U) != 0},
            {"c", (bits & 4U) != 0},
            {"d", (bits & 8U) != 0}};
}

// The same expression, with a blank before every character.
std::string respell(const std::string& expression)
{
    std::string result;
    for (const char c : expression)
    {
        result += ' ';
        result += c == '!' ? '^' : c == '^' ? '!' : c == '&' ? '@' : c == '@' ? '&' : c;
    }
    return result;
}

}  // namespace

void fuzz::run(std::string_view input)
{
    static auto* const setting = new Setting;
    if (input.empty())
    {
        return;
    }
    const Table table = makeTable(static_cast<unsigned char>(input.front()));
    const std::string expression(input.substr(1));

    test::LogExpModel model(table);
    const Outcome expected = outcomeOf([&] { return model.evaluate(expression); });
    setting->traces.clear();
    require(outcomeOf([&] { return LogExp::evaluate(expression, table); }) == expected,
            "the value is the model's");
    require(setting->traces.getWords() == model.m_steps, "the steps are the model's");

    const std::string parsed = LogExp::parse(expression, table);
    require(parsed.find_first_not_of("01!&|()") == std::string::npos, "a parse is over 01!&|()");
    require(LogExp::parse(respell(expression), table) == parsed, "spelling does not matter");

    test::LogExpModel bareModel(table);
    const Outcome bare = outcomeOf([&] { return bareModel.calculate(expression); });
    setting->traces.clear();
    require(outcomeOf([&] { return LogExp::calculate(expression); }) == bare,
            "the value of bare text is the model's");
    require(setting->traces.getWords() == bareModel.m_steps,
            "the steps of bare text are the model's");
}
