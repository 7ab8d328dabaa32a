#ifndef UTILS_FLAG_INITIALTEXT_H
#define UTILS_FLAG_INITIALTEXT_H

#include <string>

namespace utils::flag
{

/// The text that the initial values file holds for a flag that is being constructed. The first
/// call of the process reads the file.
/// @param text receives the text; untouched when there is none
/// @return whether there is one
bool findInitialText(const std::string& name, std::string& text);

}  // namespace utils::flag

#endif
