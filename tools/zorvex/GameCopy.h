// Copying a whole game to a new place.
#pragma once

#include <string>

namespace zorvex::tool {

/// Copies the directory of a game (a directory or a property file) to a new or empty directory. Returns what
/// to open there: the directory, or the property file if one was named. Raises UsageError when the target
/// holds anything.
std::string CopyGame(const std::string& game, const std::string& target);

}  // namespace zorvex::tool
