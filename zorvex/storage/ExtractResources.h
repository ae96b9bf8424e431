// Reading a game's directory files: one object in the collections per used entry.
//
// V2 has a file of entries for each type, without a header. V3 has one file, see V3Directory.h.
#pragma once

namespace zorvex {

/// Registers every resource that the open game's directory files name. Resources that cannot be read are
/// logged, and their entries are blanked on disk, with the former file kept as .OLD. Returns true if anything
/// was logged. Raises 524, 542, the plain number 511 and 545 for a failure of a directory as a whole.
bool ExtractResources();

}  // namespace zorvex
