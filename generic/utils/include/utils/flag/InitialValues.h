#ifndef GENERIC_UTILS_FLAG_INITIALVALUES_H
#define GENERIC_UTILS_FLAG_INITIALVALUES_H

#include <map>
#include <string>

#include <utils/export.h>
#include <utils/singleton/SingletonT.h>

namespace utils::flag
{

/// The start values of flags, read from the text file "generic_flags.txt" in the platform's
/// directory of generic configuration files; reached through SingletonT<InitialValues>.
///
/// The file holds pairs of lines, a flag's name and its value:
///
///     # trace settings
///     utils::queue::m_traceSteps
///     3
///
/// White space around a line does not count; empty lines and lines that begin with "#" are
/// skipped. When a name stands twice the later value holds; a last name without a value has an
/// empty one.
///
/// Thread safety: constructing flags on several threads is safe; reading the file again is for a
/// time when no flag is being constructed.
class GENERIC_UTILS_EXPORT InitialValues
{
  public:
    /// Reads the file.
    InitialValues();
    virtual ~InitialValues();

    InitialValues(const InitialValues&) = delete;
    InitialValues& operator=(const InitialValues&) = delete;

    /// Reads the file again and merges its pairs: names in the file get their new values, other
    /// names keep theirs. Flags that exist are not changed. When the file cannot be opened or read
    /// to its end, that is reported as error "Read Error", and what was read before stays.
    void redoInitialValuesCollection();

    /// Looks up a start value.
    /// @param name the flag's whole name
    /// @param value receives the text; untouched when there is none
    /// @return whether the file names the flag
    bool getInitialValue(const std::string& name, std::string& value) const;

  private:
    GENERIC_UTILS_LOCAL void readPairs(std::istream& file);

    std::map<std::string, std::string> m_values;
};

}  // namespace utils::flag

namespace utils::singleton
{
extern template class SingletonT<utils::flag::InitialValues>;
}  // namespace utils::singleton

#endif
