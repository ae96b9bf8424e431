// The code of a logic, instruction by instruction, for those who must see the bytes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// One instruction: a statement, a test, or one of the marks that hold an `if` together.
struct LogicInstruction {
    std::int32_t Position = 0;  // of its first byte in the resource
    std::int32_t Length = 0;    // in bytes
    std::string Text;           // name and arguments; a test is indented by two blanks
};

/// Lists the code of a logic from its first byte to its last, without checking that it makes sense: a byte
/// that is no instruction comes as "unknown", an instruction that is cut off ends in "...". The instructions
/// cover the code without gaps. Commands have the arguments of the game's interpreter version. Never raises.
std::vector<LogicInstruction> DisassembleLogic(ByteView data);

}  // namespace zorvex
