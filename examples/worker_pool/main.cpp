// Counts the lines, words and bytes of files with a pool of tasks. Begin to read here, then in
// WorkerPool.cpp; docs/tutorial.md goes through both.

#include <string.h>

#include <chrono>
#include <exception>
#include <iostream>

#include "FileWalk.h"
#include "Options.h"
#include "Report.h"
#include "StopSignal.h"
#include "WorkerPool.h"
#include "flagsFile.h"

namespace
{

using namespace worker_pool;

int explainStop(unsigned long numNotCounted)
{
    const int signal = stopSignal();
    std::cerr << "worker_pool: stopped by signal " << signal << " (" << strsignal(signal) << "); "
              << numNotCounted << " of the files found so far were not counted.\n";
    return STOPPED_BY_SIGNAL + signal;
}

int countFiles(const Options& options)
{
    const auto start = std::chrono::steady_clock::now();
    Report report(!options.quiet, options.traceLevels.empty());
    WorkerPool pool(report, options.numWorkers, options.queueSize);
    if (!pool.start())
    {
        std::cerr << "worker_pool: the system has no thread for one of the tasks.\n";
        return SOME_NOT_COUNTED;
    }

    unsigned long numFound = 0;
    FileWalk walk(
        options.excludedNames,
        [&](const std::string& path)
        {
            ++numFound;
            pool.count(path);
        },
        [&](const std::string& path, const std::string& problem)
        {
            ++numFound;
            pool.print(path, problem);
        });
    for (const std::string& path : options.paths)
    {
        walk.walk(path);
    }
    pool.finish();

    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    report.printSummary(seconds.count());
    if (walk.getNumLinks() != 0)
    {
        std::cerr << "worker_pool: symbolic links inside folders, not followed: "
                  << walk.getNumLinks() << "\n";
    }
    if (!std::cout)
    {
        std::cerr << "worker_pool: standard output could not be written.\n";
        return SOME_NOT_COUNTED;
    }
    if (stopSignal() != 0)
    {
        return explainStop(numFound - report.getNumFiles() - report.getNumProblems());
    }
    return report.getNumProblems() == 0 ? ALL_COUNTED : SOME_NOT_COUNTED;
}

}  // namespace

int main(int argc, char** argv)
{
    try
    {
        Options options;
        if (const auto status = readOptions(argc, argv, options))
        {
            return *status;
        }
        catchStopSignals();
        readFlags(options.traceLevels);
        return countFiles(options);
    }
    catch (const std::exception& error)
    {
        std::cerr << "worker_pool: " << error.what() << "\n";
        return SOME_NOT_COUNTED;
    }
}
