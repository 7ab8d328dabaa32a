#include <utils/errStrategy.h>

#include <libos/osError.h>

#include "internal/LogStream.h"
#include "internal/OlderStrategies.h"

namespace utils
{
template class Std_Singleton<std::list<err::Err_Strategy*>>;
}

namespace utils::err
{

Err_Strategy::Err_Strategy(const std::string& name) : m_name(name)
{
    OlderStrategies<Err_Strategy>().add(this);
}

Err_Strategy::~Err_Strategy()
{
    Err_Strategy::cleanUp();
}

void Err_Strategy::cleanUp()
{
    OlderStrategies<Err_Strategy>().remove(this);
}

void Err_Strategy::defaultProcessError(const Err_Error& error, bool recoverable)
{
    setLastError(error.getErrorCode());
    writeToLog(error);
    if (!recoverable)
    {
        error.exitOnError();
    }
}

std::uint32_t Err_Strategy::getLastError()
{
    return osGetLastError();
}

bool Err_Strategy::isError()
{
    return osIsError() != 0;
}

void Err_Strategy::setLastError(std::uint32_t error)
{
    osSetLastError(error);
}

}  // namespace utils::err
