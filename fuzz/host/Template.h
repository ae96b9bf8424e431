// The files that each run begins with: two games, made by the library, and files that are none of its
// business.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "zorvex/Zorvex.h"

namespace zorvex::fuzz {

inline const std::string firstDir = "\\game\\";     // V2
inline const std::string secondDir = "\\second\\";  // V3, with the ID TST
inline const std::string outDir = "\\out\\";        // where hosts export to
inline const std::string builtDir = "\\built\\";    // where hosts build to

/// A copy of the files, made once a process.
std::shared_ptr<MemoryFileSystem> FreshFiles();
/// Files that must be as they were at the end of each run.
const std::map<std::string, ByteArray>& ForeignFiles();

}  // namespace zorvex::fuzz
