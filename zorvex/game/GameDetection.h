// What a directory of AGI files is: whether it is a game, which one, of which generation and interpreter
// version.
#pragma once

#include <string>
#include <string_view>

namespace zorvex {

/// True when a directory (with a backslash at its end) holds a game; sets the library's GameID and IsV3.
///
/// The first file whose name ends in "DIR" decides: with a volume 0 of the same head beside it the game is V3
/// and the head is its ID. Any other such file makes it V2; the ID is then the name of a loader program
/// (*.COM), "AGI" without one, and empty when the search for one meets a file that cannot be read.
bool IsValidGameDir(std::string_view directory);

/// The version of the library's game (GameDir, GameID, IsV3) from the interpreter's own data file, or the
/// default of the generation that the files show; may change IsV3.
std::string DetectInterpreterVersion();

/// True for an exact match with one of the known versions.
bool IsKnownVersion(std::string_view text);

/// Raises the error for a version that is not known: 543 for a number from 2 to 3, else 597. Nothing for a
/// known one.
void RequireKnownVersion(std::string_view version, std::string_view source);

/// Stores a known version, with all that follows from it: the generation, the command tables and, while a
/// game is open, its property.
void StoreVersion(std::string_view version);

}  // namespace zorvex
