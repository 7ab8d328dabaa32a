#ifndef UTILS_INTERNAL_ENDPROCESS_H
#define UTILS_INTERNAL_ENDPROCESS_H

namespace utils
{

/// Ends the process with exit status 1, running static destructors. May be called by any thread,
/// by several at once, and again by what runs while the process ends; never returns.
[[noreturn]] void endProcess();

}  // namespace utils

#endif
