#include <utils/flag/FlagT.h>

#include <sstream>

#include <libstd/strToValue.h>
#include <utils/flag/InitialValues.h>

#include "flag/src/FlagConstruction.h"
#include "internal/TextOutput.h"

namespace utils::flag
{

namespace
{

// The text that the initial values file holds for a flag.
bool findInitialText(const std::string& name, std::string& text)
{
    const FlagConstruction construction;
    if (construction.isNested())
    {
        // A strategy that reports the values file as missing makes a flag: the file is just being
        // read.
        return false;
    }
    return singleton::SingletonT<InitialValues>::getInstancePtr()->getInitialValue(name, text);
}

}  // namespace

template <typename T>
FlagT<T>::FlagT(const std::string& name, const T& defaultValue) : Flag(name), m_value(defaultValue)
{
    std::string text;
    if (findInitialText(name, text))
    {
        setValue(std::strToValue<T>(text.c_str(), defaultValue));
    }
}

template <typename T>
FlagT<T>::~FlagT() = default;

template <typename T>
bool FlagT<T>::setValueStr(const std::string& text)
{
    std::istringstream stream(text);
    T value{};
    if (!(stream >> value))
    {
        return false;
    }
    setValue(value);
    return true;
}

template <typename T>
std::string FlagT<T>::getValueStr() const
{
    return toText(getValue());
}

template <typename T>
void FlagT<T>::output(std::ostream& os) const
{
    Flag::output(os);
    writeLine(os, "Value = ", getValue());
}

template class FlagT<bool>;
template class FlagT<int>;
template class FlagT<unsigned long>;
template class FlagT<std::string>;

}  // namespace utils::flag
