#ifndef TESTS_SUPPORT_MUTEXCALLS_H
#define TESTS_SUPPORT_MUTEXCALLS_H

#include <string>
#include <vector>

#include <libos/osMutex.h>

namespace test
{

/// Records, on the calling thread and while it lives, what is called of the platform's mutexes and
/// timing records. A program that is linked with MutexCalls.cpp stands between the library and the
/// platform.
///
/// Entries read "begin", "lock <wait>", "end", "output", "unlock".
class MutexCalls
{
  public:
    MutexCalls();
    ~MutexCalls();

    MutexCalls(const MutexCalls&) = delete;
    MutexCalls& operator=(const MutexCalls&) = delete;

    std::vector<std::string> getCalls() const { return m_calls; }

    /// The handles that were locked and unlocked, in the order of the calls.
    std::vector<osMutexHandle_t> getHandles() const { return m_handles; }

    void add(const std::string& call) { m_calls.push_back(call); }
    void add(const std::string& call, osMutexHandle_t handle)
    {
        add(call);
        m_handles.push_back(handle);
    }

    /// Makes every osMutexDestroy() from now on write "mutex destroyed" to standard error.
    static void announceDestruction();

  private:
    std::vector<std::string> m_calls;
    std::vector<osMutexHandle_t> m_handles;
};

}  // namespace test

#endif
