#ifndef GENERIC_UTILS_FLAG_FLAGT_H
#define GENERIC_UTILS_FLAG_FLAGT_H

#include <atomic>
#include <string>
#include <type_traits>

#include <utils/export.h>
#include <utils/flag/Flag.h>

namespace utils::flag
{

/// A flag with a value of type T: bool, int, unsigned long or std::string.
///
/// A flag starts from the initial values file (see InitialValues) when the file names it and the
/// text there can be converted, otherwise from its default.
///
/// As text, numbers and bool are read as a stream reads them: leading white space is skipped,
/// reading stops at the first character that cannot belong to the value, overflow fails, a bool is
/// 0 or 1. A string is the first word of the text.
///
/// Thread safety: an arithmetic value may be read and written by any thread at any time; a new
/// value is seen at the next read. A string may be changed only while no other thread reads it.
template <typename T>
class GENERIC_UTILS_EXPORT FlagT : public Flag
{
  public:
    /// What reading yields: a copy of an arithmetic value, a reference to a string.
    using Value = std::conditional_t<std::is_arithmetic_v<T>, T, const T&>;

    /// Registers the flag (see Flag) and sets its start value. The first flag of the process
    /// causes the initial values file to be read.
    FlagT(const std::string& name, const T& defaultValue);

    ~FlagT() override;

    /// See Flag; an empty or blank text fails for every T.
    bool setValueStr(const std::string& text) override;

    /// The value in the default format of a stream: decimal, "0" or "1", a string as it is.
    std::string getValueStr() const override;

    /// Writes the name's line and the line "Value = ...".
    void output(std::ostream& os) const override;

    /// The current value.
    Value getValue() const
    {
        if constexpr (std::is_arithmetic_v<T>)
        {
            return m_value.load(std::memory_order_relaxed);
        }
        else
        {
            return m_value;
        }
    }

    /// The current value.
    Value operator()() const { return getValue(); }

    /// Changes the value; nothing is traced.
    void setValue(const T& value)
    {
        if constexpr (std::is_arithmetic_v<T>)
        {
            m_value.store(value, std::memory_order_relaxed);
        }
        else
        {
            m_value = value;
        }
    }

  private:
    std::conditional_t<std::is_arithmetic_v<T>, std::atomic<T>, T> m_value;
};

extern template class FlagT<bool>;
extern template class FlagT<int>;
extern template class FlagT<unsigned long>;
extern template class FlagT<std::string>;

}  // namespace utils::flag

#endif
