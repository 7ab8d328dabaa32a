#ifndef GENERIC_UTILS_GSLOCKS_H
#define GENERIC_UTILS_GSLOCKS_H

#include <libos/COsMutex.h>
#include <utils/export.h>
#include <utils/stdSingleton.h>

namespace utils
{

/// The mutexes that the older classes share; reached through Std_Singleton<Gs_Locks>.
///
/// Thread safety: any thread, at any time.
class GENERIC_UTILS_EXPORT Gs_Locks
{
  public:
    Gs_Locks();
    virtual ~Gs_Locks();

    Gs_Locks(const Gs_Locks&) = delete;
    Gs_Locks& operator=(const Gs_Locks&) = delete;

    /// The object of Std_Singleton<Gs_Locks>, also when several threads are the first to need it.
    static Gs_Locks& getShared();

    /// Held while a Gs_Singleton creates its instance.
    COsMutex m_singletonMutex;

    /// Not used by the library; for applications.
    COsMutex m_applicationMutex;
};

extern template class Std_Singleton<Gs_Locks>;

}  // namespace utils

#endif
