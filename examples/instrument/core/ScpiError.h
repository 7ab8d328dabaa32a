#ifndef INSTRUMENT_CORE_SCPIERROR_H
#define INSTRUMENT_CORE_SCPIERROR_H

#include <exception>

namespace instrument
{

/// The errors of SCPI-1999 that this instrument reports.
enum class ScpiError : int
{
    NO_ERROR = 0,
    INVALID_CHARACTER = -101,
    SYNTAX_ERROR = -102,
    DATA_TYPE_ERROR = -104,
    PARAMETER_NOT_ALLOWED = -108,
    MISSING_PARAMETER = -109,
    UNDEFINED_HEADER = -113,
    INVALID_CHARACTER_IN_NUMBER = -121,
    SUFFIX_NOT_ALLOWED = -138,
    INVALID_STRING_DATA = -151,
    INVALID_BLOCK_DATA = -161,
    EXECUTION_ERROR = -200,
    INIT_IGNORED = -213,
    SETTINGS_CONFLICT = -221,
    DATA_OUT_OF_RANGE = -222,
    ILLEGAL_PARAMETER_VALUE = -224,
    DATA_CORRUPT_OR_STALE = -230,
    FILE_NAME_NOT_FOUND = -256,
    OUT_OF_MEMORY = -321,
    QUEUE_OVERFLOW = -350,
    INPUT_BUFFER_OVERRUN = -363,
    QUERY_DEADLOCKED = -430
};

/// The standard text of an error.
const char* describe(ScpiError error);

/// Thrown by whatever takes part in a command: ends the command with an error.
class CommandFailure : public std::exception
{
  public:
    explicit CommandFailure(ScpiError error) : m_error(error) {}

    ScpiError getError() const { return m_error; }
    const char* what() const noexcept override { return describe(m_error); }

  private:
    ScpiError m_error;
};

}  // namespace instrument

#endif
