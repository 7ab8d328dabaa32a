#include <libdir/DirectoryPaths.h>
#include <stdlib.h>

namespace libdir
{

DirectoryPaths::~DirectoryPaths() = default;

std::string DirectoryPaths::getGenericConfigurationDirectory() const
{
    const char* const directory = secure_getenv("GENERIC_CONFIG_DIR");
    return directory != nullptr ? directory : "/etc/generic";
}

DirectoryPaths* DirectoryPathsFactory::create()
{
    return new DirectoryPaths;
}

}  // namespace libdir
