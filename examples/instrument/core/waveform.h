#ifndef INSTRUMENT_CORE_WAVEFORM_H
#define INSTRUMENT_CORE_WAVEFORM_H

#include <string>
#include <vector>

namespace instrument
{

/// Samples as bytes: 64-bit floating-point numbers, the lowest byte first.
std::string toLittleEndian(const std::vector<double>& samples);

/// Samples as text, with commas between them.
std::string toText(const std::vector<double>& samples);

}  // namespace instrument

#endif
