// Copying a whole game to a new place.
#pragma once

#include <filesystem>
#include <string>

namespace zorvex::tool {

/// Copies all files of a directory and of those below it, also through links, into another one that exists
/// and may lie within the first. What cannot be read is left out and told of; what is no file (a pipe, a link
/// to nothing) is left out. The copies can be written to.
void CopyDirectoryTree(const std::filesystem::path& source, const std::filesystem::path& target);

/// Copies the directory of a game (a directory or a property file) to a new or empty directory. Returns what
/// to open there: the directory, or the property file if one was named. Raises UsageError when the target
/// holds anything.
std::string CopyGame(const std::string& game, const std::string& target);

}  // namespace zorvex::tool
