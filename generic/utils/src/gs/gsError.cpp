#include <utils/gsError.h>

namespace utils::err
{

namespace
{
constexpr std::uint32_t ERROR_CODE = 0x80010003;
}  // namespace

Gs_Error::Gs_Error(const char* file, int line, const char* function, const char* severity,
                   const char* name)
    : Err_AclError(file, line, function, severity, name)
{
    setErrorCode(ERROR_CODE);
}

Gs_Error::~Gs_Error() = default;

}  // namespace utils::err
