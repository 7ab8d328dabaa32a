#include <utils/flagTrace.h>

#include <utils/flagFlags.h>

#include "internal/SourceFile.h"
#include "internal/TextOutput.h"

namespace utils::flag
{

bool isOlderTracingEnabled()
{
    const auto* const flags = findOlderFlags<Flag_Flags>();
    return flags != nullptr && readValue(flags->m_traceMsgActive);
}

Flag_TraceMsg* Flag_TraceCallSite::claim(const Flag_Flag<int>& flag)
{
    if (m_isClaimed.exchange(true, std::memory_order_acquire))
    {
        return nullptr;
    }
    Flag_TraceMsg* message = m_messagePtr.load(std::memory_order_relaxed);
    if (message == nullptr)
    {
        try
        {
            message = new Flag_TraceMsg(flag, m_traceLevel);
        }
        catch (...)
        {
            release();
            throw;
        }
        m_messagePtr.store(message, std::memory_order_release);
    }
    return message;
}

void Flag_TraceCallSite::release()
{
    m_isClaimed.store(false, std::memory_order_release);
}

std::unique_ptr<Flag_TraceMsg> Flag_TraceCallSite::makeMessage(const Flag_Flag<int>& flag) const
{
    const Flag_TraceMsg* const known = m_messagePtr.load(std::memory_order_acquire);
    const int currLevel = known != nullptr ? known->m_currLevel : readValue(flag);
    return std::unique_ptr<Flag_TraceMsg>(
        new Flag_TraceMsg(flag.getName(), currLevel, m_traceLevel));
}

Flag_TraceEmission::Flag_TraceEmission(Flag_TraceCallSite& callSite, const Flag_Flag<int>& flag)
    : m_callSite(callSite),
      m_claimedPtr(callSite.claim(flag)),
      m_ownMessagePtr(m_claimedPtr == nullptr ? callSite.makeMessage(flag) : nullptr),
      m_messagePtr(m_claimedPtr == nullptr ? m_ownMessagePtr.get() : m_claimedPtr)
{
}

Flag_TraceEmission::~Flag_TraceEmission()
{
    if (m_claimedPtr != nullptr)
    {
        m_callSite.release();
    }
}

std::ostream& Flag_TraceEmission::begin()
{
    const SourceLocation& location = m_callSite.getLocation();
    std::ostringstream& stream = m_messagePtr->getStream();
    makeEmpty(stream);
    m_messagePtr->addHeader(sourceFile(location.file).c_str(), location.line, location.function);
    return stream;
}

void Flag_TraceEmission::deliver()
{
    m_messagePtr->getStream().put('\n');
    m_messagePtr->notifyStrategies();
}

}  // namespace utils::flag
