#include <libos/threadName.h>

#include <algorithm>

namespace host
{

KernelThreadName toKernelThreadName(std::string_view name)
{
    KernelThreadName result{};
    constexpr size_t maxLength = result.size() - 1;
    if (name.size() <= maxLength)
    {
        std::copy(name.begin(), name.end(), result.begin());
        return result;
    }
    constexpr size_t partLength = maxLength / 2;
    char* const middle = std::copy_n(name.begin(), partLength, result.begin());
    *middle = '~';
    std::copy(name.end() - partLength, name.end(), middle + 1);
    return result;
}

}  // namespace host
