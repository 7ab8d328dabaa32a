// A virtual measuring instrument. Begin to read here, then in core/AcquisitionPool.cpp for tasks,
// queues, macros and events, and in core/Session.cpp for what becomes of a message.

#include <signal.h>

#include <exception>
#include <iostream>
#include <optional>

#include <boost/asio/io_context.hpp>

#include "IoExecutor.h"
#include "Options.h"
#include "Script.h"
#include "Server.h"
#include "StopSignals.h"
#include "core/Instrument.h"
#include "core/flagsFile.h"
#include "core/readConfiguration.h"

namespace
{

using namespace instrument;

int serve(boost::asio::io_context& loop, Instrument& device, const Options& options)
{
    Server server(loop, device, options.listenAddress, options.port);
    StopSignals signals(loop, [&server] { server.stop(); });
    std::cout << "instrument: listening on " << server.getEndpoint() << std::endl;
    loop.run();
    return ENDED_IN_ORDER;
}

int runScript(boost::asio::io_context& loop, Instrument& device, const Options& options)
{
    Script script(loop, device, options.script);
    StopSignals signals(loop, [&script] { script.stop(); });
    script.onEnd([&signals] { signals.cancel(); });
    loop.run();
    const std::string problems = script.getProblems();
    std::cerr << problems;
    return problems.empty() ? ENDED_IN_ORDER : FAILED;
}

int run(const Configuration& configuration, const Options& options)
{
    boost::asio::io_context loop;
    IoExecutor executor(loop);
    Instrument device(configuration, executor);
    if (!device.start())
    {
        std::cerr << "instrument: the system has no thread for one of the tasks.\n";
        return FAILED;
    }
    const int status =
        options.script.empty() ? serve(loop, device, options) : runScript(loop, device, options);
    device.finish();
    return status;
}

// @return nothing when the configuration is bad, which has then been told
std::optional<Configuration> configure(const Options& options)
{
    try
    {
        return readConfigurationFile(options.configuration);
    }
    catch (const std::exception& error)
    {
        std::cerr << "instrument: " << error.what() << "\n";
        return std::nullopt;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    try
    {
        Options options;
        if (const auto status = readOptions(argc, argv, options))
        {
            return *status;
        }
        signal(SIGPIPE, SIG_IGN);  // a reader that has gone is told by the write
        readFlags(options.flagsFolder);
        const std::optional<Configuration> configuration = configure(options);
        return configuration ? run(*configuration, options) : BAD_USAGE;
    }
    catch (const std::exception& error)
    {
        std::cerr << "instrument: " << error.what() << "\n";
        return FAILED;
    }
}
