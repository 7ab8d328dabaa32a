#include "support/TemporaryFolder.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace test
{

TemporaryFolder::TemporaryFolder() : m_path(fs::temp_directory_path() / "test.XXXXXX")
{
    if (mkdtemp(m_path.data()) == nullptr)
    {
        throw std::runtime_error("mkdtemp");
    }
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string TemporaryFolder::write(const std::string& name, const std::string& contents) const
{
    const fs::path path = *this / name;
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << contents;
    if (!file.flush())
    {
        throw std::runtime_error(path);
    }
    return path;
}

bool TemporaryFolder::isEmpty() const
{
    return fs::is_empty(m_path);
}

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        throw std::runtime_error(path);
    }
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace test
