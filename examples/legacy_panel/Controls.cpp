#include "Controls.h"

#include <charconv>
#include <optional>

#include <utils/errObjectDoesNotExistError.h>

namespace legacy_panel
{

namespace
{

constexpr bool RECOVERABLE = true;

// A whole number, and nothing behind it.
std::optional<int> toNumber(const std::string& text)
{
    const char* const end = text.data() + text.size();
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

bool Controls::execute(const std::string& command)
{
    const std::size_t equals = command.find('=');
    const bool isKnown = equals == std::string::npos
                             ? press(command)
                             : turn(command.substr(0, equals), command.substr(equals + 1));
    if (!isKnown)
    {
        const utils::err::Err_ObjectDoesNotExistError error(__FILE__, __LINE__, __func__,
                                                            command.c_str());
        error.notifyStrategies(RECOVERABLE);
    }
    return isKnown;
}

bool Controls::press(const std::string& button)
{
    if (button == "on" || button == "off")
    {
        m_source.switchTo(button == "on");
        return true;
    }
    if (button == "tick")
    {
        m_machine.tick();
        return true;
    }
    return false;
}

bool Controls::turn(const std::string& knob, const std::string& position)
{
    const std::optional<int> number = toNumber(position);
    if (!number)
    {
        return false;
    }
    if (knob == "tune")
    {
        m_source.tune(*number);
        return true;
    }
    if (knob == "level")
    {
        m_source.setLevel(*number);
        return true;
    }
    return false;
}

}  // namespace legacy_panel
