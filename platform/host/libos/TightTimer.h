#ifndef HOST_LIBOS_TIGHTTIMER_H
#define HOST_LIBOS_TIGHTTIMER_H

namespace host
{

/// While it exists, the calling thread's timers end without the slack, normally 50 microseconds, that the
/// system adds to save power.
class TightTimer
{
  public:
    TightTimer();
    ~TightTimer();
    TightTimer(const TightTimer&) = delete;
    TightTimer& operator=(const TightTimer&) = delete;

  private:
    const int m_slackNs;
};

}  // namespace host

#endif
