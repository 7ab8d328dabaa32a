#include "internal/SystemLog.h"

#include <syslog.h>

#include <locale>

namespace utils
{

namespace
{

struct Priority
{
    const char* severity;
    int priority;
};

constexpr Priority PRIORITIES[] = {
    {"fatal", LOG_CRIT},      {"critical", LOG_CRIT}, {"error", LOG_ERR},
    {"warning", LOG_WARNING}, {"info", LOG_INFO},     {"debug", LOG_DEBUG},
};

std::string toLower(std::string text)
{
    const std::locale global;
    std::use_facet<std::ctype<char>>(global).tolower(text.data(), text.data() + text.size());
    return text;
}

int findPriority(const std::string& severity)
{
    const std::string word = toLower(severity);
    for (const Priority& entry : PRIORITIES)
    {
        if (word == entry.severity)
        {
            return entry.priority;
        }
    }
    return LOG_NOTICE;
}

}  // namespace

void writeToSystemLog(const std::string& severity, const std::string& text)
{
    syslog(findPriority(severity), "%s", text.c_str());
}

}  // namespace utils
