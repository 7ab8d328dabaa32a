#ifndef GENERIC_UTILS_GSASPECT_H
#define GENERIC_UTILS_GSASPECT_H

#include <iosfwd>
#include <map>
#include <string>

#include <utils/export.h>
#include <utils/gsSingleton.h>

namespace utils
{

/// What observers are told about: a named side of a subject, such as a change of its value.
///
/// Aspects are told apart by their addresses. An aspect enters its name into the registry,
/// Gs_Singleton<std::map<std::string, Gs_Aspect*>>, where the latest of a name stands. It does not
/// leave it: aspects are meant to live as long as the process.
///
/// Thread safety: aspects are constructed by one controlling thread.
class GENERIC_UTILS_EXPORT Gs_Aspect
{
  public:
    /// Registers the aspect. Construction and destruction are shown by the platform's debug trace,
    /// at levels above 1.
    explicit Gs_Aspect(const std::string& name);

    virtual ~Gs_Aspect();

    /// Writes the line "Aspect (...)".
    virtual void output(std::ostream& os) const;

    Gs_Aspect(const Gs_Aspect&) = delete;
    Gs_Aspect& operator=(const Gs_Aspect&) = delete;

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

  private:
    std::string m_name;
};

/// Writes the aspect through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Gs_Aspect& aspect);

extern template class Gs_Singleton<std::map<std::string, Gs_Aspect*>>;

}  // namespace utils

#endif
