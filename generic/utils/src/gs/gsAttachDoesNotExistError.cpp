#include <utils/gsAttachDoesNotExistError.h>

#include "internal/NullText.h"
#include "internal/TextOutput.h"

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x80010002;
}  // namespace

Gs_AttachDoesNotExistError::Gs_AttachDoesNotExistError(const char* file, int line,
                                                       const char* function,
                                                       const char* subjectName,
                                                       const char* observerName, int priority)
    : Gs_Error(file, line, function, "Error", "Gs_AttachDoesNotExistError"),
      m_subjectName(toString(subjectName)),
      m_observerName(toString(observerName)),
      m_priority(priority)
{
    setErrorCode(ERROR_CODE);
}

Gs_AttachDoesNotExistError::~Gs_AttachDoesNotExistError() = default;

void Gs_AttachDoesNotExistError::output(std::ostream& os) const
{
    Gs_Error::output(os);
    writeText(os, toText("        Subject (", m_subjectName, ") is NOT attached to Observer (",
                         m_observerName, ") with priority (", m_priority, ")."));
}

}  // namespace utils::err
