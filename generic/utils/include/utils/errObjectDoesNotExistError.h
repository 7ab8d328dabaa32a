#ifndef GENERIC_UTILS_ERROBJECTDOESNOTEXISTERROR_H
#define GENERIC_UTILS_ERROBJECTDOESNOTEXISTERROR_H

#include <string>

#include <utils/errGeneralError.h>
#include <utils/export.h>

namespace utils::err
{

/// There is no object with that name: severity "Error", code 0x8000000E.
class GENERIC_UTILS_EXPORT Err_ObjectDoesNotExistError : public Err_GeneralError
{
  public:
    /// @param file,line,function the place
    /// @param objectName the name that was looked for
    Err_ObjectDoesNotExistError(const char* file, int line, const char* function,
                                const char* objectName);
    ~Err_ObjectDoesNotExistError() override;

    /// Copies all that the error holds.
    Err_ObjectDoesNotExistError(const Err_ObjectDoesNotExistError& other) = default;

    /// Likewise.
    Err_ObjectDoesNotExistError& operator=(const Err_ObjectDoesNotExistError& other) = default;

    /// Writes the header, and a line with the name that ends with a NUL character.
    void output(std::ostream& os) const override;

    /// The name that was looked for.
    const std::string& getObjectName() const { return m_objectName; }

  private:
    std::string m_objectName;
};

}  // namespace utils::err

#endif
