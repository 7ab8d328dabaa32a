#include "core/waveform.h"

#include <bit>
#include <cstdint>
#include <iterator>

#include <fmt/format.h>

namespace instrument
{

std::string toLittleEndian(const std::vector<double>& samples)
{
    std::string bytes;
    bytes.reserve(samples.size() * sizeof(double));
    for (const double sample : samples)
    {
        const auto bits = std::bit_cast<std::uint64_t>(sample);
        for (unsigned shift = 0; shift < 64; shift += 8)
        {
            bytes += static_cast<char>((bits >> shift) & 0xff);
        }
    }
    return bytes;
}

std::string toText(const std::vector<double>& samples)
{
    fmt::memory_buffer text;
    for (const double sample : samples)
    {
        fmt::format_to(std::back_inserter(text), "{:.9E},", sample);
    }
    return {text.data(), text.size() - (samples.empty() ? 0 : 1)};
}

}  // namespace instrument
