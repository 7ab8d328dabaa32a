#ifndef WORKER_POOL_FLAGSFILE_H
#define WORKER_POOL_FLAGSFILE_H

#include <map>
#include <string>

namespace worker_pool
{

/// A flag's name and the value that it starts with.
using TraceLevels = std::map<std::string, int>;

/// Has the library's flags start from a file: the one in the folder that the environment variable
/// GENERIC_CONFIG_DIR names, else the one that comes with this example. To be called before the
/// first use of the library, because the first flag reads the file.
/// @param levels values that go before those of the file
/// @throw std::exception when a file for these levels cannot be written
void readFlags(const TraceLevels& levels);

}  // namespace worker_pool

#endif
