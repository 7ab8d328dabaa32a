#include "core/flagsFile.h"

#include <stdlib.h>

#include <fstream>
#include <map>

#include <utils/command/Flags.h>
#include <utils/flag/Flags.h>
#include <utils/flag/InitialValues.h>
#include <utils/logexp/Flags.h>
#include <utils/observer/Flags.h>
#include <utils/queue/Flags.h>
#include <utils/scpi/Flags.h>
#include <utils/singleton/SingletonT.h>
#include <utils/task/Flags.h>
#include <utils/xml/Flags.h>

#include "core/Flags.h"

namespace instrument
{

namespace
{

using utils::flag::Flag;
using utils::flag::FlagT;
using utils::flag::InitialValues;
using utils::singleton::SingletonT;

constexpr const char* FOLDER_VARIABLE = "GENERIC_CONFIG_DIR";

// Reading a flag's text takes one word only, as fits numbers; a text is taken whole, as at the
// start.
void setValue(Flag& flag, const std::string& text)
{
    if (auto* const textFlag = dynamic_cast<FlagT<std::string>*>(&flag))
    {
        textFlag->setValue(text);
        return;
    }
    flag.setValueStr(text);
}

}  // namespace

void readFlags(const std::string& folder)
{
    setenv(FOLDER_VARIABLE, folder.c_str(), 1);
    // All collections are made now: later on, other threads run while the file is read again.
    SingletonT<utils::flag::Flags>::getInstancePtr();
    SingletonT<utils::command::Flags>::getInstancePtr();
    SingletonT<utils::queue::Flags>::getInstancePtr();
    SingletonT<utils::task::Flags>::getInstancePtr();
    SingletonT<utils::observer::Flags>::getInstancePtr();
    SingletonT<utils::xml::Flags>::getInstancePtr();
    SingletonT<utils::scpi::Flags>::getInstancePtr();
    SingletonT<utils::logexp::Flags>::getInstancePtr();
    SingletonT<Flags>::getInstancePtr();
}

bool readFlagsAgain()
{
    if (!std::ifstream(getFlagsFile()))
    {
        return false;
    }
    InitialValues& values = *SingletonT<InitialValues>::getInstancePtr();
    values.redoInitialValuesCollection();
    for (const auto& [name, flag] : *SingletonT<std::map<std::string, Flag*>>::getInstancePtr())
    {
        std::string text;
        if (values.getInitialValue(name, text))
        {
            setValue(*flag, text);
        }
    }
    return true;
}

std::string getFlagsFile()
{
    const char* const folder = getenv(FOLDER_VARIABLE);
    return std::string(folder == nullptr ? "." : folder) + "/" + FLAGS_FILE_NAME;
}

}  // namespace instrument
