#ifndef HOST_LIBOS_FAIL_H
#define HOST_LIBOS_FAIL_H

#include <libos/osError.h>

namespace host
{

/// Makes `error`, an errno value, the calling thread's last error. @return 0, the failure of most
/// operations
inline int fail(int error)
{
    osSetLastError(static_cast<uint32_t>(error));
    return 0;
}

/// The answer of an operation whose system call returned `error`: 1 for 0, otherwise a failure.
inline int succeedUnless(int error)
{
    return error == 0 ? 1 : fail(error);
}

}  // namespace host

#endif
