#include <utils/llsUser.h>

#include <utils/llsEnvVar.h>

namespace utils
{

Lls_User::Lls_User() : m_name(Lls_EnvVar("USER").getValue()) {}

Lls_User::~Lls_User() = default;

}  // namespace utils
