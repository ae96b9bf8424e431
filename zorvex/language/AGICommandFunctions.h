// The one table of what a logic's bytecode can say: 183 action commands and 20
// test commands.
//
// A command's number is its place in its table, and that number is the opcode
// in a logic resource. Compiler, decompiler, checks of names and the public
// views AGICommands and AGITestCommands all read these two tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

inline constexpr std::size_t TestCommandRows = 20;
inline constexpr std::size_t ActionCommandRows = 183;

/// One command: its name in source (lower case, compared without regard to
/// case) and the arguments that follow its opcode, one byte each. The types at
/// and beyond ArgCount are atNum and mean nothing.
struct CommandStruct {
    std::string Name;
    std::uint8_t ArgCount = 0;
    std::array<ArgTypeEnum, 8> ArgType{};
};

/// The two tables, fitted to an interpreter version. Counts are the highest
/// valid numbers, not numbers of rows; rows above the count stay in the table,
/// so that an unsupported command can be told from an unknown name.
struct CommandTables {
    std::array<CommandStruct, TestCommandRows> TestCommandTable;
    std::array<CommandStruct, ActionCommandRows> ActionCommandTable;
    std::uint8_t TestCount = 0;
    std::uint8_t ActionCount = 0;
};

/// The library's tables; uncut until SetCommandsForVersion.
const CommandTables& CommandCatalogue();

/// Writes every row of both tables in full: TestCount is 19 and ActionCount
/// 182.
void InitCommandTables();

/// Cuts the action table to an interpreter version: sets ActionCount and the
/// argument counts of `quit`, `print.at` and `print.at.v`. Versions compare as
/// numbers in single precision.
void SetCommandsForVersion(std::string_view version);

/// The same for tables of one's own.
CommandTables CommandsOfVersion(std::string_view version);

/// The number of the command of that name, without regard to case and to the
/// version; -1 for none.
int ActionCommandNumber(std::string_view name);
int TestCommandNumber(std::string_view name);

}  // namespace zorvex
