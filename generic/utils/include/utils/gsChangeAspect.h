#ifndef GENERIC_UTILS_GSCHANGEASPECT_H
#define GENERIC_UTILS_GSCHANGEASPECT_H

#include <utils/export.h>
#include <utils/gsAspect.h>
#include <utils/stdSingleton.h>

namespace utils
{

/// The default aspect, "Gs_ChangeAspect"; reached through Std_Singleton<Gs_ChangeAspect> or
/// Gs_Subject::m_defaultAspectPtr.
class GENERIC_UTILS_EXPORT Gs_ChangeAspect : public Gs_Aspect
{
  public:
    Gs_ChangeAspect();
    ~Gs_ChangeAspect() override;

    Gs_ChangeAspect(const Gs_ChangeAspect&) = delete;
    Gs_ChangeAspect& operator=(const Gs_ChangeAspect&) = delete;
};

extern template class Std_Singleton<Gs_ChangeAspect>;

/// A pointer to the default aspect, which is made when the pointer is first used. So static
/// initialisers may use it, and loading the library does not make the aspect, nor the older flags
/// that its creation needs.
class GENERIC_UTILS_EXPORT Gs_DefaultAspectPtr
{
  public:
    constexpr Gs_DefaultAspectPtr() = default;

    /// Never null.
    operator Gs_Aspect*() const { return Std_Singleton<Gs_ChangeAspect>::getInstancePtr(); }

    /// Never null.
    Gs_Aspect* operator->() const { return *this; }
};

}  // namespace utils

#endif
