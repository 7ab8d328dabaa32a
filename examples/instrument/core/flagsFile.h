#ifndef INSTRUMENT_CORE_FLAGSFILE_H
#define INSTRUMENT_CORE_FLAGSFILE_H

#include <string>

namespace instrument
{

/// The name that a file of flags must have, as the library looks for it.
inline constexpr const char* FLAGS_FILE_NAME = "generic_flags.txt";

/// Has all flags start from a file, the library's and this program's. To be called before the first
/// use of the library, because its first flag reads the file.
/// @param folder of the file generic_flags.txt
void readFlags(const std::string& folder);

/// Reads the file again and gives the flags that it names their values. Flags that it does not name
/// any more keep theirs.
/// @return false, with nothing changed, when the file cannot be read
bool readFlagsAgain();

/// The file.
std::string getFlagsFile();

}  // namespace instrument

#endif
