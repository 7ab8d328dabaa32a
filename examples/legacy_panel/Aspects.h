#ifndef LEGACY_PANEL_ASPECTS_H
#define LEGACY_PANEL_ASPECTS_H

#include <utils/gsAspect.h>

namespace legacy_panel
{

/// What subjects tell about. Made in main(), not as static objects: the first aspect makes the older
/// flags, and so has the values file read.
struct Aspects
{
    utils::Gs_Aspect frequency{"Frequency"};
    utils::Gs_Aspect level{"Level"};
};

/// The order of those who are told about the same thing: the signal goes through the chain before
/// anybody judges it, and the panel shows what came out.
enum Priority : unsigned int
{
    CHAIN_FIRST = 0,
    STATE_NEXT = 1,
    PANEL_LAST = 2
};

}  // namespace legacy_panel

#endif
