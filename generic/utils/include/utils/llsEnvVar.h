#ifndef GENERIC_UTILS_LLSENVVAR_H
#define GENERIC_UTILS_LLSENVVAR_H

#include <string>

#include <utils/export.h>

namespace utils
{

/// A variable of the process's environment, by name.
///
/// Thread safety: any thread, as long as no thread changes the environment.
class GENERIC_UTILS_EXPORT Lls_EnvVar
{
  public:
    /// @param name of the variable, which need not exist
    explicit Lls_EnvVar(std::string name);
    virtual ~Lls_EnvVar();

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// Whether the variable exists at this moment; an empty one does.
    bool isDefined() const;

    /// The variable's text at this moment, or "-- not available --" when it does not exist.
    std::string getValue() const;

  private:
    std::string m_name;
};

}  // namespace utils

#endif
