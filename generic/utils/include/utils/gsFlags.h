#ifndef GENERIC_UTILS_GSFLAGS_H
#define GENERIC_UTILS_GSFLAGS_H

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
/// default. The library itself reads the levels of observers, singletons, subjects and update
/// adapters, and the two of subject names; the others serve applications.
class GENERIC_UTILS_EXPORT Gs_Flags
{
  public:
    /// Registers the flags; called once, by the singleton.
    Gs_Flags();
    virtual ~Gs_Flags();

    Flag_Flag<int> m_traceAspectSteps;     ///< for applications
    Flag_Flag<int> m_traceCmdSteps;        ///< for applications
    Flag_Flag<int> m_traceLogSteps;        ///< for applications
    Flag_Flag<int> m_traceMsgSteps;        ///< for applications
    Flag_Flag<int> m_traceObserverSteps;   ///< observers
    Flag_Flag<int> m_traceQueueSteps;      ///< for applications
    Flag_Flag<int> m_traceSingletonSteps;  ///< the creation of a Gs_Singleton
    Flag_Flag<int> m_traceSubjectSteps;    ///< subjects
    Flag_Flag<std::string>
        m_traceSubjectName;  ///< which subjects: their names contain this text; default "---"
    Flag_Flag<int> m_enableSubjectName;             ///< not 0: print the updates of some subjects
    Flag_Flag<int> m_traceStateMachineSteps;        ///< for applications
    Flag_Flag<int> m_traceTaskSteps;                ///< for applications
    Flag_Flag<int> m_traceTimerSteps;               ///< for applications
    Flag_Flag<int> m_traceTriggerSteps;             ///< for applications
    Flag_Flag<int> m_traceUpdateSteps;              ///< update adapters
    Flag_Flag<int> m_traceHierarchyNodeSteps;       ///< for applications
    Flag_Flag<int> m_tracePartDescriptorSteps;      ///< for applications
    Flag_Flag<int> m_tracePartBaseSteps;            ///< for applications
    Flag_Flag<int> m_traceCatalogSteps;             ///< for applications
    Flag_Flag<int> m_tracePartParameterSteps;       ///< for applications
    Flag_Flag<long> m_defaultStateMachineTickInMs;  ///< for applications; default 50
    Flag_Flag<long> m_defaultStateMachineTimeInStateInMs;  ///< for applications; default 150
    Flag_Flag<unsigned long> m_defaultMemLogMinSize;       ///< for applications; default 2048
    Flag_Flag<unsigned long> m_defaultMemLogMaxSize;       ///< for applications; default 4096
    Flag_Flag<unsigned long> m_defaultFileLogMinSize;      ///< for applications; default 2048
    Flag_Flag<unsigned long> m_defaultFileLogMaxSize;      ///< for applications; default 4096
};

}  // namespace utils::flag

namespace utils
{
extern template class Std_Singleton<flag::Gs_Flags>;
}  // namespace utils

#endif
