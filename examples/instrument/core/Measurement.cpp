#include "core/Measurement.h"

#include <utility>

#include "core/ScpiError.h"
#include "core/limits.h"

namespace instrument
{

Measurement::Measurement(Instrument& instrument, std::function<void()> onFinished)
    : m_instrument(instrument),
      m_onFinished(std::move(onFinished)),
      m_channel(&instrument.getChannels().front()),
      m_numPoints(limits::DEFAULT_POINTS)
{
}

Measurement::~Measurement()
{
    abort();
}

void Measurement::reset()
{
    abort();
    m_acquisition.reset();
    m_channel = &m_instrument.getChannels().front();
    m_numPoints = limits::DEFAULT_POINTS;
    m_isBinary = false;
}

void Measurement::start()
{
    if (isRunning())
    {
        throw CommandFailure(ScpiError::INIT_IGNORED);
    }
    m_acquisition.reset();
    std::erase_if(m_aborted, [](const auto& aborted) { return aborted->isFinished; });
    if (m_aborted.size() + 1 > limits::MAX_ACQUISITIONS_OF_CLIENT)
    {
        throw CommandFailure(ScpiError::EXECUTION_ERROR);
    }
    auto acquisition = std::make_shared<Acquisition>(m_channel->getConfiguration(),
                                                     m_channel->getRange(), m_numPoints);
    acquisition->onFinished = m_onFinished;
    if (!m_instrument.getPool().acquire(acquisition))
    {
        throw CommandFailure(ScpiError::EXECUTION_ERROR);
    }
    m_acquisition = std::move(acquisition);
}

void Measurement::abort()
{
    if (isRunning())
    {
        m_acquisition->isCancelled = true;
        m_acquisition->onFinished = nullptr;
        m_aborted.push_back(std::move(m_acquisition));
    }
}

const Acquisition& Measurement::getResults() const
{
    if (!m_acquisition)
    {
        throw CommandFailure(ScpiError::DATA_CORRUPT_OR_STALE);
    }
    return *m_acquisition;
}

}  // namespace instrument
