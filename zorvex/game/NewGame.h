// Making new games.
#pragma once

#include <string_view>

namespace zorvex {

/// Copies all files and subdirectories of a directory into another, which is made if need be; with `move`
/// what has been copied is deleted. A step that fails does not stop the rest. Returns false when any step
/// failed; raises nothing.
bool CopyDirectory(std::string_view source, std::string_view target, bool move);

/// Takes away the mark of a game that is being made. A directory that has it, after an attempt that failed or
/// was killed, is open to another attempt.
void EndMaking(std::string_view gameDir);

}  // namespace zorvex
