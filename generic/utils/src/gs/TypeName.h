#ifndef GENERIC_UTILS_GS_TYPENAME_H
#define GENERIC_UTILS_GS_TYPENAME_H

#include <string>
#include <typeinfo>

#include <utils/singleton/NeverDestroyed.h>

namespace utils
{

/// The run-time type name of an object, in the one string of its base class Base, which each call
/// overwrites. The string is never destroyed: objects say their names also while the process ends.
template <typename Base>
const std::string& typeName(const Base& object)
{
    static singleton::NeverDestroyed<std::string> name;
    name.get() = typeid(object).name();
    return name.get();
}

}  // namespace utils

#endif
