#include "core/AcquisitionCommands.h"

#include <utility>

#include <utils/flag/Trace.h>
#include <utils/task/Task.h>

#include "core/Flags.h"
#include "core/Signal.h"

namespace instrument
{

namespace
{

constexpr double MICROSECONDS_PER_MILLISECOND = 1000;

}  // namespace

Settle::Settle(std::shared_ptr<Acquisition> acquisition)
    : SleepCommand(static_cast<int>(acquisition->channel.settleMs * MICROSECONDS_PER_MILLISECOND)),
      m_acquisition(std::move(acquisition))
{
}

int Settle::myExecute()
{
    return m_acquisition->isCancelled ? 1 : SleepCommand::myExecute();
}

TakeSamples::TakeSamples(std::shared_ptr<Acquisition> acquisition)
    : Command("TakeSamples"), m_acquisition(std::move(acquisition))
{
}

int TakeSamples::myExecute()
{
    m_acquisition->taskName = utils::task::Task::getMyName();
    Signal signal(m_acquisition->channel, m_acquisition->rangeInVolts);
    std::vector<double>& samples = m_acquisition->samples;
    while (samples.size() < m_acquisition->numPoints && !m_acquisition->isCancelled)
    {
        samples.push_back(signal.next());
    }
    GENERIC_UTILS_TRACE_STEP(1, m_acquisition->taskName << " took " << samples.size()
                                                        << " samples of channel '"
                                                        << m_acquisition->channel.name << "'.");
    return m_acquisition->isCancelled ? 1 : 0;
}

Evaluate::Evaluate(std::shared_ptr<Acquisition> acquisition)
    : Command("Evaluate"), m_acquisition(std::move(acquisition))
{
}

int Evaluate::myExecute()
{
    m_acquisition->statistics = computeStatistics(m_acquisition->samples);
    return 0;
}

Announce::Announce(std::shared_ptr<Acquisition> acquisition, utils::observer::Event& event)
    : Command("Announce"), m_acquisition(std::move(acquisition)), m_event(event)
{
}

int Announce::myExecute()
{
    m_event.notify(&m_acquisition);
    return 0;
}

}  // namespace instrument
