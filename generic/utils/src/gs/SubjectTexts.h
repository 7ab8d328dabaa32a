#ifndef GENERIC_UTILS_GS_SUBJECTTEXTS_H
#define GENERIC_UTILS_GS_SUBJECTTEXTS_H

#include <iostream>
#include <string>

#include <utils/gsAspect.h>
#include <utils/gsObserver.h>
#include <utils/gsSubject.h>

#include "internal/TextOutput.h"

namespace utils
{

/// @name A copy of a name, so that the next one may be asked for: objects may keep theirs in one
/// string. "null" for a null pointer.
/// @{
inline std::string nameOf(const Gs_Subject& subject)
{
    return subject.getName();
}

inline std::string nameOf(const Gs_Observer* observerPtr)
{
    return Gs_Observer::getNameOf(observerPtr);
}

inline std::string nameOf(const Gs_Aspect* aspectPtr)
{
    return aspectPtr != nullptr ? aspectPtr->getName() : "null";
}
/// @}

/// "Subject (...) Observer (...) Priority (...) Aspect (...)"
inline std::string describe(const Gs_Subject& subject, const Gs_Observer* observerPtr,
                            const Gs_Aspect* aspectPtr, unsigned int priority)
{
    return toText("Subject (", nameOf(subject), ") Observer (", nameOf(observerPtr), ") Priority (",
                  priority, ") Aspect (", nameOf(aspectPtr), ")");
}

/// Writes a line to standard output.
template <typename... Words>
void printLine(const Words&... words)
{
    writeLine(std::cout, words...);
}

}  // namespace utils

#endif
