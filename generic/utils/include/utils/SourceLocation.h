#ifndef GENERIC_UTILS_SOURCELOCATION_H
#define GENERIC_UTILS_SOURCELOCATION_H

namespace utils
{

/// The place in the source that a trace or an error report names. The texts live as long as the
/// process.
struct SourceLocation
{
    const char* file;  ///< as the compiler spells it; headers print it shortened, see sourceFile()
    int line;          ///< from 1
    const char* function;  ///< unqualified name
};

}  // namespace utils

/// The place where it stands, as a utils::SourceLocation.
#define GENERIC_UTILS_HERE \
    (::utils::SourceLocation{__FILE__, __LINE__, static_cast<const char*>(__func__)})

#endif
