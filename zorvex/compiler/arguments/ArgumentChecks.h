// What the arguments of a command mean to the interpreter: does the room exist, is the position on the
// screen, will the value crash the game.
#pragma once

#include <array>
#include <cstdint>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

/// The arguments of a command, as bytes of the code; 0 past the last.
using ArgBytes = std::array<std::uint8_t, 8>;

/// Checks the arguments of an action command, in a fixed order. An error ends the compile, a warning goes out
/// and the next check follows. Notes that a new.room has been compiled.
void ValidateArgs(CompileRun& run, std::uint8_t command, const ArgBytes& args);

/// The same for a test command.
void ValidateIfArgs(CompileRun& run, std::uint8_t test, const ArgBytes& args);

}  // namespace zorvex
