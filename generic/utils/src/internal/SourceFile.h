#ifndef GENERIC_UTILS_INTERNAL_SOURCEFILE_H
#define GENERIC_UTILS_INTERNAL_SOURCEFILE_H

#include <string>

namespace utils
{

/// A source file as headers of traces and errors name it: from generic/utils on (a path without
/// that folder stays as it is) and without its extension.
std::string sourceFile(const char* path);

}  // namespace utils

#endif
