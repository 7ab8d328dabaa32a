#include <utils/errGeneralError.h>

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x80000009;
}  // namespace

Err_GeneralError::Err_GeneralError(const char* file, int line, const char* function,
                                   const char* severity, const char* name)
    : Err_AclError(file, line, function, severity, name)
{
    setErrorCode(ERROR_CODE);
}

Err_GeneralError::~Err_GeneralError() = default;

}  // namespace utils::err
