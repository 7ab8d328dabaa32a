#include "gs/UpdateTracing.h"

#include <atomic>

#include <utils/flagTrace.h>
#include <utils/gsFlags.h>
#include <utils/gsSubject.h>

namespace utils
{

namespace
{

// Identifies a thread by the address of an object of its own.
using ThreadId = const char*;

// The thread whose updates are traced: switch and identity in one. Null: off.
std::atomic<ThreadId> theTracedThread{nullptr};

ThreadId currentThread()
{
    static thread_local char theIdentity = '\0';
    return &theIdentity;
}

bool isAskedFor(const Gs_Subject& subject)
{
    const auto* const flags = flag::findOlderFlags<flag::Gs_Flags>();
    return flags != nullptr && readValue(flags->m_enableSubjectName) != 0 &&
           theTracedThread.load(std::memory_order_relaxed) == nullptr &&
           subject.getName().find(flags->m_traceSubjectName()) != std::string::npos;
}

bool switchOn()
{
    ThreadId off = nullptr;
    return theTracedThread.compare_exchange_strong(off, currentThread(), std::memory_order_relaxed);
}

}  // namespace

UpdateTracing::UpdateTracing(const Gs_Subject& subject)
    : m_isOwner(isAskedFor(subject) && switchOn())
{
}

UpdateTracing::~UpdateTracing()
{
    if (m_isOwner)
    {
        theTracedThread.store(nullptr, std::memory_order_relaxed);
    }
}

bool UpdateTracing::isOn()
{
    const ThreadId traced = theTracedThread.load(std::memory_order_relaxed);
    return traced != nullptr && traced == currentThread();
}

}  // namespace utils
