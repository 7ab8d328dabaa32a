#include <utils/gsFlags.h>

namespace utils
{
template class Std_Singleton<flag::Gs_Flags>;
}

namespace utils::flag
{

Gs_Flags::Gs_Flags()
    : m_traceAspectSteps("Gs_Flags::m_traceAspectSteps", -1),
      m_traceCmdSteps("Gs_Flags::m_traceCmdSteps", -1),
      m_traceLogSteps("Gs_Flags::m_traceLogSteps", -1),
      m_traceMsgSteps("Gs_Flags::m_traceMsgSteps", -1),
      m_traceObserverSteps("Gs_Flags::m_traceObserverSteps", -1),
      m_traceQueueSteps("Gs_Flags::m_traceQueueSteps", -1),
      m_traceSingletonSteps("Gs_Flags::m_traceSingletonSteps", -1),
      m_traceSubjectSteps("Gs_Flags::m_traceSubjectSteps", -1),
      m_traceSubjectName("Gs_Flags::m_traceSubjectName", "---"),
      m_enableSubjectName("Gs_Flags::m_enableSubjectName", 0),
      m_traceStateMachineSteps("Gs_Flags::m_traceStateMachineSteps", -1),
      m_traceTaskSteps("Gs_Flags::m_traceTaskSteps", -1),
      m_traceTimerSteps("Gs_Flags::m_traceTimerSteps", -1),
      m_traceTriggerSteps("Gs_Flags::m_traceTriggerSteps", -1),
      m_traceUpdateSteps("Gs_Flags::m_traceUpdateSteps", -1),
      m_traceHierarchyNodeSteps("Gs_Flags::m_traceHierarchyNodeSteps", -1),
      m_tracePartDescriptorSteps("Gs_Flags::m_tracePartDescriptorSteps", -1),
      m_tracePartBaseSteps("Gs_Flags::m_tracePartBaseSteps", -1),
      m_traceCatalogSteps("Gs_Flags::m_traceCatalogSteps", -1),
      m_tracePartParameterSteps("Gs_Flags::m_tracePartParameterSteps", -1),
      m_defaultStateMachineTickInMs("Gs_Flags::m_defaultStateMachineTickInMs", 50),
      m_defaultStateMachineTimeInStateInMs("Gs_Flags::m_defaultStateMachineTimeInStateInMs", 150),
      m_defaultMemLogMinSize("Gs_Flags::m_defaultMemLogMinSize", 2048),
      m_defaultMemLogMaxSize("Gs_Flags::m_defaultMemLogMaxSize", 4096),
      m_defaultFileLogMinSize("Gs_Flags::m_defaultFileLogMinSize", 2048),
      m_defaultFileLogMaxSize("Gs_Flags::m_defaultFileLogMaxSize", 4096)
{
}

Gs_Flags::~Gs_Flags() = default;

}  // namespace utils::flag
