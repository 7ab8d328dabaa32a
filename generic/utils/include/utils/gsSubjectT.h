#ifndef GENERIC_UTILS_GSSUBJECTT_H
#define GENERIC_UTILS_GSSUBJECTT_H

/// @file
/// The body of Gs_Subject::attach<T>().

#include <memory>

#include <utils/gsSubject.h>
#include <utils/gsUpdateVoid.h>

namespace utils
{

template <typename T>
void Gs_Subject::attach(T* observerPtr, void (T::*function)(), Gs_Aspect* aspectPtr,
                        unsigned int priority)
{
    if (isRefused("attach"))
    {
        return;
    }
    const Operation operation(*this, "attach");
    Gs_Aspect* const usedAspectPtr = prepareAttach(operation, observerPtr, aspectPtr, priority);
    auto updaterPtr = std::make_unique<Gs_UpdateVoid<T>>(observerPtr, function);
    if (operation.isSubjectGone())
    {
        return;
    }
    insertObserver(observerPtr, usedAspectPtr, priority, updaterPtr.get());
    if (!operation.isSubjectGone())
    {
        static_cast<void>(updaterPtr.release());
    }
}

/// @cond
extern template void Gs_Subject::attach<Gs_Observer>(Gs_Observer*, void (Gs_Observer::*)(),
                                                     Gs_Aspect*, unsigned int);
/// @endcond

}  // namespace utils

#endif
