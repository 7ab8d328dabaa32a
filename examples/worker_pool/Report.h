#ifndef WORKER_POOL_REPORT_H
#define WORKER_POOL_REPORT_H

#include <map>
#include <string>

#include "ProgressLine.h"
#include "TextCounter.h"

namespace worker_pool
{

/// Everything that the program prints about its work: a table on standard output, problems on
/// standard error, and the sums.
///
/// Thread safety: used by one thread at a time. While the pool works that is the reporter task,
/// which therefore needs no lock; after the pool's end it is the main thread.
class Report
{
  public:
    /// @param showFiles whether every file gets a line
    /// @param showProgress whether a terminal on standard error shows how far the work is
    Report(bool showFiles, bool showProgress);

    /// Enters a worker, so that one that gets no work is listed, too.
    void addWorker(const std::string& name);

    /// A file that was counted.
    void addFile(const std::string& path, const TextCounts& counts, const std::string& worker);

    /// Something that could not be counted, and why.
    void addProblem(const std::string& path, const std::string& problem);

    /// Prints the sums, who counted how much, and how fast it went.
    /// @param seconds how long the work took
    void printSummary(double seconds);

    unsigned long getNumFiles() const { return m_total.numFiles; }
    unsigned long getNumProblems() const { return m_numProblems; }

  private:
    struct Sum
    {
        void add(const TextCounts& more);

        unsigned long numFiles = 0;
        TextCounts counts;
    };

    void printHeading();

    bool m_showFiles;
    ProgressLine m_progress;
    Sum m_total;
    std::map<std::string, Sum> m_workers;
    unsigned long m_numProblems = 0;
};

}  // namespace worker_pool

#endif
