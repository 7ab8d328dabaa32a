#ifndef GENERIC_UTILS_FLAG_FLAG_H
#define GENERIC_UTILS_FLAG_FLAG_H

#include <iosfwd>
#include <map>
#include <string>

#include <utils/export.h>
#include <utils/singleton/SingletonT.h>

namespace utils::flag
{

/// A named setting of the process: mostly a trace level, sometimes a tunable default.
///
/// A flag registers its name when it is constructed and leaves the registry when it is destroyed;
/// names are unique. The value and its type come with FlagT.
///
/// Thread safety: flags are normally created during start-up. Flags may be constructed, looked up
/// and destroyed by several threads at once; a pointer that was looked up is only good as long as
/// its owner keeps the flag.
class GENERIC_UTILS_EXPORT Flag
{
  public:
    /// Registers the flag. A name that is taken is fatal: it is reported as error ALREADY_EXISTS,
    /// then the process ends with exit status 1.
    /// @param name by convention the qualified name of the member, such as
    ///        "utils::queue::m_traceSteps"
    explicit Flag(const std::string& name);

    /// Takes the flag out of the registry.
    virtual ~Flag() = 0;

    /// Sets the value from its text.
    /// @return false, with the value unchanged and nothing reported, when the text cannot be read
    virtual bool setValueStr(const std::string& text) = 0;

    /// The value as text.
    virtual std::string getValueStr() const = 0;

    /// Writes the line "Name  = '...'"; derived classes call it and add the value.
    virtual void output(std::ostream& os) const = 0;

    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// Takes the name out of the registry; nothing happens when it is not there.
    void cleanUp();

    /// Looks a flag up.
    /// @param name the whole name, letter case included
    /// @param quiet true: a miss is not reported
    /// @return the flag, or null when there is none; unless quiet, that is reported as warning
    ///        DOES_NOT_EXIST
    static Flag* getFlagPtr(const std::string& name, bool quiet = false);

    /// Writes all flags in the byte-wise order of their names, each followed by an empty line. For
    /// a time when no other thread constructs or destroys flags.
    static void outputFlags(std::ostream& os);

  private:
    std::string m_name;
};

/// Writes the flag through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Flag& flag);

}  // namespace utils::flag

namespace utils::singleton
{
extern template class SingletonT<std::map<std::string, utils::flag::Flag*>>;
}  // namespace utils::singleton

#endif
