// A look at a game's directory files before the library opens it.
#pragma once

#include <filesystem>
#include <vector>

#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

/// The files of a directory whose names end in "DIR", whatever their case.
std::vector<std::filesystem::path> DirectoryFileNames(const std::filesystem::path& directory);
/// The V2 directory files without a byte.
std::vector<std::filesystem::path> EmptyDirectoryFiles(const std::filesystem::path& directory);
/// The used entries of all directory files, as far as they can be read.
std::vector<SkippedResource> UsedEntries(const std::filesystem::path& directory);

}  // namespace zorvex::tool
