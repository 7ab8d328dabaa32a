#ifndef GENERIC_UTILS_EXPORT_H
#define GENERIC_UTILS_EXPORT_H

/// Part of the library's binary interface: visible outside the shared library, and one per process
/// also across plug-ins that are built with hidden visibility.
#define GENERIC_UTILS_EXPORT __attribute__((visibility("default")))

/// Not part of it, though its class is: only the library's own sources call it.
#define GENERIC_UTILS_LOCAL __attribute__((visibility("hidden")))

#endif
