#ifndef GENERIC_UTILS_FLAG_INITIALTEXT_H
#define GENERIC_UTILS_FLAG_INITIALTEXT_H

#include <string>

namespace utils::flag
{

/// The text that the initial values file holds for a flag that is being constructed. The first
/// call of the process reads the file.
/// @param text receives the text; untouched when there is none
/// @return whether there is one
bool findInitialText(const std::string& name, std::string& text);

/// Whether the calling thread is inside the construction of the initial values.
bool areInitialValuesBeingRead();

}  // namespace utils::flag

#endif
