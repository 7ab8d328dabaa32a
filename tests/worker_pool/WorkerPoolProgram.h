#ifndef TESTS_WORKER_POOL_WORKERPOOLPROGRAM_H
#define TESTS_WORKER_POOL_WORKERPOOLPROGRAM_H

#include <string>
#include <vector>

#include "support/Program.h"

namespace test
{

/// The command that starts the worker pool.
inline std::vector<std::string> workerPool(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command = {WORKER_POOL_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

/// Runs the worker pool to its end.
inline Program::Result runWorkerPool(const std::vector<std::string>& arguments,
                                     const Program::Setting& setting = {})
{
    return run(workerPool(arguments), setting);
}

}  // namespace test

#endif
