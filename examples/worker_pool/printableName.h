#ifndef WORKER_POOL_PRINTABLENAME_H
#define WORKER_POOL_PRINTABLENAME_H

#include <string>

namespace worker_pool
{

/// A file name on one line: control characters and the backslash as in a C string.
std::string printableName(const std::string& name);

}  // namespace worker_pool

#endif
