#ifndef GENERIC_UTILS_INTERNAL_ENDPROCESS_H
#define GENERIC_UTILS_INTERNAL_ENDPROCESS_H

namespace utils
{

/// Ends the process with exit status 1, running static destructors. May be called by any thread,
/// by several at once, and again by what runs while the process ends; never returns.
[[noreturn]] void endProcess();

/// From now on endProcess() notices when the process has begun to end by itself: its static
/// destructors then run on one thread, and must not run on another as well. Called before there is
/// another thread.
void watchForEndOfProcess();

}  // namespace utils

#endif
