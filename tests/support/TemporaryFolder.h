#ifndef TESTS_SUPPORT_TEMPORARYFOLDER_H
#define TESTS_SUPPORT_TEMPORARYFOLDER_H

#include <string>

namespace test
{

/// A folder of its own for a test; removed at the end with all that is in it.
class TemporaryFolder
{
  public:
    TemporaryFolder();
    ~TemporaryFolder();

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The path of something in the folder.
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }

    const std::string& getPath() const { return m_path; }

    /// Makes a file, and the folders on the way to it.
    /// @return its path
    std::string write(const std::string& name, const std::string& contents) const;

    bool isEmpty() const;

  private:
    std::string m_path;
};

/// The contents of a file.
std::string readFile(const std::string& path);

}  // namespace test

#endif
