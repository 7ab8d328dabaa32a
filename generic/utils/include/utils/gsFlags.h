#ifndef UTILS_GSFLAGS_H
#define UTILS_GSFLAGS_H

#include <string>

#include <utils/export.h>
#include <utils/flagFlag.h>
#include <utils/stdSingleton.h>

namespace utils::flag
{

/// The flags of subjects and observers, and of the applications built on them; reached through
/// Std_Singleton<Gs_Flags>.
///
/// A flag's name is "Gs_Flags::" and the name of the member. Trace levels are off at -1, their
/// default. The library itself reads those with a comment; the others serve applications.
class GENERIC_UTILS_EXPORT Gs_Flags
{
  public:
    Gs_Flags();
    virtual ~Gs_Flags();

    Flag_Flag<int> m_traceAspectSteps;
    Flag_Flag<int> m_traceCmdSteps;
    Flag_Flag<int> m_traceLogSteps;
    Flag_Flag<int> m_traceMsgSteps;
    Flag_Flag<int> m_traceObserverSteps;  ///< observers
    Flag_Flag<int> m_traceQueueSteps;
    Flag_Flag<int> m_traceSingletonSteps;  ///< the creation of a Gs_Singleton
    Flag_Flag<int> m_traceSubjectSteps;    ///< subjects
    Flag_Flag<std::string>
        m_traceSubjectName;  ///< which subjects: their names contain this text; default "---"
    Flag_Flag<int> m_enableSubjectName;  ///< not 0: print the updates of some subjects
    Flag_Flag<int> m_traceStateMachineSteps;
    Flag_Flag<int> m_traceTaskSteps;
    Flag_Flag<int> m_traceTimerSteps;
    Flag_Flag<int> m_traceTriggerSteps;
    Flag_Flag<int> m_traceUpdateSteps;  ///< update adapters
    Flag_Flag<int> m_traceHierarchyNodeSteps;
    Flag_Flag<int> m_tracePartDescriptorSteps;
    Flag_Flag<int> m_tracePartBaseSteps;
    Flag_Flag<int> m_traceCatalogSteps;
    Flag_Flag<int> m_tracePartParameterSteps;
    Flag_Flag<long> m_defaultStateMachineTickInMs;
    Flag_Flag<long> m_defaultStateMachineTimeInStateInMs;
    Flag_Flag<unsigned long> m_defaultMemLogMinSize;
    Flag_Flag<unsigned long> m_defaultMemLogMaxSize;
    Flag_Flag<unsigned long> m_defaultFileLogMinSize;
    Flag_Flag<unsigned long> m_defaultFileLogMaxSize;
};

}  // namespace utils::flag

namespace utils
{
extern template class Std_Singleton<flag::Gs_Flags>;
}  // namespace utils

#endif
