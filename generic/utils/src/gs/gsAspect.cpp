#include <utils/gsAspect.h>

#include <libdbg/libdbg.h>

#include <ostream>

#include "internal/TextOutput.h"

namespace utils
{

template class Gs_Singleton<std::map<std::string, Gs_Aspect*>>;

namespace
{

// The place that the debug trace has always named.
constexpr const char* SOURCE_FILE = "generic/utils/src/gs/gsAspect";
constexpr int CONSTRUCTION_LINE = 19;
constexpr int DESTRUCTION_LINE = 30;

bool isDebugTraced()
{
    return _dbg_level > 1;
}

// Begins a record, which _dbg_trace() ends.
void beginDebugRecord(int line, const char* function)
{
    constexpr int recordType = 2;
    _dbg_lock(_dbg_level);
    _dbg_type = recordType;
    _dbg_filename = SOURCE_FILE;
    _dbg_line = line;
    _dbg_function = function;
}

}  // namespace

Gs_Aspect::Gs_Aspect(const std::string& name) : m_name(name)
{
    if (isDebugTraced())
    {
        beginDebugRecord(CONSTRUCTION_LINE, "Gs_Aspect");
        _dbg_trace("Constructing aspect Name (%s)", m_name.c_str());
    }
    (*Gs_Singleton<std::map<std::string, Gs_Aspect*>>::getInstancePtr())[m_name] = this;
}

Gs_Aspect::~Gs_Aspect()
{
    if (isDebugTraced())
    {
        beginDebugRecord(DESTRUCTION_LINE, "~Gs_Aspect");
        _dbg_trace("Destructing aspect Name (%s)", m_name.c_str());
    }
}

void Gs_Aspect::output(std::ostream& os) const
{
    writeText(os, "Aspect (" + m_name + ")\n");
}

std::ostream& operator<<(std::ostream& os, const Gs_Aspect& aspect)
{
    aspect.output(os);
    return os;
}

}  // namespace utils
