#ifndef GENERIC_UTILS_INTERNAL_OLDERREPORT_H
#define GENERIC_UTILS_INTERNAL_OLDERREPORT_H

#include <utils/SourceLocation.h>

#include "internal/SourceFile.h"

namespace utils::err
{

/// Builds an error of the older family and hands it to the older error strategies; while there is
/// none, an error that is not recoverable ends the process.
///
///     err::report<Err_NullPtrError>(GENERIC_UTILS_HERE, false, "aspectPtr");
///
/// @param details what the error's constructor takes behind the place
template <typename Error, typename... Details>
void report(const SourceLocation& where, bool recoverable, const Details&... details)
{
    Error(sourceFile(where.file).c_str(), where.line, where.function, details...)
        .notifyStrategies(recoverable);
}

}  // namespace utils::err

#endif
