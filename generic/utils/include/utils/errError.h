#ifndef GENERIC_UTILS_ERRERROR_H
#define GENERIC_UTILS_ERRERROR_H

#include <cstdint>
#include <iosfwd>
#include <string>

#include <utils/export.h>

namespace utils::err
{

/// One report of the older error family: where it was made, a severity word, the name of its
/// class, user, time and a numeric code. New code uses utils::error::Error.
///
/// An error is built where a failure is found, handed to the Err_Strategy objects by
/// notifyStrategies(), and discarded.
///
/// A null text passed to a constructor of this family fails with std::logic_error
/// "basic_string::_M_construct null not valid".
///
/// Thread safety: an error belongs to one thread at a time.
class GENERIC_UTILS_EXPORT Err_Error
{
  public:
    /// @param file,line,function the place
    /// @param severity a word such as "Error" or "Warning"
    /// @param name the name of the error's class
    Err_Error(const char* file, int line, const char* function, const char* severity,
              const char* name);

    virtual ~Err_Error();

    /// Writes the two lines of the header; derived classes call it and add a line.
    virtual void output(std::ostream& os) const;

    /// What output() writes, and a NUL character.
    virtual std::string getString() const;

    /// Ends the process with exit status 1; static destructors run.
    virtual void exitOnError() const;

    /// Copies all that the error holds.
    Err_Error(const Err_Error& other) = default;

    /// Likewise.
    Err_Error& operator=(const Err_Error& other) = default;

    /// The name of the error's class.
    const std::string& getName() const { return m_name; }

    /// The severity's word.
    const std::string& getSeverityStr() const { return m_severity; }

    /// 0xFFFFFFFF unless the class, or the application, has set another one.
    std::uint32_t getErrorCode() const { return m_errorCode; }

    /// Replaces the code; any value.
    void setErrorCode(std::uint32_t errorCode) { m_errorCode = errorCode; }

    /// The code as four decimal numbers joined by dots: bit 31, bits 28 to 30, bits 16 to 27, and
    /// bits 0 to 15; 0x8000000D is "1.0.0.13".
    std::string getErrorCodeStr() const;

    /// Hands the error to every interested strategy, in the order of their registration. While no
    /// strategy is registered, Err_Strategy::defaultProcessError() takes it, and then
    /// @param recoverable false ends the process
    void notifyStrategies(bool recoverable) const;

  private:
    std::string m_file;
    int m_line;
    std::string m_function;
    std::string m_severity;
    std::string m_name;
    std::string m_user;
    std::string m_time;
    std::uint32_t m_errorCode;
};

/// Writes the error through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Err_Error& error);

}  // namespace utils::err

#endif
