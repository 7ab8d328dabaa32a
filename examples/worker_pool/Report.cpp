#include "Report.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "printableName.h"

namespace worker_pool
{

namespace
{

// Of the columns; longer contents push the rest of their line to the right.
constexpr int NUMBER_WIDTH = 10;
constexpr int NAME_WIDTH = 48;

constexpr double BYTES_PER_MEGABYTE = 1e6;

// Shorter than any clock here can tell; keeps the rates finite.
constexpr double MIN_SECONDS = 1e-9;

std::string numbers(const TextCounts& counts)
{
    std::ostringstream text;
    text << std::setw(NUMBER_WIDTH) << counts.lines << ' '  //
         << std::setw(NUMBER_WIDTH) << counts.words << ' '  //
         << std::setw(NUMBER_WIDTH) << counts.bytes << "  ";
    return text.str();
}

std::string files(unsigned long number)
{
    return std::to_string(number) + (number == 1 ? " file" : " files");
}

std::string megabytes(double bytes)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << bytes / BYTES_PER_MEGABYTE << " MB";
    return text.str();
}

}  // namespace

void Report::Sum::add(const TextCounts& more)
{
    ++numFiles;
    counts.lines += more.lines;
    counts.words += more.words;
    counts.bytes += more.bytes;
}

Report::Report(bool showFiles, bool showProgress) : m_showFiles(showFiles), m_progress(showProgress)
{
}

void Report::addWorker(const std::string& name)
{
    m_workers[name];
}

void Report::addFile(const std::string& path, const TextCounts& counts, const std::string& worker)
{
    if (m_showFiles)
    {
        m_progress.clear();
        printHeading();
        std::cout << numbers(counts) << std::left << std::setw(NAME_WIDTH) << printableName(path)
                  << std::right << "  " << worker << std::endl;
    }
    m_total.add(counts);
    m_workers[worker].add(counts);
    m_progress.show(files(m_total.numFiles) + ", " +
                    megabytes(static_cast<double>(m_total.counts.bytes)));
}

void Report::printHeading()
{
    if (m_total.numFiles == 0)
    {
        std::cout << std::setw(NUMBER_WIDTH) << "lines" << ' '  //
                  << std::setw(NUMBER_WIDTH) << "words" << ' '  //
                  << std::setw(NUMBER_WIDTH) << "bytes"
                  << "  " << std::left << std::setw(NAME_WIDTH) << "file" << std::right
                  << "  worker\n";
    }
}

void Report::addProblem(const std::string& path, const std::string& problem)
{
    m_progress.clear();
    std::cerr << "worker_pool: " + printableName(path) + ": " + problem + "\n";
    ++m_numProblems;
}

void Report::printSummary(double seconds)
{
    m_progress.clear();
    std::cout << numbers(m_total.counts) << "total of " << files(m_total.numFiles) << "\n";
    for (const auto& [worker, sum] : m_workers)
    {
        std::cout << numbers(sum.counts) << worker << ", " << files(sum.numFiles) << "\n";
    }
    const double duration = std::max(seconds, MIN_SECONDS);
    std::cout << std::fixed << std::setprecision(3) << duration
              << " s: " << megabytes(static_cast<double>(m_total.counts.bytes) / duration) << "/s, "
              << std::setprecision(0) << static_cast<double>(m_total.numFiles) / duration
              << " files/s" << std::endl;
}

}  // namespace worker_pool
