#include <utils/errObjectDoesNotExistError.h>

#include "internal/NullText.h"
#include "internal/TextOutput.h"

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x8000000E;
}  // namespace

Err_ObjectDoesNotExistError::Err_ObjectDoesNotExistError(const char* file, int line,
                                                         const char* function,
                                                         const char* objectName)
    : Err_GeneralError(file, line, function, "Error", "Err_ObjectDoesNotExistError"),
      m_objectName(toString(objectName))
{
    setErrorCode(ERROR_CODE);
}

Err_ObjectDoesNotExistError::~Err_ObjectDoesNotExistError() = default;

void Err_ObjectDoesNotExistError::output(std::ostream& os) const
{
    Err_GeneralError::output(os);
    writeText(os, "        Object '" + m_objectName + "' does not exist." + '\0');
}

}  // namespace utils::err
