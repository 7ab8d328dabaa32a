// The common commands of IEEE 488.2.

#include <fmt/format.h>

#include "core/CommandTable.h"

namespace instrument
{

namespace
{

void answerNumber(Client& client, unsigned long number)
{
    client.response.add(std::to_string(number));
}

void identify(Client& client, const Arguments&)
{
    client.response.add(fmt::format("generic_utils,Virtual Instrument,0,{}", INSTRUMENT_VERSION));
}

void reset(Client& client, const Arguments&)
{
    client.isCompletionWanted = false;
    client.measurement.reset();
    client.instrument.reset();
}

void clearStatus(Client& client, const Arguments&)
{
    client.isCompletionWanted = false;
    client.status.clear();
}

void readEvents(Client& client, const Arguments&)
{
    answerNumber(client, client.status.takeEvents());
}

void enableEvents(Client& client, const Arguments& arguments)
{
    client.status.setEventEnable(arguments.getByte(0));
}

void readEventEnable(Client& client, const Arguments&)
{
    answerNumber(client, client.status.getEventEnable());
}

void enableService(Client& client, const Arguments& arguments)
{
    client.status.setServiceEnable(arguments.getByte(0));
}

void readServiceEnable(Client& client, const Arguments&)
{
    answerNumber(client, client.status.getServiceEnable());
}

void readStatusByte(Client& client, const Arguments&)
{
    answerNumber(client, client.status.makeStatusByte(!client.response.isEmpty()));
}

void noteCompletion(Client& client, const Arguments&)
{
    if (client.measurement.isRunning())
    {
        client.isCompletionWanted = true;
        return;
    }
    client.status.setEvents(event::OPERATION_COMPLETE);
}

void answerCompletion(Client& client, const Arguments&)
{
    answerNumber(client, 1);
}

void doNothing(Client&, const Arguments&) {}

void testSelf(Client& client, const Arguments&)
{
    const bool isGood = client.instrument.getPool().isRunning();
    answerNumber(client, isGood ? 0 : 1);
}

}  // namespace

void addCommonCommands(CommandTable& table)
{
    constexpr bool WAITS = true;
    table.add({"*IDN?", 0, 0, identify});
    table.add({"*RST", 0, 0, reset});
    table.add({"*CLS", 0, 0, clearStatus});
    table.add({"*ESR?", 0, 0, readEvents});
    table.add({"*ESE", 1, 1, enableEvents});
    table.add({"*ESE?", 0, 0, readEventEnable});
    table.add({"*SRE", 1, 1, enableService});
    table.add({"*SRE?", 0, 0, readServiceEnable});
    table.add({"*STB?", 0, 0, readStatusByte});
    table.add({"*OPC", 0, 0, noteCompletion});
    table.add({"*OPC?", 0, 0, answerCompletion, WAITS});
    table.add({"*WAI", 0, 0, doNothing, WAITS});
    table.add({"*TST?", 0, 0, testSelf});
}

}  // namespace instrument
