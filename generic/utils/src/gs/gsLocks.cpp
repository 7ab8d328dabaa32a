#include <utils/gsLocks.h>

namespace utils
{

template class Std_Singleton<Gs_Locks>;

Gs_Locks::Gs_Locks() = default;

Gs_Locks::~Gs_Locks() = default;

Gs_Locks& Gs_Locks::getShared()
{
    // The compiler sees to it that only one thread makes the first call.
    static Gs_Locks* const locksPtr = Std_Singleton<Gs_Locks>::getInstancePtr();
    return *locksPtr;
}

}  // namespace utils
