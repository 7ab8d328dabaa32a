#ifndef WORKER_POOL_FILEWALK_H
#define WORKER_POOL_FILEWALK_H

#include <filesystem>
#include <functional>
#include <set>
#include <string>

namespace worker_pool
{

/// Finds the regular files in folders, without opening any file.
///
/// Symbolic links are followed when they are named to walk(), not when they are met inside a
/// folder; so a walk cannot go round in circles. It stops early when the program is told to stop.
class FileWalk
{
  public:
    using FileFunction = std::function<void(const std::string& path)>;
    using ProblemFunction = std::function<void(const std::string& path, const std::string& text)>;

    /// @param excludedNames names of files and folders that are passed over inside folders
    /// @param onFile called for every regular file
    /// @param onProblem called for everything that cannot be counted
    FileWalk(std::set<std::string> excludedNames, FileFunction onFile, ProblemFunction onProblem);

    /// Walks a file, or a folder and all that is in it, in the byte-wise order of the names.
    void walk(const std::string& path);

    /// The number of symbolic links that were met and not followed.
    unsigned long getNumLinks() const { return m_numLinks; }

  private:
    void visit(const std::filesystem::path& path, std::filesystem::file_status status,
               const std::error_code& error);
    void visitFolder(const std::filesystem::path& folder);

    std::set<std::string> m_excludedNames;
    FileFunction m_onFile;
    ProblemFunction m_onProblem;
    unsigned long m_numLinks = 0;
    unsigned long m_numVisited = 0;
};

}  // namespace worker_pool

#endif
