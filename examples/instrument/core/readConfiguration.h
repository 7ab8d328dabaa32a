#ifndef INSTRUMENT_CORE_READCONFIGURATION_H
#define INSTRUMENT_CORE_READCONFIGURATION_H

#include <string>

#include "core/Configuration.h"

namespace instrument
{

/// Reads a configuration from its XML text.
///
/// While it reads, error reports of the library come here; so it is for a time when no other thread
/// uses the library.
/// @param fileName only for the message
/// @throw std::runtime_error with the message "FILE:LINE:COLUMN: what is wrong"
Configuration readConfiguration(const std::string& xml, const std::string& fileName);

/// Reads a configuration file; likewise.
/// @throw std::runtime_error also when the file cannot be read
Configuration readConfigurationFile(const std::string& path);

}  // namespace instrument

#endif
