#ifndef LIBDIR_DIRECTORYPATHS_H
#define LIBDIR_DIRECTORYPATHS_H

#include <string>

namespace libdir
{

/// Where the platform keeps its files.
class __attribute__((visibility("default"))) DirectoryPaths
{
  public:
    virtual ~DirectoryPaths();

    /// The directory of the generic configuration files, without a file name.
    ///
    /// On a host: environment variable GENERIC_CONFIG_DIR (ignored in a set-user-ID process), or
    /// "/etc/generic" when that is not set.
    virtual std::string getGenericConfigurationDirectory() const;
};

/// Makes DirectoryPaths objects.
class __attribute__((visibility("default"))) DirectoryPathsFactory
{
  public:
    /// A new object, owned by the caller. Never null.
    static DirectoryPaths* create();
};

}  // namespace libdir

#endif
