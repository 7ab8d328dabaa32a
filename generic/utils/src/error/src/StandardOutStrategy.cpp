#include <utils/error/StandardOutStrategy.h>

#include "internal/LogStream.h"

namespace utils::error
{

StandardOutStrategy::StandardOutStrategy() : StrategyT(Error::STRATEGY_TYPE, "StandardOut", false)
{
}

StandardOutStrategy::~StandardOutStrategy() = default;

bool StandardOutStrategy::isInterested(const Error&)
{
    return true;
}

void StandardOutStrategy::processClientObject(Error& error)
{
    writeToLog(error);
}

}  // namespace utils::error
