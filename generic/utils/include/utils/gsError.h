#ifndef GENERIC_UTILS_GSERROR_H
#define GENERIC_UTILS_GSERROR_H

#include <utils/errAclError.h>
#include <utils/export.h>

namespace utils::err
{

/// An error of subjects and observers, code 0x80010003.
class GENERIC_UTILS_EXPORT Gs_Error : public Err_AclError
{
  public:
    /// See Err_Error.
    Gs_Error(const char* file, int line, const char* function, const char* severity,
             const char* name);
    ~Gs_Error() override;

    /// Copies all that the error holds.
    Gs_Error(const Gs_Error& other) = default;

    /// Likewise.
    Gs_Error& operator=(const Gs_Error& other) = default;
};

}  // namespace utils::err

#endif
