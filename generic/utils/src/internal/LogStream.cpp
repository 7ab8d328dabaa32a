#include "internal/LogStream.h"

#include <iostream>
#include <string>

#include "internal/TextOutput.h"
#include "utils/lock/Lock.h"
#include "utils/singleton/NeverDestroyed.h"

namespace utils
{

void writeLogLine(std::string_view text)
{
    static singleton::NeverDestroyed<COsMutex> mutex;

    std::string line;
    line.reserve(text.size() + 1);
    line.append(text).push_back('\n');

    const lock::Lock guard(mutex.get());
    writeText(std::clog, line);
    std::clog.flush();
}

}  // namespace utils
