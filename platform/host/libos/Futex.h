#ifndef HOST_LIBOS_FUTEX_H
#define HOST_LIBOS_FUTEX_H

#include <libos/Deadline.h>

#include <atomic>
#include <cstdint>

namespace host
{

/// A word on which threads of this process can sleep.
using FutexWord = std::atomic<uint32_t>;

/// Sleeps while `word` holds `expected`, until somebody wakes the word or the deadline has passed.
/// Also returns early without a reason: callers look at the word again.
/// @return false when the deadline has passed
bool futexWait(const FutexWord& word, uint32_t expected, const Deadline& deadline);

/// Wakes one thread that sleeps on `word`. Only the address is used, so the word may be gone
/// already: at worst somebody else who sleeps there wakes without a reason.
void futexWakeOne(const FutexWord* word);

}  // namespace host

#endif
