#include <utils/errError.h>

#include <ctime>

#include <utils/errStrategy.h>
#include <utils/llsCalendarTime.h>
#include <utils/llsUser.h>

#include "internal/EndProcess.h"
#include "internal/NullText.h"
#include "internal/OlderStrategies.h"
#include "internal/TextOutput.h"

namespace utils::err
{

namespace
{
constexpr std::uint32_t NO_CODE = 0xFFFFFFFF;
}  // namespace

Err_Error::Err_Error(const char* file, int line, const char* function, const char* severity,
                     const char* name)
    : m_file(toString(file)),
      m_line(line),
      m_function(toString(function)),
      m_severity(toString(severity)),
      m_name(toString(name)),
      m_user(Lls_User().getName()),
      m_time(Lls_CalendarTime(std::time(nullptr)).getStr()),
      m_errorCode(NO_CODE)
{
}

Err_Error::~Err_Error() = default;

void Err_Error::output(std::ostream& os) const
{
    writeText(os, toText("!([", getErrorCodeStr(), "]", m_severity, "/", m_name, ") by ", m_user,
                         " on ", m_time, ".\n        Generated from ", m_file, "/", m_line, "/",
                         m_function, ":\n"));
}

std::string Err_Error::getString() const
{
    return textOf(*this) + '\0';
}

void Err_Error::exitOnError() const
{
    endProcess();
}

std::string Err_Error::getErrorCodeStr() const
{
    return toText(m_errorCode >> 31, ".", m_errorCode >> 28 & 0x7, ".", m_errorCode >> 16 & 0xFFF,
                  ".", m_errorCode & 0xFFFF);
}

void Err_Error::notifyStrategies(bool recoverable) const
{
    const OlderStrategies<Err_Strategy> strategies;
    if (strategies.isEmpty())
    {
        Err_Strategy::defaultProcessError(*this, recoverable);
        return;
    }
    strategies.forEach(
        [&](Err_Strategy& strategy)
        {
            if (strategy.isInterested(*this, recoverable))
            {
                strategy.processError(*this, recoverable);
            }
        });
}

std::ostream& operator<<(std::ostream& os, const Err_Error& error)
{
    error.output(os);
    return os;
}

}  // namespace utils::err
