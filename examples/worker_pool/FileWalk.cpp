#include "FileWalk.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "StopSignal.h"

namespace fs = std::filesystem;

namespace worker_pool
{

namespace
{

const char* describe(fs::file_type type)
{
    switch (type)
    {
        case fs::file_type::fifo:
            return "not a regular file (a named pipe)";
        case fs::file_type::socket:
            return "not a regular file (a socket)";
        case fs::file_type::block:
        case fs::file_type::character:
            return "not a regular file (a device)";
        default:
            return "not a regular file";
    }
}

// The contents of a folder in the order of their names, whatever the file system's order.
std::vector<fs::path> list(const fs::path& folder, std::error_code& error)
{
    std::vector<fs::path> paths;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
    {
        paths.push_back(entry->path());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

}  // namespace

FileWalk::FileWalk(std::set<std::string> excludedNames, FileFunction onFile,
                   ProblemFunction onProblem)
    : m_excludedNames(std::move(excludedNames)),
      m_onFile(std::move(onFile)),
      m_onProblem(std::move(onProblem))
{
}

void FileWalk::walk(const std::string& path)
{
    const unsigned long numVisitedBefore = m_numVisited;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    visit(path, status, error);
    if (m_numVisited == numVisitedBefore && stopSignal() == 0)
    {
        m_onProblem(path, "no files in this folder");
    }
}

void FileWalk::visit(const fs::path& path, fs::file_status status, const std::error_code& error)
{
    if (!error && fs::is_directory(status))
    {
        visitFolder(path);
        return;
    }
    if (!error && fs::is_symlink(status))
    {
        ++m_numLinks;
        return;
    }
    ++m_numVisited;
    if (error)
    {
        m_onProblem(path, error.message());
    }
    else if (!fs::is_regular_file(status))
    {
        m_onProblem(path, describe(status.type()));
    }
    else
    {
        m_onFile(path);
    }
}

void FileWalk::visitFolder(const fs::path& folder)
{
    std::error_code error;
    const std::vector<fs::path> paths = list(folder, error);
    if (error)
    {
        ++m_numVisited;
        m_onProblem(folder, error.message());
    }
    for (const fs::path& path : paths)
    {
        if (stopSignal() != 0)
        {
            return;
        }
        if (!m_excludedNames.contains(path.filename()))
        {
            const fs::file_status status = fs::symlink_status(path, error);
            visit(path, status, error);
        }
    }
}

}  // namespace worker_pool
