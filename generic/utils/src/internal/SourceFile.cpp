#include "internal/SourceFile.h"

#include <string_view>

namespace utils
{

std::string sourceFile(const char* path)
{
    std::string_view file(path);

    const std::size_t root = file.rfind("generic/utils/");
    if (root != std::string_view::npos)
    {
        file.remove_prefix(root);
    }

    const std::size_t dot = file.rfind('.');
    const std::size_t slash = file.rfind('/');
    const bool hasExtension =
        dot != std::string_view::npos && (slash == std::string_view::npos || dot > slash);
    return std::string(hasExtension ? file.substr(0, dot) : file);
}

}  // namespace utils
