#ifndef GENERIC_UTILS_INTERNAL_REPORT_H
#define GENERIC_UTILS_INTERNAL_REPORT_H

#include <string>

#include <utils/SourceLocation.h>
#include <utils/error/Error.h>

#include "internal/SourceFile.h"
#include "internal/TextOutput.h"

namespace utils::error
{

/// Builds an error and hands it to the error strategies.
///
///     error::report(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR, "Null pointer (", what,
///     ").");
///
/// Kept out of line, so that a report that is seldom made costs its caller no registers.
///
/// @return the error as delivered
template <typename... Words>
[[gnu::noinline, gnu::cold]] Error report(const SourceLocation& where, const std::string& name,
                                          Error::Severity severity, const Words&... words)
{
    Error error(sourceFile(where.file).c_str(), where.line, where.function, name, severity);
    appendText(error.getStream(), toText(words...));
    strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
    return error;
}

/// As report(), for misuse: ends the process when the strategies have run.
template <typename... Words>
[[noreturn, gnu::noinline, gnu::cold]] void reportFatal(const SourceLocation& where,
                                                        const std::string& name,
                                                        Error::Severity severity,
                                                        const Words&... words)
{
    report(where, name, severity, words...).throwError();
}

}  // namespace utils::error

#endif
