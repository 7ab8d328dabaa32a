#include "core/Statistics.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace instrument
{

Statistics computeStatistics(const std::vector<double>& samples)
{
    if (samples.empty())
    {
        return {};
    }
    const auto number = static_cast<double>(samples.size());
    const auto [minimum, maximum] = std::minmax_element(samples.begin(), samples.end());
    const double sum = std::accumulate(samples.begin(), samples.end(), 0.0);
    const double squares = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
    return {*minimum, *maximum, sum / number, std::sqrt(squares / number)};
}

}  // namespace instrument
