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

class TraceRecorder : public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    TraceRecorder() : StrategyT(utils::flag::TraceMsg::STRATEGY_TYPE, PLUGIN_NAME, false) {}

    bool isInterested(const utils::flag::TraceMsg&) override { return true; }

    void processClientObject(utils::flag::TraceMsg& message) override
    {
        std::ostringstream text;
        text << message;
        self().reports.push_back(text.str());
    }
};

class OlderTraceRecorder : public utils::flag::Flag_TraceStrategy
{
  public:
    OlderTraceRecorder() : Flag_TraceStrategy(PLUGIN_NAME) {}

    bool isInterested(const utils::flag::Flag_TraceMsg&) override { return true; }

    void processTrace(const utils::flag::Flag_TraceMsg& message) override
    {
        self().reports.push_back(message.getString());
    }
};

struct State
{
    plugins::Objects objects{PLUGIN_NAME};
    Recorder recorder;
    OlderRecorder olderRecorder;
    TraceRecorder traceRecorder;
    OlderTraceRecorder olderTraceRecorder;
};

std::unique_ptr<State> state;

void start()
{
    state = std::make_unique<State>();
    self().objects = &state->objects;
    self().errorStrategy = &state->recorder;
}

void stop()
{
    self().objects = nullptr;
    self().errorStrategy = nullptr;
    state.reset();
}

void trace(const std::string& text)
{
    GENERIC_UTILS_TRACE(state->objects.flag, 1, text);
}

void traceOlder(const std::string& text)
{
    GENERIC_UTILS_OLDER_TRACE(&state->objects.olderFlag, 1, text);
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
    static plugins::Plugin plugin{start,         stop,           plugins::instances, plugins::types,
                                  plugins::find, report,         reportOlder,        trace,
                                  traceOlder,    plugins::raise, plugins::catchFrom};
    return plugin;
}

}  // namespace

extern "C" GENERIC_UTILS_EXPORT plugins::Plugin* pluginEntry()
{
    return &self();
}
