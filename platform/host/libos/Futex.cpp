#include <errno.h>
#include <libos/Futex.h>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace host
{

static_assert(sizeof(FutexWord) == sizeof(uint32_t) && FutexWord::is_always_lock_free);

bool futexWait(const FutexWord& word, uint32_t expected, const Deadline& deadline)
{
    const int callersErrno = errno;
    const long result = syscall(SYS_futex, &word, FUTEX_WAIT_BITSET_PRIVATE, expected,
                                deadline.get(), nullptr, FUTEX_BITSET_MATCH_ANY);
    const bool hasTimedOut = result != 0 && errno == ETIMEDOUT;
    errno = callersErrno;
    return !hasTimedOut;
}

void futexWakeOne(const FutexWord* word)
{
    const int callersErrno = errno;
    syscall(SYS_futex, word, FUTEX_WAKE_PRIVATE, 1);
    errno = callersErrno;
}

}  // namespace host
