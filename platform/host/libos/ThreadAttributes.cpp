#include <errno.h>
#include <libos/ThreadAttributes.h>
#include <limits.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

namespace host
{
namespace
{

bool isCallerRealTime()
{
    int policy = SCHED_OTHER;
    sched_param parameters{};
    pthread_getschedparam(pthread_self(), &policy, &parameters);
    return policy == SCHED_FIFO || policy == SCHED_RR;
}

}  // namespace

void ThreadAttributes::setDetached()
{
    pthread_attr_setdetachstate(&m_attributes, PTHREAD_CREATE_DETACHED);
}

int ThreadAttributes::setStackSize(uint64_t bytes)
{
    if (bytes == 0)
    {
        return 0;
    }
    const auto pageSize = static_cast<uint64_t>(sysconf(_SC_PAGESIZE));
    if (bytes > std::numeric_limits<size_t>::max() - pageSize)
    {
        return EINVAL;
    }
    const uint64_t wanted = std::max(bytes, static_cast<uint64_t>(PTHREAD_STACK_MIN));
    const uint64_t pages = (wanted + pageSize - 1) / pageSize;
    return pthread_attr_setstacksize(&m_attributes, static_cast<size_t>(pages * pageSize));
}

void ThreadAttributes::setNormalScheduling()
{
    if (!isCallerRealTime())
    {
        return;
    }
    const sched_param parameters{};
    pthread_attr_setinheritsched(&m_attributes, PTHREAD_EXPLICIT_SCHED);
    pthread_attr_setschedpolicy(&m_attributes, SCHED_OTHER);
    pthread_attr_setschedparam(&m_attributes, &parameters);
}

}  // namespace host
