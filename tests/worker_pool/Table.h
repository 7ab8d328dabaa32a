#ifndef TESTS_WORKER_POOL_TABLE_H
#define TESTS_WORKER_POOL_TABLE_H

#include <cstdint>
#include <map>
#include <ostream>
#include <sstream>
#include <string>

namespace test
{

/// Lines, words and bytes.
struct Counts
{
    std::uint64_t lines = 0;
    std::uint64_t words = 0;
    std::uint64_t bytes = 0;

    Counts& operator+=(const Counts& more)
    {
        lines += more.lines;
        words += more.words;
        bytes += more.bytes;
        return *this;
    }
    bool operator==(const Counts&) const = default;
};

inline std::ostream& operator<<(std::ostream& os, const Counts& counts)
{
    return os << counts.lines << " lines, " << counts.words << " words, " << counts.bytes
              << " bytes";
}

/// What the worker pool has printed, read again. File names hold no blanks.
struct Table
{
    explicit Table(const std::string& output)
    {
        std::istringstream lines(output);
        for (std::string line; std::getline(lines, line);)
        {
            std::istringstream fields(line);
            Counts counts;
            std::string name;
            std::string second;
            if (fields >> counts.lines >> counts.words >> counts.bytes >> name >> second)
            {
                add(name, second, counts, fields);
            }
        }
    }

    std::map<std::string, Counts> files;
    std::map<std::string, Counts> workers;  ///< by name
    std::map<std::string, std::uint64_t> filesOfWorkers;
    Counts total;
    std::uint64_t numFiles = 0;  ///< as said in the line of the total

  private:
    void add(const std::string& name, const std::string& second, const Counts& counts,
             std::istream& fields)
    {
        if (name == "total")
        {
            total = counts;
            fields >> numFiles;
        }
        else if (name.back() == ',')
        {
            const std::string worker = name.substr(0, name.size() - 1);
            workers[worker] = counts;
            filesOfWorkers[worker] = std::stoull(second);
        }
        else
        {
            files[name] = counts;
        }
    }
};

}  // namespace test

#endif
