#include <utils/errAppError.h>

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x80000002;
}  // namespace

Err_AppError::Err_AppError(const char* file, int line, const char* function, const char* severity,
                           const char* name)
    : Err_Error(file, line, function, severity, name)
{
    setErrorCode(ERROR_CODE);
}

Err_AppError::~Err_AppError() = default;

}  // namespace utils::err
