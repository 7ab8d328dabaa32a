#ifndef INSTRUMENT_CORE_COMMANDTABLE_H
#define INSTRUMENT_CORE_COMMANDTABLE_H

#include <cstddef>
#include <string>
#include <vector>

#include <utils/scpi/ScpiString.h>

#include "core/Arguments.h"
#include "core/Client.h"

namespace instrument
{

/// What a command does. Answers go to the client's response.
using Handler = void (*)(Client& client, const Arguments& arguments);

/// One command, or one query, of the instrument.
struct CommandDescription
{
    /// As manuals write it, such as "[SENSe:]VOLTage:RANGe?": optional nodes in brackets.
    const char* header;

    std::size_t minParameters;
    std::size_t maxParameters;
    Handler handler;

    /// Whether it waits, before anything else, for the end of the client's acquisition.
    bool waitsForAcquisition = false;

    /// What it does after the end of the acquisition that it has started; null: nothing.
    Handler afterAcquisition = nullptr;
};

/// All commands, found by the headers that clients send.
class CommandTable
{
  public:
    /// Adds a command.
    void add(const CommandDescription& description);

    /// @param header without "?", from the root on, without a colon at its beginning
    /// @return null when there is no such command
    const CommandDescription* find(const std::string& header, bool isQuery) const;

  private:
    // A header with some of its optional nodes.
    struct Entry
    {
        utils::scpi::ScpiString header;
        bool isQuery;
        std::size_t index;
    };

    std::vector<CommandDescription> m_descriptions;
    std::vector<Entry> m_entries;
};

/// The table with all commands of the instrument.
const CommandTable& getCommandTable();

/// @name The parts of that table
/// @{
void addCommonCommands(CommandTable& table);
void addSystemCommands(CommandTable& table);
void addMeasurementCommands(CommandTable& table);
void addFormatCommands(CommandTable& table);
void addOutputCommands(CommandTable& table);
/// @}

}  // namespace instrument

#endif
