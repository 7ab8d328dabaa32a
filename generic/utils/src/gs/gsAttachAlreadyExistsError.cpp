#include <utils/gsAttachAlreadyExistsError.h>

#include "internal/NullText.h"
#include "internal/TextOutput.h"

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x80010001;
}  // namespace

Gs_AttachAlreadyExistsError::Gs_AttachAlreadyExistsError(const char* file, int line,
                                                         const char* function,
                                                         const char* subjectName,
                                                         const char* observerName, int priority)
    : Gs_Error(file, line, function, "Error", "Gs_AttachAlreadyExistsError"),
      m_subjectName(toString(subjectName)),
      m_observerName(toString(observerName)),
      m_priority(priority)
{
    setErrorCode(ERROR_CODE);
}

Gs_AttachAlreadyExistsError::~Gs_AttachAlreadyExistsError() = default;

void Gs_AttachAlreadyExistsError::output(std::ostream& os) const
{
    Gs_Error::output(os);
    writeText(os, toText("        Subject (", m_subjectName, ") already attached to Observer (",
                         m_observerName, ") with priority (", m_priority, ")."));
}

}  // namespace utils::err
