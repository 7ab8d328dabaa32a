#ifndef LIBOS_LIBOS_H
#define LIBOS_LIBOS_H

/// @file
/// All of libos.

#include <libos/COsMutex.h>
#include <libos/osError.h>
#include <libos/osMutex.h>
#include <libos/osQueue.h>
#include <libos/osTask.h>
#include <libos/osTypes.h>

#endif
