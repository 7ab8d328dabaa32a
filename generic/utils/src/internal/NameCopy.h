#ifndef GENERIC_UTILS_INTERNAL_NAMECOPY_H
#define GENERIC_UTILS_INTERNAL_NAMECOPY_H

#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

namespace utils
{

/// The name of an object that may be gone before its name is traced for the last time.
///
/// A name of usual length is kept on the stack, so that executing commands allocates nothing.
class NameCopy
{
  public:
    // cppcheck-suppress uninitMemberVar ; written before it is read
    NameCopy() = default;
    explicit NameCopy(const std::string& name) { *this = name; }

    NameCopy& operator=(const std::string& name)
    {
        if (name.size() <= sizeof(m_short))
        {
            std::memcpy(m_short, name.data(), name.size());
            m_name = std::string_view(m_short, name.size());
        }
        else
        {
            m_long = name;
            m_name = m_long;
        }
        return *this;
    }

    NameCopy(const NameCopy&) = delete;
    NameCopy& operator=(const NameCopy&) = delete;

    std::string_view get() const { return m_name; }

  private:
    char m_short[128];  // not initialised, because one is made for every command executed
    std::string m_long;
    std::string_view m_name;
};

inline std::ostream& operator<<(std::ostream& os, const NameCopy& name)
{
    return os << name.get();
}

}  // namespace utils

#endif
