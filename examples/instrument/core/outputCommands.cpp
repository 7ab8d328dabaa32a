// OUTPut, and INTerlock, which guards it.

#include "core/CommandTable.h"

namespace instrument
{

namespace
{

void switchOutput(Client& client, const Arguments& arguments)
{
    Output& output = client.instrument.getOutput();
    if (!arguments.getBool(0))
    {
        output.switchOff();
        return;
    }
    if (!output.switchOn())
    {
        throw CommandFailure(ScpiError::SETTINGS_CONFLICT);
    }
}

void answerOutput(Client& client, const Arguments&)
{
    client.response.add(client.instrument.getOutput().isOn() ? "1" : "0");
}

void setState(Client& client, const Arguments& arguments)
{
    const std::string& name = arguments.getText(0, Parameter::Type::STRING);
    const bool isSet = arguments.getBool(1);
    if (!client.instrument.getInterlocks().setState(name, isSet))
    {
        throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
    }
}

void answerState(Client& client, const Arguments& arguments)
{
    const std::string& name = arguments.getText(0, Parameter::Type::STRING);
    const std::optional<bool> isSet = client.instrument.getInterlocks().getState(name);
    if (!isSet)
    {
        throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
    }
    client.response.add(*isSet ? "1" : "0");
}

void answerStates(Client& client, const Arguments&)
{
    client.response.add(quoteAll(client.instrument.getInterlocks().getStateNames()));
}

void answerTripped(Client& client, const Arguments&)
{
    client.response.add(quoteAll(client.instrument.getInterlocks().findTripped()));
}

}  // namespace

void addOutputCommands(CommandTable& table)
{
    table.add({"OUTPut[:STATe]", 1, 1, switchOutput});
    table.add({"OUTPut[:STATe]?", 0, 0, answerOutput});
    table.add({"INTerlock:STATe", 2, 2, setState});
    table.add({"INTerlock:STATe?", 1, 1, answerState});
    table.add({"INTerlock:CATalog?", 0, 0, answerStates});
    table.add({"INTerlock:TRIPped?", 0, 0, answerTripped});
}

}  // namespace instrument
