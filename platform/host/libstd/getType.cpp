#include <libstd/getType.h>

namespace std
{

template <>
Type getType<short>()
{
    return TYPE_SHORT;
}

template <>
Type getType<unsigned short>()
{
    return TYPE_UNSIGNED_SHORT;
}

template <>
Type getType<int>()
{
    return TYPE_INT;
}

template <>
Type getType<unsigned int>()
{
    return TYPE_UNSIGNED_INT;
}

template <>
Type getType<long>()
{
    return TYPE_LONG;
}

template <>
Type getType<unsigned long>()
{
    return TYPE_UNSIGNED_LONG;
}

template <>
Type getType<long long>()
{
    return TYPE_LONG_LONG;
}

template <>
Type getType<unsigned long long>()
{
    return TYPE_UNSIGNED_LONG_LONG;
}

template <>
Type getType<bool>()
{
    return TYPE_BOOL;
}

template <>
Type getType<float>()
{
    return TYPE_FLOAT;
}

template <>
Type getType<double>()
{
    return TYPE_DOUBLE;
}

template <>
Type getType<string>()
{
    return TYPE_STRING;
}

}  // namespace std
