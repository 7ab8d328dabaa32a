#include <utils/flag/InitialValues.h>

#include <fstream>
#include <locale>
#include <memory>

#include <libdir/DirectoryPaths.h>

#include "flag/src/FlagConstruction.h"
#include "flag/src/InitialText.h"
#include "internal/Report.h"

namespace utils::singleton
{
template class SingletonT<flag::InitialValues>;
}

namespace utils::flag
{

namespace
{

thread_local int theNumReaders = 0;

class Reader
{
  public:
    Reader() { ++theNumReaders; }
    ~Reader() { --theNumReaders; }

    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
};

// The line that the report of an unreadable file has always named.
constexpr int READ_ERROR_LINE = 183;

// The file is opened while the platform's object lives, which may be what keeps the directory there.
// @param path receives where the file is
std::ifstream openFile(std::string& path)
{
    const std::unique_ptr<const libdir::DirectoryPaths> paths(
        libdir::DirectoryPathsFactory::create());
    path = paths->getGenericConfigurationDirectory() + "/generic_flags.txt";
    return std::ifstream(path);
}

void trim(std::string& line)
{
    const std::locale global;
    const auto isSpace = [&global](char character) { return std::isspace(character, global); };
    while (!line.empty() && isSpace(line.back()))
    {
        line.pop_back();
    }
    std::size_t begin = 0;
    while (begin < line.size() && isSpace(line[begin]))
    {
        ++begin;
    }
    line.erase(0, begin);
}

// The next line that is neither blank nor a comment, trimmed; when the file ends or fails, what is
// left.
std::string readSignificantLine(std::istream& file)
{
    std::string line;
    while (std::getline(file, line))
    {
        trim(line);
        if (!line.empty() && line.front() != '#')
        {
            return line;
        }
        line.clear();
    }
    return line;
}

}  // namespace

bool areInitialValuesBeingRead()
{
    return theNumReaders > 0;
}

InitialValues::InitialValues()
{
    const Reader reader;
    const FlagConstruction construction;
    redoInitialValuesCollection();
}

InitialValues::~InitialValues() = default;

void InitialValues::redoInitialValuesCollection()
{
    std::string path;
    std::ifstream file = openFile(path);
    readPairs(file);
    if (!file.eof())
    {
        error::report({__FILE__, READ_ERROR_LINE, __func__}, "Read Error", error::Error::ERROR,
                      "Could not read initial flag values from file '", path,
                      "' - stream read error.");
    }
}

void InitialValues::readPairs(std::istream& file)
{
    while (file)
    {
        const std::string name = readSignificantLine(file);
        std::string value = readSignificantLine(file);
        if (!name.empty())
        {
            m_values[name] = std::move(value);
        }
    }
}

bool InitialValues::getInitialValue(const std::string& name, std::string& value) const
{
    const auto found = m_values.find(name);
    if (found == m_values.end())
    {
        return false;
    }
    value = found->second;
    return true;
}

}  // namespace utils::flag
