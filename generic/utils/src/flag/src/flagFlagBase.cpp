#include <utils/flagFlagBase.h>

#include <utils/errObjectAlreadyExistsError.h>

#include "flag/src/FlagConstruction.h"
#include "internal/OlderReport.h"
#include "internal/TextOutput.h"

namespace utils
{
template class Std_Singleton<std::map<std::string, flag::Flag_FlagBase*>>;
}

namespace utils::flag
{

namespace
{

// The line that the report of a name that is taken has always named.
constexpr int DUPLICATE_LINE = 22;

std::map<std::string, Flag_FlagBase*>& registry()
{
    return *Std_Singleton<std::map<std::string, Flag_FlagBase*>>::getInstancePtr();
}

}  // namespace

Flag_FlagBase::Flag_FlagBase(const std::string& name) : m_name(name)
{
    if (!registry().emplace(m_name, this).second)
    {
        const FlagConstruction construction;
        err::report<err::Err_ObjectAlreadyExistsError>({__FILE__, DUPLICATE_LINE, __func__}, true,
                                                       m_name.c_str());
    }
}

Flag_FlagBase::~Flag_FlagBase()
{
    registry().erase(m_name);
}

std::ostream& Flag_FlagBase::output(std::ostream& os) const
{
    writeText(os, "Name (" + m_name + ") ");
    return os;
}

std::ostream& operator<<(std::ostream& os, const Flag_FlagBase& flag)
{
    return flag.output(os);
}

}  // namespace utils::flag
