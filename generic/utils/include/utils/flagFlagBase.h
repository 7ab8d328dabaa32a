#ifndef GENERIC_UTILS_FLAGFLAGBASE_H
#define GENERIC_UTILS_FLAGFLAGBASE_H

#include <iosfwd>
#include <map>
#include <string>

#include <utils/export.h>
#include <utils/stdSingleton.h>

namespace utils::flag
{

/// A named setting of the older kind. The value and its type come with Flag_Flag. New code uses
/// Flag and FlagT.
///
/// A flag enters its name into the registry, Std_Singleton<std::map<std::string, Flag_FlagBase*>>,
/// when it is constructed. Flags are not owned.
///
/// Thread safety: flags are constructed, looked up and destroyed by one controlling thread.
class GENERIC_UTILS_EXPORT Flag_FlagBase
{
  public:
    /// Registers the flag. When the name is taken, the earlier flag stays registered, the older
    /// error Err_ObjectAlreadyExistsError is reported as recoverable, and this flag works without
    /// being registered.
    explicit Flag_FlagBase(const std::string& name);

    /// Takes the flag's name out of the registry, also when it stands there for another flag.
    virtual ~Flag_FlagBase();

    /// Sets the value from its text.
    /// @return false, with the value unchanged and nothing reported, when the text cannot be read
    virtual bool setValueStr(const std::string& text) = 0;

    /// Writes "Name (...) "; derived classes call it and add the value.
    /// @return `os`
    virtual std::ostream& output(std::ostream& os) const;

    /// The value as text.
    virtual std::string getValueStr() const = 0;

    Flag_FlagBase(const Flag_FlagBase&) = delete;
    Flag_FlagBase& operator=(const Flag_FlagBase&) = delete;

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

  private:
    std::string m_name;
};

/// Writes the flag through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Flag_FlagBase& flag);

}  // namespace utils::flag

namespace utils
{
extern template class Std_Singleton<std::map<std::string, flag::Flag_FlagBase*>>;
}  // namespace utils

#endif
