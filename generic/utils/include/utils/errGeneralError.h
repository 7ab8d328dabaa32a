#ifndef GENERIC_UTILS_ERRGENERALERROR_H
#define GENERIC_UTILS_ERRGENERALERROR_H

#include <utils/errAclError.h>
#include <utils/export.h>

namespace utils::err
{

/// An error of general use, code 0x80000009.
class GENERIC_UTILS_EXPORT Err_GeneralError : public Err_AclError
{
  public:
    /// See Err_Error.
    Err_GeneralError(const char* file, int line, const char* function, const char* severity,
                     const char* name);
    ~Err_GeneralError() override;

    /// Copies all that the error holds.
    Err_GeneralError(const Err_GeneralError& other) = default;

    /// Likewise.
    Err_GeneralError& operator=(const Err_GeneralError& other) = default;
};

}  // namespace utils::err

#endif
