#include <utils/errStandardOutStrategy.h>

#include "internal/LogStream.h"

namespace utils::err
{

StandardOutStrategy::StandardOutStrategy() : Err_Strategy("StandardOut") {}

StandardOutStrategy::~StandardOutStrategy() = default;

bool StandardOutStrategy::processError(const Err_Error& error, bool)
{
    writeToLog(error);
    return true;
}

bool StandardOutStrategy::isInterested(const Err_Error&, bool) const
{
    return true;
}

}  // namespace utils::err
