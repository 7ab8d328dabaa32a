// Channels, their settings, acquisitions and their results.

#include <cmath>
#include <sstream>

#include <fmt/format.h>
#include <utils/stdData.h>

#include "core/CommandTable.h"
#include "core/limits.h"
#include "core/waveform.h"

namespace instrument
{

namespace
{

void answerChannels(Client& client, const Arguments&)
{
    std::vector<std::string> names;
    for (const Channel& channel : client.instrument.getChannels())
    {
        names.push_back(channel.getConfiguration().name);
    }
    client.response.add(quoteAll(names));
}

void selectChannel(Client& client, const Arguments& arguments)
{
    Channel* const channel = client.instrument.findChannel(arguments.getName(0));
    if (channel == nullptr)
    {
        throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
    }
    client.measurement.setChannel(*channel);
}

void answerSelectedChannel(Client& client, const Arguments&)
{
    client.response.add(client.measurement.getChannel().getConfiguration().name);
}

NumberRange rangesOf(const Channel& channel)
{
    const ChannelConfiguration& configuration = channel.getConfiguration();
    return {configuration.ranges.front(), configuration.ranges.back(), configuration.defaultRange};
}

void setRange(Client& client, const Arguments& arguments)
{
    Channel& channel = client.measurement.getChannel();
    NumberRange range = rangesOf(channel);
    if (arguments.isNumber(0))
    {
        range.minimum = 0;  // the smallest range has room for less
    }
    channel.setRange(arguments.getNumber(0, range));
}

void answerRange(Client& client, const Arguments& arguments)
{
    const Channel& channel = client.measurement.getChannel();
    const double volts =
        arguments.size() == 0 ? channel.getRange() : arguments.getWordNumber(0, rangesOf(channel));
    client.response.add(formatVolts(volts));
}

constexpr NumberRange POINTS = {limits::MIN_POINTS, limits::MAX_POINTS, limits::DEFAULT_POINTS};

void setPoints(Client& client, const Arguments& arguments)
{
    const double points = std::round(arguments.getNumber(0, POINTS));
    client.measurement.setNumPoints(static_cast<unsigned long>(points));
}

void answerPoints(Client& client, const Arguments& arguments)
{
    const double points = arguments.size() == 0
                              ? static_cast<double>(client.measurement.getNumPoints())
                              : arguments.getWordNumber(0, POINTS);
    client.response.add(fmt::format("{:.0f}", points));
}

void initiate(Client& client, const Arguments&)
{
    client.measurement.start();
}

void abort(Client& client, const Arguments&)
{
    client.measurement.abort();
    client.completeOperation();
}

void measure(Client& client, const Arguments& arguments)
{
    abort(client, arguments);
    client.measurement.start();
}

void answerMean(Client& client, const Arguments&)
{
    client.response.add(formatVolts(client.measurement.getResults().statistics.mean));
}

void answerStatistics(Client& client, const Arguments&)
{
    const Statistics& statistics = client.measurement.getResults().statistics;
    client.response.add(fmt::format("{},{},{},{}", formatVolts(statistics.minimum),
                                    formatVolts(statistics.maximum), formatVolts(statistics.mean),
                                    formatVolts(statistics.rms)));
}

void answerWaveform(Client& client, const Arguments&)
{
    const std::vector<double>& samples = client.measurement.getResults().samples;
    client.response.add(client.measurement.isBinary() ? makeBlock(toLittleEndian(samples))
                                                      : toText(samples));
}

void answerDump(Client& client, const Arguments&)
{
    constexpr std::size_t NUM_BYTES = 256;
    const std::vector<double>& samples = client.measurement.getResults().samples;
    const std::size_t numSamples = std::min(samples.size(), NUM_BYTES / sizeof(double));
    const std::string bytes = toLittleEndian(
        {samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(numSamples)});
    std::ostringstream dump;
    utils::Std_Data::output(dump, bytes.data(), static_cast<int>(bytes.size()));
    client.response.add(makeBlock(dump.str()));
}

}  // namespace

void addMeasurementCommands(CommandTable& table)
{
    constexpr bool WAITS = true;
    table.add({"INSTrument:CATalog?", 0, 0, answerChannels});
    table.add({"INSTrument[:SELect]", 1, 1, selectChannel});
    table.add({"INSTrument[:SELect]?", 0, 0, answerSelectedChannel});
    table.add({"[SENSe:]VOLTage:RANGe", 1, 1, setRange});
    table.add({"[SENSe:]VOLTage:RANGe?", 0, 1, answerRange});
    table.add({"[SENSe:]ACQuire:POINts", 1, 1, setPoints});
    table.add({"[SENSe:]ACQuire:POINts?", 0, 1, answerPoints});
    table.add({"INITiate[:IMMediate]", 0, 0, initiate});
    table.add({"ABORt", 0, 0, abort});
    table.add({"MEASure:VOLTage?", 0, 0, measure, !WAITS, answerMean});
    table.add({"FETCh:STATistics?", 0, 0, answerStatistics, WAITS});
    table.add({"FETCh:WAVeform?", 0, 0, answerWaveform, WAITS});
    table.add({"FETCh:DUMP?", 0, 0, answerDump, WAITS});
}

}  // namespace instrument
