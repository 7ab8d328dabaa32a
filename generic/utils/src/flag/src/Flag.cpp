#include <utils/flag/Flag.h>

#include <utils/singleton/NeverDestroyed.h>

#include "flag/src/FlagConstruction.h"
#include "internal/NamedRegistry.h"

namespace utils::singleton
{
template class SingletonT<std::map<std::string, flag::Flag*>>;
}

namespace utils::flag
{

namespace
{

// The line that the report of a missing flag has always named.
constexpr int MISS_LINE = 129;

NamedRegistry<Flag>& registry()
{
    static singleton::NeverDestroyed<NamedRegistry<Flag>> theRegistry("Flag", "flags");
    return theRegistry.get();
}

}  // namespace

Flag::Flag(const std::string& name) : m_name(name)
{
    const FlagConstruction construction;
    registry().add(GENERIC_UTILS_HERE, m_name, this);
}

Flag::~Flag()
{
    cleanUp();
}

void Flag::output(std::ostream& os) const
{
    writeLine(os, "Name  = '", m_name, "'");
}

void Flag::cleanUp()
{
    registry().remove(m_name);
}

Flag* Flag::getFlagPtr(const std::string& name, bool quiet)
{
    if (quiet)
    {
        return registry().find(name);
    }
    return registry().findOrReport({__FILE__, MISS_LINE, __func__}, name);
}

void Flag::outputFlags(std::ostream& os)
{
    registry().output(os);
}

std::ostream& operator<<(std::ostream& os, const Flag& flag)
{
    flag.output(os);
    return os;
}

}  // namespace utils::flag
