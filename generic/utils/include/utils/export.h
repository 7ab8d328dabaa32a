#ifndef UTILS_EXPORT_H
#define UTILS_EXPORT_H

/// Part of the library's binary interface: visible outside the shared library, and one per process
/// also across plug-ins that are built with hidden visibility.
#define GENERIC_UTILS_EXPORT __attribute__((visibility("default")))

#endif
