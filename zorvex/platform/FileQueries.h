// Short questions to the file system in use.
#pragma once

#include <string>
#include <string_view>

#include "zorvex/platform/Clock.h"

namespace zorvex {

/// The current directory with a backslash behind it.
std::string CurrentDirectory();
/// Creates an empty file with a unique name in the system's temporary directory (the current directory where
/// there is none) and returns its path. Raises 547.
std::string TempFileName();
/// A file's last write time in universal time, or the zero date.
DateTime FileLastMod(std::string_view path);
/// True when a path is not empty and a file (or, if asked for, also a directory) of that name exists.
bool FileExists(std::string_view path, bool orDirectory = false);
/// True when a path names an existing directory; an ending backslash is allowed.
bool DirectoryExists(std::string_view path);

}  // namespace zorvex
