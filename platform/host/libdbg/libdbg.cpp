#include <errno.h>
#include <libdbg/libdbg.h>
#include <pthread.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <charconv>
#include <string>

namespace
{

int readLevel()
{
    const char* const text = getenv("GENERIC_DBG_LEVEL");
    if (text == nullptr)
    {
        return 0;
    }
    const char* const end = text + strlen(text);
    int level = 0;
    const auto result = std::from_chars(text, end, level);
    return result.ec == std::errc() && result.ptr == end ? level : 0;
}

/// Recursive, because a record's own words may write another record while they are being put
/// together.
pthread_mutex_t recordMutex = PTHREAD_RECURSIVE_MUTEX_INITIALIZER_NP;

const char* orUnknown(const char* text)
{
    return text != nullptr ? text : "?";
}

std::string recordHeader()
{
    std::string header;
    header.append("[").append(std::to_string(_dbg_type)).append("] ");
    header.append(orUnknown(_dbg_filename)).append(":").append(std::to_string(_dbg_line));
    return header.append(" ").append(orUnknown(_dbg_function)).append(": ");
}

void writeWhole(const std::string& text)
{
    size_t done = 0;
    while (done < text.size())
    {
        const ssize_t written = write(STDERR_FILENO, text.data() + done, text.size() - done);
        if (written < 0 && errno != EINTR)
        {
            return;
        }
        done += written > 0 ? static_cast<size_t>(written) : 0;
    }
}

}  // namespace

int _dbg_level = readLevel();
int _dbg_type = 0;
const char* _dbg_filename = nullptr;
int _dbg_line = 0;
const char* _dbg_function = nullptr;

void _dbg_lock(int)
{
    pthread_mutex_lock(&recordMutex);
}

void _dbg_trace(const char* format, ...)
{
    const int callersErrno = errno;
    std::string record = recordHeader();
    char* words = nullptr;
    va_list arguments;
    va_start(arguments, format);
    const bool hasWords = vasprintf(&words, format, arguments) >= 0;
    va_end(arguments);
    if (hasWords)
    {
        record.append(words);
        free(words);
    }
    record += '\n';
    writeWhole(record);
    pthread_mutex_unlock(&recordMutex);
    errno = callersErrno;
}
