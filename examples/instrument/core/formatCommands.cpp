// FORMat: how waveforms are answered.

#include "core/CommandTable.h"

namespace instrument
{

namespace
{

using utils::scpi::ScpiString;

void setFormat(Client& client, const Arguments& arguments)
{
    const std::string& format = arguments.getText(0, Parameter::Type::WORD);
    const bool isReal = isWord(format, ScpiString("real"));
    if (!isReal && !isWord(format, ScpiString("ascii")))
    {
        throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
    }
    if (arguments.size() == 2)
    {
        // The length: bits of a number, digits of a text (0: the instrument's own choice).
        const double length = isReal ? 64 : 0;
        arguments.getNumber(1, {length, length, length});
    }
    client.measurement.setBinary(isReal);
}

void answerFormat(Client& client, const Arguments&)
{
    client.response.add(client.measurement.isBinary() ? "REAL" : "ASC");
}

// There is one order of bytes.
void setByteOrder(Client&, const Arguments& arguments)
{
    if (!isWord(arguments.getText(0, Parameter::Type::WORD), ScpiString("swapped")))
    {
        throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
    }
}

void answerByteOrder(Client& client, const Arguments&)
{
    client.response.add("SWAP");
}

}  // namespace

void addFormatCommands(CommandTable& table)
{
    table.add({"FORMat[:DATA]", 1, 2, setFormat});
    table.add({"FORMat[:DATA]?", 0, 0, answerFormat});
    table.add({"FORMat:BORDer", 1, 1, setByteOrder});
    table.add({"FORMat:BORDer?", 0, 0, answerByteOrder});
}

}  // namespace instrument
