#ifndef GENERIC_UTILS_ERRNULLPTRERROR_H
#define GENERIC_UTILS_ERRNULLPTRERROR_H

#include <string>

#include <utils/errGeneralError.h>
#include <utils/export.h>

namespace utils::err
{

/// A pointer is null: severity "Error", code 0x8000000C.
class GENERIC_UTILS_EXPORT Err_NullPtrError : public Err_GeneralError
{
  public:
    /// @param file,line,function the place
    /// @param pointerName the pointer that is null
    Err_NullPtrError(const char* file, int line, const char* function, const char* pointerName);
    ~Err_NullPtrError() override;

    /// Copies all that the error holds.
    Err_NullPtrError(const Err_NullPtrError& other) = default;

    /// Likewise.
    Err_NullPtrError& operator=(const Err_NullPtrError& other) = default;

    /// Writes the header, and a line with the name that ends with a NUL character.
    void output(std::ostream& os) const override;

    /// The pointer that is null.
    const std::string& getPointerName() const { return m_pointerName; }

  private:
    std::string m_pointerName;
};

}  // namespace utils::err

#endif
