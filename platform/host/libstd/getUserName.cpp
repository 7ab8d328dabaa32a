#include <errno.h>
#include <libstd/system.h>
#include <pwd.h>
#include <unistd.h>

#include <map>
#include <mutex>
#include <optional>
#include <vector>

namespace std
{
namespace
{

constexpr size_t firstBufferSize = 1024;

/// The user's entry in the password database: its name, the number when there is no entry, or
/// nothing when the database could not be read.
optional<string> readUserName(uid_t user)
{
    vector<char> buffer(firstBufferSize);
    passwd entry{};
    passwd* found = nullptr;
    int error = ERANGE;
    while ((error = getpwuid_r(user, &entry, buffer.data(), buffer.size(), &found)) == ERANGE)
    {
        buffer.resize(buffer.size() * 2);
    }
    if (found != nullptr)
    {
        return found->pw_name;
    }
    return error == 0 ? optional(to_string(user)) : nullopt;
}

/// Names of the users that this process has been, so that the database is read once for each. Never
/// destroyed, as threads may report errors until the process is gone.
class UserNames
{
  public:
    string get(uid_t user)
    {
        const lock_guard guard(m_mutex);
        const auto known = m_names.find(user);
        if (known != m_names.end())
        {
            return known->second;
        }
        const optional<string> name = readUserName(user);
        return name ? m_names.emplace(user, *name).first->second : to_string(user);
    }

  private:
    mutex m_mutex;
    map<uid_t, string> m_names;
};

}  // namespace

string getUserName()
{
    static auto& names = *new UserNames;
    return names.get(geteuid());
}

}  // namespace std
