#ifndef LIBOS_OSERROR_H
#define LIBOS_OSERROR_H

#include <libos/osTypes.h>

/// @file
/// The platform's last error: one value a thread, 0 when there is none.

#ifdef __cplusplus
extern "C" {
#endif

/// The calling thread's last error; 0 = none. Platform failures use the system's errno values.
LIBOS_API uint32_t osGetLastError(void);

/// Sets the calling thread's last error; 0 clears it.
LIBOS_API void osSetLastError(uint32_t error);

/// Non-zero when the calling thread's last error is not 0.
LIBOS_API int osIsError(void);

#ifdef __cplusplus
}
#endif

#endif
