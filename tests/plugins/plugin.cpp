// A plug-in as an application might build it: hidden symbols, and none that the loader unifies.
// It is built twice; PLUGIN_NAME tells the two apart.

#include "Plugin.h"

#include <memory>

namespace
{

plugins::Plugin& self();

class Recorder : public utils::strategy::StrategyT<utils::error::Error>
{
  public:
    Recorder() : StrategyT(utils::error::Error::STRATEGY_TYPE, PLUGIN_NAME, false) {}

    bool isInterested(const utils::error::Error&) override { return true; }

    void processClientObject(utils::error::Error& error) override
    {
        self().reports.push_back(error.getName() + ": " + error.getStream().str());
    }
};

class OlderRecorder : public utils::err::Err_Strategy
{
  public:
    OlderRecorder() : Err_Strategy(PLUGIN_NAME) {}

    bool isInterested(const utils::err::Err_Error&, bool) const override { return true; }

    bool processError(const utils::err::Err_Error& error, bool) override
    {
        self().reports.push_back(error.getName());
        return true;
    }
};

struct Objects
{
    utils::flag::FlagT<int> flag{PLUGIN_NAME ".flag", 7};
    utils::flag::Flag_Flag<int> olderFlag{PLUGIN_NAME ".olderFlag", 7};
    utils::queue::Queue queue{PLUGIN_NAME ".queue", 8};
    utils::task::Task task{PLUGIN_NAME ".task", nullptr, 8};
    utils::Gs_Aspect aspect{PLUGIN_NAME ".aspect"};
    Recorder recorder;
    OlderRecorder olderRecorder;
};

std::unique_ptr<Objects> objects;

void start()
{
    objects = std::make_unique<Objects>();
    self().flag = &objects->flag;
    self().olderFlag = &objects->olderFlag;
    self().queue = &objects->queue;
    self().task = &objects->task;
    self().aspect = &objects->aspect;
    self().errorStrategy = &objects->recorder;
}

void stop()
{
    objects.reset();
}

void report(const std::string& text)
{
    using utils::error::Error;
    Error error(PLUGIN_NAME, 1, "report", text, Error::INFO);
    utils::strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

void reportOlder(const std::string& text)
{
    const utils::err::Err_Error error(PLUGIN_NAME, 1, "reportOlder", "Info", text.c_str());
    error.notifyStrategies(true);
}

plugins::Plugin& self()
{
    static plugins::Plugin plugin{start,
                                  stop,
                                  plugins::instances,
                                  plugins::types,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  {},
                                  report,
                                  reportOlder,
                                  plugins::raise,
                                  plugins::catchFrom};
    return plugin;
}

}  // namespace

extern "C" GENERIC_UTILS_EXPORT plugins::Plugin* pluginEntry()
{
    return &self();
}
