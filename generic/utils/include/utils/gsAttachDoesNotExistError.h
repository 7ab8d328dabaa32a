#ifndef GENERIC_UTILS_GSATTACHDOESNOTEXISTERROR_H
#define GENERIC_UTILS_GSATTACHDOESNOTEXISTERROR_H

#include <string>

#include <utils/export.h>
#include <utils/gsError.h>

namespace utils::err
{

/// An observer is to be detached from where nobody was ever attached: severity "Error", code 0x80010002.
class GENERIC_UTILS_EXPORT Gs_AttachDoesNotExistError : public Gs_Error
{
  public:
    /// @param file,line,function the place
    /// @param subjectName,observerName the names of both sides
    /// @param priority that of the attachment
    Gs_AttachDoesNotExistError(const char* file, int line, const char* function,
                               const char* subjectName, const char* observerName, int priority);
    ~Gs_AttachDoesNotExistError() override;

    /// Copies all that the error holds.
    Gs_AttachDoesNotExistError(const Gs_AttachDoesNotExistError& other) = default;

    /// Likewise.
    Gs_AttachDoesNotExistError& operator=(const Gs_AttachDoesNotExistError& other) = default;

    /// Writes the header, and the names and the priority without an end of line.
    void output(std::ostream& os) const override;

    /// The subject's name.
    const std::string& getSubjectName() const { return m_subjectName; }

    /// The observer's name.
    const std::string& getObserverName() const { return m_observerName; }

    /// The priority of the attachment.
    int getPriority() const { return m_priority; }

  private:
    std::string m_subjectName;
    std::string m_observerName;
    int m_priority;
};

}  // namespace utils::err

#endif
