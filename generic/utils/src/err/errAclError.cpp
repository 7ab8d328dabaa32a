#include <utils/errAclError.h>

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x80000001;
}  // namespace

Err_AclError::Err_AclError(const char* file, int line, const char* function, const char* severity,
                           const char* name)
    : Err_AppError(file, line, function, severity, name)
{
    setErrorCode(ERROR_CODE);
}

Err_AclError::~Err_AclError() = default;

}  // namespace utils::err
