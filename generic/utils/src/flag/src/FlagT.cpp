#include <utils/flag/FlagT.h>

#include <locale>
#include <sstream>

#include <libstd/strToValue.h>

#include "flag/src/InitialText.h"
#include "internal/TextOutput.h"

namespace utils::flag
{

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
    stream.imbue(std::locale::classic());  // as getValueStr() writes
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
