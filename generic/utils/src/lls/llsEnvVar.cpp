#include <utils/llsEnvVar.h>

#include <cstdlib>
#include <utility>

namespace utils
{

Lls_EnvVar::Lls_EnvVar(std::string name) : m_name(std::move(name)) {}

Lls_EnvVar::~Lls_EnvVar() = default;

bool Lls_EnvVar::isDefined() const
{
    return std::getenv(m_name.c_str()) != nullptr;
}

std::string Lls_EnvVar::getValue() const
{
    const char* const value = std::getenv(m_name.c_str());
    return value != nullptr ? value : "-- not available --";
}

}  // namespace utils
