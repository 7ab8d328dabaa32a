#ifndef HOST_LIBOS_THREADNAME_H
#define HOST_LIBOS_THREADNAME_H

#include <array>
#include <string_view>

namespace host
{

/// A thread name as the kernel keeps it: at most 15 characters and a NUL.
using KernelThreadName = std::array<char, 16>;

/// Fits a name into the kernel's 15 characters. A longer name keeps its first 7 and its last 7,
/// which tell numbered threads apart, around a '~': "acquisition-channel-12" becomes
/// "acquisi~nnel-12".
KernelThreadName toKernelThreadName(std::string_view name);

}  // namespace host

#endif
