#ifndef GENERIC_UTILS_LLSUSER_H
#define GENERIC_UTILS_LLSUSER_H

#include <string>

#include <utils/export.h>

namespace utils
{

/// The user as the environment variable USER names it when the object is made; later changes of
/// the environment do not reach it.
///
/// Thread safety: any thread.
class GENERIC_UTILS_EXPORT Lls_User
{
  public:
    Lls_User();
    virtual ~Lls_User();

    /// The name, or "-- not available --" when USER was not set.
    const std::string& getName() const { return m_name; }

  private:
    std::string m_name;
};

}  // namespace utils

#endif
