#include "core/ElementAttributes.h"

#include <algorithm>
#include <charconv>

#include <fmt/format.h>

#include "core/ConfigurationError.h"

namespace instrument
{

namespace
{

constexpr const char* LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr const char* IDENTIFIER_CHARACTERS =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
constexpr std::size_t MAX_IDENTIFIER = 32;

template <typename T>
T convert(const std::string& name, const ElementAttributes::Text& text, T minimum, T maximum)
{
    T value = 0;
    const char* const end = text.value.data() + text.value.size();
    const auto [rest, error] = std::from_chars(text.value.data(), end, value);
    if (error != std::errc() || rest != end)
    {
        throw ConfigurationError(
            text.offset, fmt::format("attribute '{}': '{}' is not a number", name, text.value));
    }
    if (!(value >= minimum && value <= maximum))
    {
        throw ConfigurationError(text.offset, fmt::format("attribute '{}': {} is not in {} ... {}",
                                                          name, text.value, minimum, maximum));
    }
    return value;
}

}  // namespace

void ElementAttributes::reset(const std::string& element, std::size_t offset)
{
    m_element = element;
    m_elementOffset = offset;
    m_attributes.clear();
}

void ElementAttributes::add(const std::string& name, const std::string& value, std::size_t offset)
{
    const bool isThere = std::any_of(m_attributes.begin(), m_attributes.end(),
                                     [&](const Attribute& other) { return other.name == name; });
    if (isThere)
    {
        throw ConfigurationError(offset, fmt::format("attribute '{}' is there twice", name));
    }
    m_attributes.push_back({name, {value, offset}});
}

std::optional<ElementAttributes::Text> ElementAttributes::take(const std::string& name)
{
    const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [&](const Attribute& other) { return other.name == name; });
    if (found == m_attributes.end())
    {
        return std::nullopt;
    }
    Text text = found->text;
    m_attributes.erase(found);
    return text;
}

ElementAttributes::Text ElementAttributes::takeText(const std::string& name)
{
    std::optional<Text> text = take(name);
    if (!text)
    {
        throw ConfigurationError(
            m_elementOffset, fmt::format("element '{}' has no attribute '{}'", m_element, name));
    }
    return *text;
}

ElementAttributes::Text ElementAttributes::takeIdentifier(const std::string& name)
{
    Text text = takeText(name);
    const bool isWord = text.value.find_first_of(LETTERS) == 0 &&
                        text.value.find_first_not_of(IDENTIFIER_CHARACTERS) == std::string::npos;
    if (!isWord || text.value.size() > MAX_IDENTIFIER)
    {
        throw ConfigurationError(
            text.offset,
            fmt::format("attribute '{}': '{}' is not a letter and up to {} letters, digits and '_'",
                        name, text.value, MAX_IDENTIFIER - 1));
    }
    return text;
}

double ElementAttributes::takeNumber(const std::string& name, double minimum, double maximum)
{
    return convert(name, takeText(name), minimum, maximum);
}

double ElementAttributes::takeNumber(const std::string& name, double minimum, double maximum,
                                     double otherwise)
{
    const std::optional<Text> text = take(name);
    return text ? convert(name, *text, minimum, maximum) : otherwise;
}

std::uint64_t ElementAttributes::takeWhole(const std::string& name, std::uint64_t minimum,
                                           std::uint64_t maximum)
{
    return convert(name, takeText(name), minimum, maximum);
}

std::uint64_t ElementAttributes::takeWhole(const std::string& name, std::uint64_t minimum,
                                           std::uint64_t maximum, std::uint64_t otherwise)
{
    const std::optional<Text> text = take(name);
    return text ? convert(name, *text, minimum, maximum) : otherwise;
}

bool ElementAttributes::takeBool(const std::string& name, bool otherwise)
{
    const std::optional<Text> text = take(name);
    if (!text)
    {
        return otherwise;
    }
    if (text->value != "yes" && text->value != "no")
    {
        throw ConfigurationError(
            text->offset, fmt::format("attribute '{}': '{}' is not yes or no", name, text->value));
    }
    return text->value == "yes";
}

void ElementAttributes::requireNone() const
{
    if (!m_attributes.empty())
    {
        const Attribute& first = m_attributes.front();
        throw ConfigurationError(
            first.text.offset,
            fmt::format("element '{}' does not have an attribute '{}'", m_element, first.name));
    }
}

}  // namespace instrument
