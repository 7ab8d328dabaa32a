#ifndef GENERIC_UTILS_GSATTACHALREADYEXISTSERROR_H
#define GENERIC_UTILS_GSATTACHALREADYEXISTSERROR_H

#include <string>

#include <utils/export.h>
#include <utils/gsError.h>

namespace utils::err
{

/// An observer is attached to a subject twice, at one aspect and priority: severity "Error", code 0x80010001.
class GENERIC_UTILS_EXPORT Gs_AttachAlreadyExistsError : public Gs_Error
{
  public:
    /// @param file,line,function the place
    /// @param subjectName,observerName the names of both sides
    /// @param priority that of the attachment
    Gs_AttachAlreadyExistsError(const char* file, int line, const char* function,
                                const char* subjectName, const char* observerName, int priority);
    ~Gs_AttachAlreadyExistsError() override;

    /// Copies all that the error holds.
    Gs_AttachAlreadyExistsError(const Gs_AttachAlreadyExistsError& other) = default;

    /// Likewise.
    Gs_AttachAlreadyExistsError& operator=(const Gs_AttachAlreadyExistsError& other) = default;

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
