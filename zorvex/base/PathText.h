// The parts of an inner path, as text: nothing here asks the disk.
#pragma once

#include <string>
#include <string_view>

namespace zorvex {

/// A directory with a backslash behind it, unless it is empty or ends in one.
std::string CDir(std::string_view directory);
/// All but the last part of a path, with a backslash behind it (also behind an empty result) unless
/// `noSlash`.
std::string JustPath(std::string_view path, bool noSlash = false);
/// The part of a path behind its last backslash.
std::string JustFileName(std::string_view path);
/// The file name of a path up to, and without, its last ".".
std::string FileNameNoExt(std::string_view path);

}  // namespace zorvex
