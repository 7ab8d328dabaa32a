#ifndef GENERIC_UTILS_ERROBJECTALREADYEXISTSERROR_H
#define GENERIC_UTILS_ERROBJECTALREADYEXISTSERROR_H

#include <string>

#include <utils/errGeneralError.h>
#include <utils/export.h>

namespace utils::err
{

/// An object with that name exists already: severity "Warning", code 0x8000000D.
class GENERIC_UTILS_EXPORT Err_ObjectAlreadyExistsError : public Err_GeneralError
{
  public:
    /// @param file,line,function the place
    /// @param objectName the name that is taken
    Err_ObjectAlreadyExistsError(const char* file, int line, const char* function,
                                 const char* objectName);
    ~Err_ObjectAlreadyExistsError() override;

    /// Copies all that the error holds.
    Err_ObjectAlreadyExistsError(const Err_ObjectAlreadyExistsError& other) = default;

    /// Likewise.
    Err_ObjectAlreadyExistsError& operator=(const Err_ObjectAlreadyExistsError& other) = default;

    /// Writes the header, and a line with the name that ends with a NUL character.
    void output(std::ostream& os) const override;

    /// The name that is taken.
    const std::string& getObjectName() const { return m_objectName; }

  private:
    std::string m_objectName;
};

}  // namespace utils::err

#endif
