#ifndef LIBSTD_LIBSTD_H
#define LIBSTD_LIBSTD_H

/// @file
/// All of libstd.

#include <libstd/IntervalAndDuration.h>
#include <libstd/getType.h>
#include <libstd/strToValue.h>
#include <libstd/system.h>

#endif
