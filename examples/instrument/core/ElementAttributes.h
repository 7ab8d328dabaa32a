#ifndef INSTRUMENT_CORE_ELEMENTATTRIBUTES_H
#define INSTRUMENT_CORE_ELEMENTATTRIBUTES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace instrument
{

/// The attributes of one element of the configuration, each of which is taken once. All operations
/// throw ConfigurationError, with the place of the attribute or else of the element.
class ElementAttributes
{
  public:
    /// A value, and where its attribute is.
    struct Text
    {
        std::string value;
        std::size_t offset;
    };

    /// Begins with an element that has none.
    void reset(const std::string& element, std::size_t offset);

    /// Adds one; it is an error when there is another of that name.
    void add(const std::string& name, const std::string& value, std::size_t offset);

    /// Takes an attribute that has to be there.
    Text takeText(const std::string& name);

    /// Takes an identifier: a letter, then letters, digits and "_", at most 32 characters.
    Text takeIdentifier(const std::string& name);

    /// Takes a number.
    double takeNumber(const std::string& name, double minimum, double maximum);
    double takeNumber(const std::string& name, double minimum, double maximum, double otherwise);

    /// Takes a number without sign and fraction.
    std::uint64_t takeWhole(const std::string& name, std::uint64_t minimum, std::uint64_t maximum);
    std::uint64_t takeWhole(const std::string& name, std::uint64_t minimum, std::uint64_t maximum,
                            std::uint64_t otherwise);

    /// Takes "yes" or "no".
    bool takeBool(const std::string& name, bool otherwise);

    /// It is an error when there is one that was not taken.
    void requireNone() const;

    std::size_t getElementOffset() const { return m_elementOffset; }

  private:
    struct Attribute
    {
        std::string name;
        Text text;
    };

    std::optional<Text> take(const std::string& name);

    std::string m_element;
    std::size_t m_elementOffset = 0;
    std::vector<Attribute> m_attributes;
};

}  // namespace instrument

#endif
