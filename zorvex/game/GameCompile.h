// Making a complete new set of game files.
#pragma once

#include <string_view>

#include "zorvex/game/BuildOptions.h"

namespace zorvex {

/// Writes all resources of the open game into new volumes and directory files, packed without gaps, after
/// compiling the vocabulary, the inventory and every logic unless `rebuildOnly`. The files go to
/// `newGameDir`, or with an empty one to the game's own directory, where the former files stay as .OLD. While
/// LibraryState::VersionChanging is set the layout of the other generation is written, and the game has
/// `newVersion` from the moment at which its files are in their places.
///
/// New files are built under names of their own and take their places at the very end, so that a run that is
/// canceled, fails or dies leaves the old game. Reports through AGIGameEvents::CompileGameStatus; a resource
/// that fails is reported there and is absent from the new game. Raises 561, 694, 503, 593, 638 and 640 for a
/// failure of the whole run, 5 from the handler of a run, and 91 after a handler has closed the game.
void CompileGameFiles(bool rebuildOnly, std::string_view newGameDir, std::string_view newVersion = {});

/// The same in the way that a host asks for, with a report; the report is in step whenever the run ends, also
/// by a fault.
void BuildGameFiles(const BuildOptions& options, std::string_view newVersion, BuildReport& report);

}  // namespace zorvex
