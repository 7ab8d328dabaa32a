#ifndef GENERIC_UTILS_ERRACLERROR_H
#define GENERIC_UTILS_ERRACLERROR_H

#include <utils/errAppError.h>
#include <utils/export.h>

namespace utils::err
{

/// An access-control error, code 0x80000001.
class GENERIC_UTILS_EXPORT Err_AclError : public Err_AppError
{
  public:
    /// See Err_Error.
    Err_AclError(const char* file, int line, const char* function, const char* severity,
                 const char* name);
    ~Err_AclError() override;

    /// Copies all that the error holds.
    Err_AclError(const Err_AclError& other) = default;

    /// Likewise.
    Err_AclError& operator=(const Err_AclError& other) = default;
};

}  // namespace utils::err

#endif
