#include <libstd/strToValue.h>

#include <locale>
#include <sstream>
#include <type_traits>

namespace std
{

template <typename T>
T strToValue(const char* text, const T& fallback)
{
    if constexpr (is_same_v<T, string>)
    {
        return *text != '\0' ? string(text) : fallback;
    }
    else
    {
        istringstream stream{string(text)};
        stream.imbue(locale::classic());
        T value{};
        return (stream >> value) ? value : fallback;
    }
}

template bool strToValue<bool>(const char*, const bool&);
template float strToValue<float>(const char*, const float&);
template int strToValue<int>(const char*, const int&);
template long strToValue<long>(const char*, const long&);
template unsigned short strToValue<unsigned short>(const char*, const unsigned short&);
template unsigned int strToValue<unsigned int>(const char*, const unsigned int&);
template unsigned long strToValue<unsigned long>(const char*, const unsigned long&);
template string strToValue<string>(const char*, const string&);

}  // namespace std
