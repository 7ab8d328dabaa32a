#include "core/ScpiError.h"

namespace instrument
{

const char* describe(ScpiError error)
{
    switch (error)
    {
        case ScpiError::NO_ERROR:
            return "No error";
        case ScpiError::INVALID_CHARACTER:
            return "Invalid character";
        case ScpiError::SYNTAX_ERROR:
            return "Syntax error";
        case ScpiError::DATA_TYPE_ERROR:
            return "Data type error";
        case ScpiError::PARAMETER_NOT_ALLOWED:
            return "Parameter not allowed";
        case ScpiError::MISSING_PARAMETER:
            return "Missing parameter";
        case ScpiError::UNDEFINED_HEADER:
            return "Undefined header";
        case ScpiError::INVALID_CHARACTER_IN_NUMBER:
            return "Invalid character in number";
        case ScpiError::SUFFIX_NOT_ALLOWED:
            return "Suffix not allowed";
        case ScpiError::INVALID_STRING_DATA:
            return "Invalid string data";
        case ScpiError::INVALID_BLOCK_DATA:
            return "Invalid block data";
        case ScpiError::EXECUTION_ERROR:
            return "Execution error";
        case ScpiError::INIT_IGNORED:
            return "Init ignored";
        case ScpiError::SETTINGS_CONFLICT:
            return "Settings conflict";
        case ScpiError::DATA_OUT_OF_RANGE:
            return "Data out of range";
        case ScpiError::ILLEGAL_PARAMETER_VALUE:
            return "Illegal parameter value";
        case ScpiError::DATA_CORRUPT_OR_STALE:
            return "Data corrupt or stale";
        case ScpiError::FILE_NAME_NOT_FOUND:
            return "File name not found";
        case ScpiError::OUT_OF_MEMORY:
            return "Out of memory";
        case ScpiError::QUEUE_OVERFLOW:
            return "Queue overflow";
        case ScpiError::INPUT_BUFFER_OVERRUN:
            return "Input buffer overrun";
        case ScpiError::QUERY_DEADLOCKED:
            return "Query DEADLOCKED";
    }
    return "";
}

}  // namespace instrument
