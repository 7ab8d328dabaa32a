#include <utils/flagFlag.h>

#include <locale>
#include <sstream>

#include <libstd/getType.h>
#include <libstd/strToValue.h>

#include "flag/src/InitialText.h"
#include "internal/TextOutput.h"

namespace utils::flag
{

namespace
{

template <typename T>
bool isHexadecimal(const std::string& text)
{
    constexpr int firstInteger = 1;
    constexpr int lastInteger = 8;
    const int type = std::getType<T>();
    return type >= firstInteger && type <= lastInteger && text.compare(0, 2, "0x") == 0;
}

}  // namespace

template <typename T>
Flag_Flag<T>::Flag_Flag(const std::string& name, const T& defaultValue)
    : Flag_FlagBase(name), m_value(defaultValue)
{
    std::string text;
    if (findInitialText(name, text))
    {
        m_value = std::strToValue<T>(text.c_str(), defaultValue);
    }
}

template <typename T>
Flag_Flag<T>::~Flag_Flag() = default;

template <typename T>
bool Flag_Flag<T>::setValueStr(const std::string& text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());  // as getValueStr() writes
    if (isHexadecimal<T>(text))
    {
        stream >> std::hex;
    }
    T value{};
    if (!(stream >> value))
    {
        return false;
    }
    setValue(value);
    return true;
}

template <typename T>
std::ostream& Flag_Flag<T>::output(std::ostream& os) const
{
    Flag_FlagBase::output(os);
    writeText(os, "Value (" + getValueStr() + ") ");
    return os;
}

template <typename T>
std::string Flag_Flag<T>::getValueStr() const
{
    return toText(getValue());
}

template <typename T>
void Flag_Flag<T>::setValue(const T& value)
{
    if constexpr (std::is_arithmetic_v<T>)
    {
        // The library may be reading the value on another thread.
        T copy = value;
        __atomic_store(&m_value, &copy, __ATOMIC_RELAXED);
    }
    else
    {
        m_value = value;
    }
}

template <typename T>
const T& Flag_Flag<T>::getValue() const
{
    return m_value;
}

template class Flag_Flag<bool>;
template class Flag_Flag<float>;
template class Flag_Flag<int>;
template class Flag_Flag<long>;
template class Flag_Flag<unsigned short>;
template class Flag_Flag<unsigned int>;
template class Flag_Flag<unsigned long>;
template class Flag_Flag<std::string>;

}  // namespace utils::flag
