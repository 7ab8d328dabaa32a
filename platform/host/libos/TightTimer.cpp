#include <libos/TightTimer.h>
#include <sys/prctl.h>

namespace host
{

TightTimer::TightTimer() : m_slackNs(prctl(PR_GET_TIMERSLACK))
{
    if (m_slackNs > 1)
    {
        prctl(PR_SET_TIMERSLACK, 1UL);
    }
}

TightTimer::~TightTimer()
{
    if (m_slackNs > 1)
    {
        prctl(PR_SET_TIMERSLACK, static_cast<unsigned long>(m_slackNs));
    }
}

}  // namespace host
