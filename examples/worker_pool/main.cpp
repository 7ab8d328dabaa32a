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

struct Found
{
    unsigned long numFiles = 0;  // and what else is to be reported
    unsigned long numLinks = 0;  // not followed
};

// Looks for files, and has the pool count them while it goes on.
Found findFiles(const Options& options, WorkerPool& pool)
{
    Found found;
    FileWalk walk(
        options.excludedNames,
        [&](const std::string& path)
        {
            ++found.numFiles;
            pool.count(path);
        },
        [&](const std::string& path, const std::string& problem)
        {
            ++found.numFiles;
            pool.print(path, problem);
        });
    for (const std::string& path : options.paths)
    {
        walk.walk(path);
    }
    found.numLinks = walk.getNumLinks();
    return found;
}

// Says what there is to say beside the table. @return the exit status
int conclude(const Found& found, const Report& report)
{
    if (found.numLinks != 0)
    {
        std::cerr << "worker_pool: symbolic links inside folders, not followed: " << found.numLinks
                  << "\n";
    }
    if (!std::cout)
    {
        std::cerr << "worker_pool: standard output could not be written.\n";
        return SOME_NOT_COUNTED;
    }
    if (const int signal = stopSignal())
    {
        std::cerr << "worker_pool: stopped by signal " << signal << " (" << strsignal(signal)
                  << "); " << found.numFiles - report.getNumFiles() - report.getNumProblems()
                  << " of the files found so far were not counted.\n";
        return STOPPED_BY_SIGNAL + signal;
    }
    return report.getNumProblems() == 0 ? ALL_COUNTED : SOME_NOT_COUNTED;
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
    const Found found = findFiles(options, pool);
    pool.finish();

    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    report.printSummary(seconds.count());
    return conclude(found, report);
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
