#include "core/Channel.h"

#include <algorithm>

namespace instrument
{

void Channel::setRange(double volts)
{
    const std::vector<double>& ranges = m_configuration.ranges;
    const auto found = std::lower_bound(ranges.begin(), ranges.end(), volts);
    m_range = found == ranges.end() ? ranges.back() : *found;
}

}  // namespace instrument
