#ifndef TESTS_SUPPORT_CONFIGDIRECTORY_H
#define TESTS_SUPPORT_CONFIGDIRECTORY_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace test
{

/// A directory of its own with a values file, named by GENERIC_CONFIG_DIR.
///
/// To be made before the first flag exists, since the first flag causes the file to be read. With
/// the empty file that it makes by default, every flag starts from its default and nothing is
/// reported.
///
/// The directory is removed with the object, or by exit(), as in a death test.
class ConfigDirectory
{
  public:
    /// @param values text of the values file
    explicit ConfigDirectory(const std::string& values = "") : m_path(makeDirectory())
    {
        instance() = this;
        std::atexit(removeAtExit);
        writeValues(values);
        setenv("GENERIC_CONFIG_DIR", m_path.c_str(), 1);
    }

    ~ConfigDirectory()
    {
        instance() = nullptr;
        remove();
    }

    ConfigDirectory(const ConfigDirectory&) = delete;
    ConfigDirectory& operator=(const ConfigDirectory&) = delete;

    /// The directory, without a slash at its end.
    const std::string& getPath() const { return m_path; }

    std::string getValuesPath() const { return m_path + "/generic_flags.txt"; }

    /// Replaces the values file.
    void writeValues(const std::string& values) const
    {
        std::ofstream file(getValuesPath(), std::ios::binary);
        file << values;
        if (!file.flush())
        {
            throw std::runtime_error("cannot write " + getValuesPath());
        }
    }

    void removeValues() const { std::filesystem::remove(getValuesPath()); }

  private:
    static std::string makeDirectory()
    {
        std::string path = (std::filesystem::temp_directory_path() / "utils-test-XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr)
        {
            throw std::runtime_error("cannot make " + path);
        }
        return path;
    }

    // The living one; a test has no more than one.
    static ConfigDirectory*& instance()
    {
        static ConfigDirectory* theInstance = nullptr;
        return theInstance;
    }

    static void removeAtExit()
    {
        if (instance() != nullptr)
        {
            instance()->remove();
        }
    }

    void remove() const
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string m_path;
};

}  // namespace test

#endif
