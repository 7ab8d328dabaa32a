#include <utils/flag/Trace.h>

#include <utils/flag/Flags.h>

#include "internal/SourceFile.h"
#include "internal/TextOutput.h"

namespace utils::flag
{

bool isTracingEnabled()
{
    const Flags* const flags = findFlags<Flags>();
    return flags != nullptr && flags->m_enableTraceMsgs();
}

std::unique_ptr<TraceMsg> TraceCallSite::makeMessage(const FlagT<int>& flag) const
{
    return std::make_unique<TraceMsg>(flag, m_messageLevel, sourceFile(m_location.file).c_str(),
                                      m_location.line, m_location.function);
}

TraceMsg* TraceCallSite::claim(const FlagT<int>& flag)
{
    if (m_isClaimed.exchange(true, std::memory_order_acquire))
    {
        return nullptr;
    }
    if (m_messagePtr == nullptr)
    {
        try
        {
            m_messagePtr = makeMessage(flag).release();
        }
        catch (...)
        {
            release();
            throw;
        }
    }
    return m_messagePtr;
}

void TraceCallSite::release()
{
    m_isClaimed.store(false, std::memory_order_release);
}

TraceEmission::TraceEmission(TraceCallSite& callSite, const FlagT<int>& flag)
    : m_callSite(callSite),
      m_claimedPtr(callSite.claim(flag)),
      m_ownMessagePtr(m_claimedPtr == nullptr ? callSite.makeMessage(flag) : nullptr),
      m_messagePtr(m_claimedPtr == nullptr ? m_ownMessagePtr.get() : m_claimedPtr)
{
}

TraceEmission::~TraceEmission()
{
    if (m_claimedPtr != nullptr)
    {
        m_callSite.release();
    }
}

std::ostream& TraceEmission::begin()
{
    std::ostringstream& stream = m_messagePtr->getStream();
    makeEmpty(stream);
    return m_messagePtr->header(stream);
}

void TraceEmission::deliver()
{
    strategy::StrategyT<TraceMsg>::invokeStrategies(TraceMsg::STRATEGY_TYPE, *m_messagePtr);
}

}  // namespace utils::flag
