#include "core/FinishedAcquisitions.h"

namespace instrument
{

void FinishedAcquisitions::notify(void* data)
{
    const auto acquisition = *static_cast<std::shared_ptr<Acquisition>*>(data);
    m_executor.post([this, acquisition] { finish(*acquisition); });
}

void FinishedAcquisitions::finish(Acquisition& acquisition)
{
    --m_numExpected;
    acquisition.isFinished = true;
    if (acquisition.onFinished)
    {
        acquisition.onFinished();
    }
}

}  // namespace instrument
