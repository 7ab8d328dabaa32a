#include "CountFile.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <system_error>
#include <utility>

#include <utils/task/Task.h>

#include "StopSignal.h"

namespace worker_pool
{

namespace
{

class OpenFile
{
  public:
    // Without O_NONBLOCK, a file that has become a pipe since it was found would hold the worker.
    explicit OpenFile(const std::string& path)
        : m_descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
    {
    }
    ~OpenFile()
    {
        if (isOpen())
        {
            close(m_descriptor);
        }
    }

    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }

    bool isRegular() const
    {
        struct stat status = {};
        return fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
    }

    template <std::size_t SIZE>
    ssize_t readBlock(std::array<char, SIZE>& block) const
    {
        return read(m_descriptor, block.data(), block.size());
    }

  private:
    int m_descriptor;
};

std::string lastSystemError()
{
    return std::generic_category().message(errno);
}

// Counts up to the end of the file, or until the program is told to stop.
// @return what went wrong; empty when nothing did
std::string count(const std::string& path, TextCounter& counter)
{
    const OpenFile file(path);
    if (!file.isOpen())
    {
        return lastSystemError();
    }
    if (!file.isRegular())
    {
        return "not a regular file";
    }
    std::array<char, 65536> block;
    ssize_t size = 0;
    while (stopSignal() == 0 && (size = file.readBlock(block)) > 0)
    {
        counter.add({block.data(), static_cast<std::size_t>(size)});
    }
    return size < 0 ? lastSystemError() : "";
}

}  // namespace

CountFile::CountFile(std::shared_ptr<FileJob> job) : Command("CountFile"), m_job(std::move(job)) {}

int CountFile::myExecute()
{
    TextCounter counter;
    m_job->problem = count(m_job->path, counter);
    m_job->counts = counter.getCounts();
    m_job->worker = utils::task::Task::getMyName();
    return stopSignal() == 0 ? 0 : 1;
}

}  // namespace worker_pool
