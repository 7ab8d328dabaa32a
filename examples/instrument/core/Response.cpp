#include "core/Response.h"

#include <utility>

#include <fmt/format.h>

#include "core/ScpiError.h"
#include "core/limits.h"

namespace instrument
{

void Response::add(std::string_view answer)
{
    if (m_text.size() + answer.size() >= limits::MAX_RESPONSE)
    {
        m_text = {};
        m_hasAnswer = false;
        throw CommandFailure(ScpiError::QUERY_DEADLOCKED);
    }
    if (m_hasAnswer)
    {
        m_text += ';';
    }
    m_text += answer;
    m_hasAnswer = true;
}

std::string Response::take()
{
    if (m_hasAnswer)
    {
        m_text += '\n';
    }
    m_hasAnswer = false;
    return std::exchange(m_text, {});
}

std::string formatVolts(double volts)
{
    return fmt::format("{:.9E}", volts);
}

std::string quote(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text)
    {
        quoted += character;
        if (character == '"')
        {
            quoted += character;
        }
    }
    quoted += '"';
    return quoted;
}

std::string quoteAll(const std::vector<std::string>& names)
{
    if (names.empty())
    {
        return quote("");
    }
    std::string list;
    for (const std::string& name : names)
    {
        if (!list.empty())
        {
            list += ',';
        }
        list += quote(name);
    }
    return list;
}

std::string makeBlock(std::string_view data)
{
    const std::string length = std::to_string(data.size());
    return fmt::format("#{}{}{}", length.size(), length, data);
}

}  // namespace instrument
