#include <utils/error/Error.h>

#include <ctime>
#include <ostream>

#include <libstd/system.h>
#include <utils/error/DefaultStrategy.h>

#include "internal/EndProcess.h"
#include "internal/TextOutput.h"

namespace utils::strategy
{
template class StrategyT<error::Error>;
}

namespace utils::error
{

// Never destroyed: static destructors and threads that outlive them still report errors.
const std::string& Error::STRATEGY_TYPE = *new std::string("Error");
const std::string& Error::ALREADY_EXISTS = *new std::string("AlreadyExists");
const std::string& Error::DOES_NOT_EXIST = *new std::string("DoesNotExist");
const std::string& Error::INVALID_ARGUMENT = *new std::string("InvalidArgument");
const std::string& Error::NOT_IMPLEMENTED = *new std::string("NotImplemented");
const std::string& Error::NULL_PTR = *new std::string("NullPtr");
const std::string& Error::UNKNOWN_EXCEPTION = *new std::string("UnknownException");

namespace
{
// Registered while the library is loaded, and after the strategy type above.
[[maybe_unused]] const DefaultStrategy* const theDefaultStrategyPtr =
    singleton::SingletonT<DefaultStrategy>::getInstancePtr();
}  // namespace

Error::Error(const char* file, int line, const char* function, const std::string& name,
             const Severity& severity)
    : m_name(name), m_severity(severity)
{
    m_stream.imbue(std::locale::classic());
    appendText(m_stream, toText("!", severityToString(severity), ": ", name, " by ",
                                std::getUserName(), " on ", std::dateTimeToStr(std::time(nullptr)),
                                ".\nGenerated from ", file, "/", line, "/", function, ":\n"));
    if (file == nullptr || function == nullptr)
    {
        m_stream.setstate(std::ios_base::badbit);
    }
}

Error::Error(const Error& other)
    : m_name(other.m_name),
      m_severity(other.m_severity),
      m_stream(other.m_stream.str(), std::ios_base::out | std::ios_base::ate)
{
    m_stream.imbue(std::locale::classic());
}

Error& Error::operator=(const Error& other)
{
    if (this != &other)
    {
        m_name = other.m_name;
        m_severity = other.m_severity;
        m_stream =
            std::ostringstream(other.m_stream.str(), std::ios_base::out | std::ios_base::ate);
        m_stream.imbue(std::locale::classic());
    }
    return *this;
}

Error::~Error() = default;

void Error::output(std::ostream& os)
{
    writeText(os, m_stream.view());
}

std::string Error::severityToString(const Severity& severity)
{
    switch (severity)
    {
        case INFO:
            return "INFO";
        case WARNING:
            return "WARNING";
        case ERROR:
            return "ERROR";
        case CRITICAL:
            return "CRITICAL";
        case FATAL:
            return "FATAL";
    }
    return "UNKNOWN";
}

void Error::throwError()
{
    endProcess();
}

std::ostream& operator<<(std::ostream& os, const Error& error)
{
    const_cast<Error&>(error).output(os);
    return os;
}

}  // namespace utils::error
