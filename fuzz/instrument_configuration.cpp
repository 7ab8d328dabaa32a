// The instrument's configuration: an input is the text of the file.
//
// - it is read, or refused with a place that is in the text and with words; the same each time
// - what the XML reader refuses is refused
// - what is read keeps all bounds, its interlocks can be evaluated, and an instrument can be made
//   of it

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <utils/logexp/LogExp.h>
#include <utils/xml/Parser.h>

#include "core/Instrument.h"
#include "core/WorkList.h"
#include "core/limits.h"
#include "core/readConfiguration.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "target.h"

namespace
{

using instrument::ChannelConfiguration;
using instrument::Configuration;

/// What came of reading: a configuration or a problem.
struct Outcome
{
    std::optional<Configuration> configuration;
    std::string problem;
};

Outcome read(const std::string& text)
{
    try
    {
        return {instrument::readConfiguration(text, "f"), ""};
    }
    catch (const std::runtime_error& error)
    {
        return {std::nullopt, error.what()};
    }
}

std::vector<std::string> splitLines(const std::string& text)
{
    std::vector<std::string> lines(1);
    for (const char c : text)
    {
        if (c == '\n')
        {
            lines.emplace_back();
            continue;
        }
        lines.back() += c;
    }
    return lines;
}

// A problem is "f:LINE:COLUMN: words".
void requirePlace(const std::string& problem, const std::string& text)
{
    const std::vector<std::string> lines = splitLines(text);
    std::size_t end = 0;
    fuzz::require(problem.starts_with("f:"), "a problem names the file");
    std::string rest = problem.substr(2);
    const unsigned long line = std::stoul(rest, &end);
    fuzz::require(line >= 1 && line <= lines.size(), "the line is in the text");
    fuzz::require(rest[end] == ':', "a colon follows the line");
    rest.erase(0, end + 1);
    const unsigned long column = std::stoul(rest, &end);
    fuzz::require(column >= 1 && column <= lines[line - 1].size() + 1, "the column is in the line");
    fuzz::require(rest.substr(end).starts_with(": ") && rest.size() > end + 2, "words follow");
}

bool isWellFormed(const std::string& text)
{
    const test::RecordingErrorStrategy silent;
    const utils::xml::DocumentForParsing document(text);
    return utils::xml::Parser(&document).parse();
}

void requireBounds(const ChannelConfiguration& channel)
{
    const std::vector<double>& ranges = channel.ranges;
    fuzz::require(!channel.name.empty(), "a channel has a name");
    fuzz::require(!ranges.empty() && ranges.front() > 0, "a channel has ranges");
    fuzz::require(
        std::adjacent_find(ranges.begin(), ranges.end(), std::greater_equal<>()) == ranges.end(),
        "ranges ascend");
    fuzz::require(std::count(ranges.begin(), ranges.end(), channel.defaultRange) == 1,
                  "the default is one of the ranges");
    fuzz::require(channel.sampleRate > 0, "the sample rate is positive");
    fuzz::require(channel.settleMs >= 0 && channel.settleMs <= instrument::limits::MAX_SETTLE_MS,
                  "the time to settle is bounded");
    fuzz::require(channel.noiseRms >= 0 && channel.frequency >= 0, "nothing is negative");
}

void requireBounds(const Configuration& configuration)
{
    fuzz::require(
        configuration.poolSize >= 1 && configuration.poolSize <= instrument::limits::MAX_POOL_SIZE,
        "the size of the pool is bounded");
    fuzz::require(!configuration.channels.empty(), "there is a channel");
    for (const ChannelConfiguration& channel : configuration.channels)
    {
        requireBounds(channel);
    }
}

void requireInterlocks(const Configuration& configuration)
{
    std::map<std::string, bool> states;
    for (const auto& state : configuration.states)
    {
        states[state.name] = state.isSet;
    }
    fuzz::require(states.size() == configuration.states.size(), "the names of states differ");
    for (const auto& interlock : configuration.interlocks)
    {
        utils::logexp::LogExp::evaluate(interlock.expression, states);  // or std::out_of_range
    }
}

}  // namespace

void fuzz::run(std::string_view input)
{
    static const auto* const emptyFolder = new test::ConfigDirectory;
    static_cast<void>(emptyFolder);
    const std::string text(input);
    const Outcome outcome = read(text);
    require(read(text).problem == outcome.problem, "the same text comes to the same");
    if (!outcome.configuration)
    {
        requirePlace(outcome.problem, text);
        return;
    }
    require(isWellFormed(text), "what the reader refuses is refused");
    requireBounds(*outcome.configuration);
    requireInterlocks(*outcome.configuration);
    instrument::WorkList work;
    instrument::Instrument device(*outcome.configuration, work);
    require(device.getChannels().size() == outcome.configuration->channels.size(),
            "the instrument has all channels");
}
