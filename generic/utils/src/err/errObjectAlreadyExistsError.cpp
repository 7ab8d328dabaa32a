#include <utils/errObjectAlreadyExistsError.h>

#include "internal/NullText.h"
#include "internal/TextOutput.h"

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x8000000D;
}  // namespace

Err_ObjectAlreadyExistsError::Err_ObjectAlreadyExistsError(const char* file, int line,
                                                           const char* function,
                                                           const char* objectName)
    : Err_GeneralError(file, line, function, "Warning", "Err_ObjectAlreadyExistsError"),
      m_objectName(toString(objectName))
{
    setErrorCode(ERROR_CODE);
}

Err_ObjectAlreadyExistsError::~Err_ObjectAlreadyExistsError() = default;

void Err_ObjectAlreadyExistsError::output(std::ostream& os) const
{
    Err_GeneralError::output(os);
    writeText(os, "        Object '" + m_objectName + "' already exists." + '\0');
}

}  // namespace utils::err
