#include "flag/src/InitialText.h"

#include <utils/flag/InitialValues.h>

#include "flag/src/FlagConstruction.h"

namespace utils::flag
{

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

}  // namespace utils::flag
