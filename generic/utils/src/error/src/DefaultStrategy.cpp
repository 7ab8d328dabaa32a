#include <utils/error/DefaultStrategy.h>

#include "internal/LogStream.h"

namespace utils::singleton
{
template class SingletonT<error::DefaultStrategy>;
}

namespace utils::error
{

DefaultStrategy::DefaultStrategy() : StrategyT(Error::STRATEGY_TYPE, "Default Error Strategy", true)
{
}

DefaultStrategy::~DefaultStrategy() = default;

bool DefaultStrategy::isInterested(const Error&)
{
    return false;
}

void DefaultStrategy::processClientObject(Error& error)
{
    writeToLog(error);
}

}  // namespace utils::error
