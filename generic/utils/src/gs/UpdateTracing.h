#ifndef GENERIC_UTILS_GS_UPDATETRACING_H
#define GENERIC_UTILS_GS_UPDATETRACING_H

#include <string>

namespace utils
{

class Gs_Subject;

/// Prints the updates of one thread to standard output while it lives: for the time of a
/// notification, when flags Gs_Flags::m_enableSubjectName and m_traceSubjectName ask for the
/// subject, and no other notification of the process is being traced. Otherwise it does nothing.
///
/// Thread safety: any thread.
class UpdateTracing
{
  public:
    explicit UpdateTracing(const Gs_Subject& subject);
    ~UpdateTracing();

    UpdateTracing(const UpdateTracing&) = delete;
    UpdateTracing& operator=(const UpdateTracing&) = delete;

    /// Whether the updates of the calling thread are to be printed.
    static bool isOn();

  private:
    const bool m_isOwner;
};

}  // namespace utils

#endif
