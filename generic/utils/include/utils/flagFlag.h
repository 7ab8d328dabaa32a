#ifndef GENERIC_UTILS_FLAGFLAG_H
#define GENERIC_UTILS_FLAGFLAG_H

#include <string>
#include <type_traits>

#include <utils/export.h>
#include <utils/flagFlagBase.h>

namespace utils::flag
{

/// An older flag with a value of type T: bool, float, int, long, unsigned short, unsigned int,
/// unsigned long or std::string.
///
/// A flag starts from the initial values file (see InitialValues) when the file names it and the
/// text there can be converted, otherwise from its default.
///
/// Thread safety: a value is normally set while no other thread reads it. Where the library itself
/// reads a flag, an arithmetic value may be set by any thread at any time.
template <typename T>
class GENERIC_UTILS_EXPORT Flag_Flag : public Flag_FlagBase
{
  public:
    /// Registers the flag (see Flag_FlagBase) and sets its start value. The first flag of the
    /// process causes the initial values file to be read.
    Flag_Flag(const std::string& name, const T& defaultValue);

    ~Flag_Flag() override;

    /// Reads one T as a stream does and passes it to setValue(): leading white space is skipped,
    /// reading stops at the first character that cannot belong to the value, overflow fails, a
    /// bool is 0 or 1, a string is the first word. An integer is decimal, or hexadecimal when the
    /// text begins with "0x".
    bool setValueStr(const std::string& text) override;

    /// Writes "Name (...) Value (...) ".
    std::ostream& output(std::ostream& os) const override;

    /// The value in the default format of a stream: decimal, "0" or "1", a string as it is.
    std::string getValueStr() const override;

    /// Changes the value, nothing else.
    virtual void setValue(const T& value);

    /// The value, by reference.
    virtual const T& getValue() const;

    /// The same as getValue().
    const T& operator()() const { return getValue(); }

  private:
    T m_value;
};

extern template class Flag_Flag<bool>;
extern template class Flag_Flag<float>;
extern template class Flag_Flag<int>;
extern template class Flag_Flag<long>;
extern template class Flag_Flag<unsigned short>;
extern template class Flag_Flag<unsigned int>;
extern template class Flag_Flag<unsigned long>;
extern template class Flag_Flag<std::string>;

/// A copy of a flag's arithmetic value, which another thread may be setting.
template <typename T>
T readValue(const Flag_Flag<T>& flag)
{
    static_assert(std::is_arithmetic_v<T>);
    T value;
    __atomic_load(&flag.getValue(), &value, __ATOMIC_RELAXED);
    return value;
}

}  // namespace utils::flag

#endif
