#ifndef GENERIC_UTILS_ERROR_ERROR_H
#define GENERIC_UTILS_ERROR_ERROR_H

#include <iosfwd>
#include <sstream>
#include <string>

#include <utils/export.h>
#include <utils/strategy/StrategyT.h>

// Some applications and frameworks have macros of these names: set aside here, and put back below.
#pragma push_macro("INFO")
#pragma push_macro("WARNING")
#pragma push_macro("ERROR")
#pragma push_macro("CRITICAL")
#pragma push_macro("FATAL")
#undef INFO
#undef WARNING
#undef ERROR
#undef CRITICAL
#undef FATAL

namespace utils::error
{

/// One error report: where it was made, a name, a severity and a text.
///
/// An error is built where a failure is found, its text is written into its stream, and it is
/// handed to the strategies of type STRATEGY_TYPE. When the failure is fatal, throwError() then
/// ends the process.
///
///     utils::error::Error error(__FILE__, __LINE__, __func__, "DiskFull", Error::WARNING);
///     error.getStream() << "No room for '" << name << "'.";
///     utils::strategy::StrategyT<utils::error::Error>::invokeStrategies(Error::STRATEGY_TYPE,
///     error);
///
/// Thread safety: an error belongs to one thread. The constants may be used by all, as long as the
/// process lives.
class GENERIC_UTILS_EXPORT Error
{
  public:
    /// How bad it is.
    enum Severity : int
    {
        INFO = 1,
        WARNING = 2,
        ERROR = 3,
        CRITICAL = 4,
        FATAL = 5
    };

    /// "Error": the strategy type under which errors are delivered.
    static const std::string& STRATEGY_TYPE;

    /// @name Error names of general use; any other text is a name as well.
    /// @{
    static const std::string& ALREADY_EXISTS;     ///< "AlreadyExists"
    static const std::string& DOES_NOT_EXIST;     ///< "DoesNotExist"
    static const std::string& INVALID_ARGUMENT;   ///< "InvalidArgument"
    static const std::string& NOT_IMPLEMENTED;    ///< "NotImplemented"
    static const std::string& NULL_PTR;           ///< "NullPtr"
    static const std::string& UNKNOWN_EXCEPTION;  ///< "UnknownException"
    /// @}

    /// Begins a report: writes the header into the stream (severity, name, user, time, place).
    /// @param file,line,function the place; a null text puts the stream into its bad state
    /// @param name what kind of failure, a short word
    /// @param severity any value; one that is no enumerator is written as "UNKNOWN"
    Error(const char* file, int line, const char* function, const std::string& name,
          const Severity& severity);

    /// Copies name, severity and text; the copy can be written to further.
    Error(const Error& other);

    /// Likewise.
    Error& operator=(const Error& other);

    virtual ~Error();

    /// Writes the text, nothing else.
    virtual void output(std::ostream& os);

    /// The text so far, header included, to be written to.
    std::ostringstream& getStream() { return m_stream; }

    /// What kind of failure, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// The severity, as given to the constructor.
    Severity getSeverity() const { return m_severity; }

    /// "INFO" ... "FATAL", or "UNKNOWN" for any other value.
    static std::string severityToString(const Severity& severity);

    /// Ends the process with exit status 1; static destructors run. Despite its name nothing is
    /// thrown. When two threads get here, the first ends the process; when it is reached again
    /// while the process ends, the process ends at once.
    [[noreturn]] void throwError();

  private:
    std::string m_name;
    Severity m_severity;
    std::ostringstream m_stream;
};

/// Writes the error through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Error& error);

}  // namespace utils::error

#pragma pop_macro("INFO")
#pragma pop_macro("WARNING")
#pragma pop_macro("ERROR")
#pragma pop_macro("CRITICAL")
#pragma pop_macro("FATAL")

namespace utils::strategy
{
extern template class StrategyT<utils::error::Error>;
}  // namespace utils::strategy

#endif
