#include "flag/src/InitialText.h"

#include <utils/flag/InitialValues.h>

namespace utils::flag
{

bool findInitialText(const std::string& name, std::string& text)
{
    if (areInitialValuesBeingRead())
    {
        // A strategy that reports the values file as missing makes a flag.
        return false;
    }
    return singleton::SingletonT<InitialValues>::getInstancePtr()->getInitialValue(name, text);
}

}  // namespace utils::flag
