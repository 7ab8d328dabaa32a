#ifndef INSTRUMENT_CORE_STATISTICS_H
#define INSTRUMENT_CORE_STATISTICS_H

#include <vector>

namespace instrument
{

/// What there is to say about a block of samples, in volts.
struct Statistics
{
    double minimum = 0;
    double maximum = 0;
    double mean = 0;
    double rms = 0;  ///< root of the mean square, the mean included
};

/// All 0 without samples.
Statistics computeStatistics(const std::vector<double>& samples);

}  // namespace instrument

#endif
