#ifndef WORKER_POOL_OPTIONS_H
#define WORKER_POOL_OPTIONS_H

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "flagsFile.h"

namespace worker_pool
{

/// The exit statuses of the program; after a signal to stop it is 128 + the signal's number.
enum ExitStatus : int
{
    ALL_COUNTED = 0,
    SOME_NOT_COUNTED = 1,
    BAD_USAGE = 2,
    STOPPED_BY_SIGNAL = 128
};

/// What the command line asks for.
struct Options
{
    std::vector<std::string> paths;
    std::set<std::string> excludedNames;
    unsigned numWorkers = 4;
    unsigned long queueSize = 16;
    TraceLevels traceLevels;
    bool quiet = false;
};

/// Reads the command line. Prints the help text when it is asked for, and a message when something
/// is wrong.
/// @return the exit status when there is nothing more to do
std::optional<int> readOptions(int argc, const char* const* argv, Options& options);

}  // namespace worker_pool

#endif
