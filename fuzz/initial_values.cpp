// The initial values file: an input is the text of the file.
//
// - the pairs are those that a simple reading by lines finds, and no error is reported
// - reading the file again changes nothing
// - what a flag makes of each value as a number, a bool and a word

#include <algorithm>
#include <charconv>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <utils/flag/FlagT.h>
#include <utils/flag/InitialValues.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "target.h"

namespace
{

using utils::flag::FlagT;
using utils::flag::InitialValues;

using Pairs = std::map<std::string, std::string>;

constexpr std::string_view WHITE = " \t\n\v\f\r";

struct Setting
{
    const test::ConfigDirectory configuration;
    test::RecordingErrorStrategy errors;
    FlagT<int> number{"fuzz::number", 0};
    FlagT<bool> truth{"fuzz::truth", false};
    FlagT<std::string> word{"fuzz::word", ""};
};

std::string_view trim(std::string_view line)
{
    line.remove_prefix(std::min(line.find_first_not_of(WHITE), line.size()));
    return line.substr(0, line.find_last_not_of(WHITE) + 1);
}

Pairs readPairs(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trim(text.substr(0, end));
        if (!line.empty() && line.front() != '#')
        {
            lines.emplace_back(line);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (lines.size() % 2 != 0)
    {
        lines.emplace_back();
    }
    Pairs pairs;
    for (std::size_t i = 0; i < lines.size(); i += 2)
    {
        pairs[lines[i]] = lines[i + 1];
    }
    return pairs;
}

void requirePairs(const InitialValues& values, const Pairs& pairs)
{
    for (const auto& [name, expected] : pairs)
    {
        std::string value = "untouched";
        fuzz::require(values.getInitialValue(name, value), "a name of the file is known");
        fuzz::require(value == expected, "a value is the line after its name");
        std::string other = "untouched";
        if (!pairs.contains(name + "x"))
        {
            fuzz::require(!values.getInitialValue(name + "x", other), "other names are unknown");
            fuzz::require(other == "untouched", "without a value nothing is written");
        }
    }
}

// The number that a text without white space before it begins with.
template <typename T>
bool readNumber(std::string_view text, T& number)
{
    const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    text.remove_prefix(hasPlus ? 1 : 0);
    return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
}

void requireFlags(Setting& setting, const std::string& value)
{
    int number = 0;
    const bool isNumber = readNumber(value, number);
    fuzz::require(setting.number.setValueStr(value) == isNumber, "a number is taken, else nothing");
    fuzz::require(!isNumber || setting.number.getValue() == number, "the number is the text's");

    long truth = 0;
    const bool isTruth = readNumber(value, truth) && (truth == 0 || truth == 1);
    fuzz::require(setting.truth.setValueStr(value) == isTruth, "0 or 1 is taken, else nothing");
    fuzz::require(!isTruth || setting.truth.getValue() == (truth == 1), "the bool is the text's");

    const std::string word = value.substr(0, value.find_first_of(WHITE));
    fuzz::require(setting.word.setValueStr(value) == !word.empty(), "a word is taken");
    fuzz::require(word.empty() || setting.word.getValue() == word, "the word is the first");
}

}  // namespace

void fuzz::run(std::string_view input)
{
    static auto* const setting = new Setting;
    const Pairs pairs = readPairs(input);
    setting->configuration.writeValues(std::string(input));

    InitialValues values;
    requirePairs(values, pairs);
    values.redoInitialValuesCollection();
    requirePairs(values, pairs);
    require(setting->errors.getReports().empty(), "a readable file is no error");
    for (const auto& [name, value] : pairs)
    {
        requireFlags(*setting, value);
    }
}
