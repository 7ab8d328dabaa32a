#ifndef GENERIC_UTILS_GS_FINDATTACHMENT_H
#define GENERIC_UTILS_GS_FINDATTACHMENT_H

/// @file
/// The walk over the tables of a subject.

#include <utils/gsSubject.h>

namespace utils
{

template <typename Function>
bool Gs_Subject::findAttachment(Function function) const
{
    if (m_aspectTable == nullptr)
    {
        return false;
    }
    for (const auto& [aspectPtr, tablePtr] : *m_aspectTable)
    {
        if (tablePtr == nullptr)
        {
            continue;
        }
        for (const auto& [priority, listPtr] : *tablePtr)
        {
            if (listPtr == nullptr)
            {
                continue;
            }
            for (Attachment& attachment : *listPtr)
            {
                if (function(aspectPtr, priority, attachment))
                {
                    return true;
                }
            }
        }
    }
    return false;
}

}  // namespace utils

#endif
