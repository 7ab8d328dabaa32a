#include "flagsFile.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <utils/command/Flags.h>
#include <utils/queue/Flags.h>
#include <utils/singleton/SingletonT.h>
#include <utils/task/Flags.h>

namespace fs = std::filesystem;

namespace worker_pool
{

namespace
{

constexpr const char* FOLDER_VARIABLE = "GENERIC_CONFIG_DIR";
constexpr const char* FILE_NAME = "generic_flags.txt";

class TemporaryFolder
{
  public:
    TemporaryFolder() : m_path(fs::temp_directory_path() / "worker_pool.XXXXXX")
    {
        if (mkdtemp(m_path.data()) == nullptr)
        {
            throw std::system_error(errno, std::generic_category(), m_path);
        }
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& getPath() const { return m_path; }

  private:
    std::string m_path;
};

// The folder of the file to start from.
fs::path flagsFolder()
{
    if (const char* const folder = getenv(FOLDER_VARIABLE))
    {
        return folder;
    }
    const fs::path besideTheSource = WORKER_POOL_SOURCE_FOLDER;
    const bool isBuiltHere = fs::exists(besideTheSource / FILE_NAME);
    return isBuiltHere ? besideTheSource : fs::path(WORKER_POOL_INSTALLED_FOLDER);
}

// A copy of a flags file with more at its end: the last value of a flag counts.
void writeFlags(const fs::path& original, const fs::path& copy, const TraceLevels& levels)
{
    std::ofstream file(copy);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    if (std::ifstream start(original); start && start.peek() != std::ifstream::traits_type::eof())
    {
        file << start.rdbuf();
    }
    for (const auto& [flag, level] : levels)
    {
        file << "\n" << flag << "\n" << level;
    }
    file << std::endl;
}

// The first flag of the process reads the file.
void makeFlags(const fs::path& folder)
{
    setenv(FOLDER_VARIABLE, folder.c_str(), 1);
    utils::singleton::SingletonT<utils::command::Flags>::getInstancePtr();
    utils::singleton::SingletonT<utils::queue::Flags>::getInstancePtr();
    utils::singleton::SingletonT<utils::task::Flags>::getInstancePtr();
}

}  // namespace

void readFlags(const TraceLevels& levels)
{
    if (levels.empty())
    {
        makeFlags(flagsFolder());
        return;
    }
    // Gone again as soon as the file has been read, so that it is not left behind however the
    // program ends.
    const TemporaryFolder folder;
    writeFlags(flagsFolder() / FILE_NAME, fs::path(folder.getPath()) / FILE_NAME, levels);
    makeFlags(folder.getPath());
}

}  // namespace worker_pool
