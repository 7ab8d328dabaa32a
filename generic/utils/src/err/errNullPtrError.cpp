#include <utils/errNullPtrError.h>

#include "internal/NullText.h"
#include "internal/TextOutput.h"

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x8000000C;
}  // namespace

Err_NullPtrError::Err_NullPtrError(const char* file, int line, const char* function,
                                   const char* pointerName)
    : Err_GeneralError(file, line, function, "Error", "Err_NullPtrError"),
      m_pointerName(toString(pointerName))
{
    setErrorCode(ERROR_CODE);
}

Err_NullPtrError::~Err_NullPtrError() = default;

void Err_NullPtrError::output(std::ostream& os) const
{
    Err_GeneralError::output(os);
    writeText(os, "        Invalid null pointer '" + m_pointerName + "' encountered." + '\0');
}

}  // namespace utils::err
