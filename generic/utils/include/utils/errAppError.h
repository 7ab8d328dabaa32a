#ifndef GENERIC_UTILS_ERRAPPERROR_H
#define GENERIC_UTILS_ERRAPPERROR_H

#include <utils/errError.h>
#include <utils/export.h>

namespace utils::err
{

/// An error of an application, code 0x80000002.
class GENERIC_UTILS_EXPORT Err_AppError : public Err_Error
{
  public:
    /// See Err_Error.
    Err_AppError(const char* file, int line, const char* function, const char* severity,
                 const char* name);
    ~Err_AppError() override;

    /// Copies all that the error holds.
    Err_AppError(const Err_AppError& other) = default;

    /// Likewise.
    Err_AppError& operator=(const Err_AppError& other) = default;
};

}  // namespace utils::err

#endif
