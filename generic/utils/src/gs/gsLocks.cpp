#include <utils/gsLocks.h>

namespace utils
{

template class Std_Singleton<Gs_Locks>;

namespace
{
// Made while the library is loaded: Std_Singleton does not stand two first calls at once, and any
// thread may be the first to need a Gs_Singleton.
[[maybe_unused]] const Gs_Locks* const theLocksPtr = Std_Singleton<Gs_Locks>::getInstancePtr();
}  // namespace

Gs_Locks::Gs_Locks() = default;

Gs_Locks::~Gs_Locks() = default;

}  // namespace utils
