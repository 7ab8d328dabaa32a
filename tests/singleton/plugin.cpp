// Hands out the process-wide objects as a plug-in gets to see them.

#include <map>
#include <string>

#include <utils/error/DefaultStrategy.h>
#include <utils/error/StandardOutStrategy.h>
#include <utils/flag/DefaultStrategy.h>
#include <utils/flag/Flags.h>
#include <utils/flag/InitialValues.h>
#include <utils/singleton/SingletonT.h>

namespace
{

template <typename T>
void* instance()
{
    return utils::singleton::SingletonT<T>::getInstancePtr();
}

}  // namespace

extern "C" {
GENERIC_UTILS_EXPORT void* pluginFlags()
{
    return instance<utils::flag::Flags>();
}

GENERIC_UTILS_EXPORT void* pluginInitialValues()
{
    return instance<utils::flag::InitialValues>();
}

GENERIC_UTILS_EXPORT void* pluginTraceStrategy()
{
    return instance<utils::flag::DefaultStrategy>();
}

GENERIC_UTILS_EXPORT void* pluginErrorStrategy()
{
    return instance<utils::error::DefaultStrategy>();
}

GENERIC_UTILS_EXPORT void* pluginFlagRegistry()
{
    return instance<std::map<std::string, utils::flag::Flag*>>();
}

GENERIC_UTILS_EXPORT void* pluginStrategyRegistry()
{
    return instance<std::map<std::string, utils::strategy::Strategy::StrategyCollectionInfo*>>();
}

// Reports from inside the plug-in, to strategies of the program.
GENERIC_UTILS_EXPORT void pluginReport()
{
    using utils::error::Error;
    Error error("plugin", 1, "pluginReport", "Name", Error::INFO);
    error.getStream() << "from the plug-in";
    utils::strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

GENERIC_UTILS_EXPORT utils::strategy::Strategy* pluginMakeErrorStrategy()
{
    return new utils::error::StandardOutStrategy;
}
}
