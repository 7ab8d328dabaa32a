#include "core/CommandTable.h"

#include <string_view>

namespace instrument
{

namespace
{

// All headers that a header with optional nodes stands for.
std::vector<std::string> expand(std::string_view header)
{
    const std::size_t open = header.find('[');
    if (open == std::string_view::npos)
    {
        return {std::string(header)};
    }
    const std::size_t close = header.find(']', open);
    std::vector<std::string> headers;
    for (const std::string& rest : expand(header.substr(close + 1)))
    {
        const std::string before(header.substr(0, open));
        headers.push_back(before + rest);
        const std::string optional(header.substr(open + 1, close - open - 1));
        headers.push_back(before + optional + rest);
    }
    return headers;
}

CommandTable makeTable()
{
    CommandTable table;
    addCommonCommands(table);
    addSystemCommands(table);
    addMeasurementCommands(table);
    addFormatCommands(table);
    addOutputCommands(table);
    return table;
}

}  // namespace

void CommandTable::add(const CommandDescription& description)
{
    std::string_view header = description.header;
    const bool isQuery = header.ends_with('?');
    if (isQuery)
    {
        // The library's matcher wants the last node of a query in its long form; without the "?"
        // it takes both.
        header.remove_suffix(1);
    }
    for (const std::string& expanded : expand(header))
    {
        m_entries.push_back({utils::scpi::ScpiString(expanded), isQuery, m_descriptions.size()});
    }
    m_descriptions.push_back(description);
}

const CommandDescription* CommandTable::find(const std::string& header, bool isQuery) const
{
    for (const Entry& entry : m_entries)
    {
        if (entry.isQuery == isQuery && entry.header.isCompliant(header))
        {
            return &m_descriptions[entry.index];
        }
    }
    return nullptr;
}

const CommandTable& getCommandTable()
{
    static const CommandTable table = makeTable();
    return table;
}

}  // namespace instrument
