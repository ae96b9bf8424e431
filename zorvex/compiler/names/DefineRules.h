// What a name and a value must be like for source to use them in a define.
#pragma once

#include <cstdint>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

class GlobalDefineTable;
class ReservedTables;

/// What speaks against a name. The numbers are fixed: tables of texts are indexed with them.
enum class DefineFault : std::uint8_t {
    None = 0,
    Empty = 1,
    Numeric = 2,
    ActionCommand = 3,
    TestCommand = 4,
    Keyword = 5,
    Marker = 6,
    GlobalName = 7,
    ReservedVariable = 8,
    ReservedFlag = 9,
    ReservedNumber = 10,
    ReservedObjectOrString = 11,
    ReservedMessage = 12,
    BadCharacter = 13
};

/// What speaks against a value.
enum class ValueFault : std::uint8_t {
    None = 0,
    Empty = 1,
    OutOfRange = 3,
    NotQuoted = 4,
    ReservedValue = 5,
    GlobalValue = 6
};

/// True for the name of something reserved, which a define may override below leHigh.
constexpr bool IsReservedNameFault(DefineFault fault) {
    return fault >= DefineFault::ReservedVariable && fault <= DefineFault::ReservedMessage;
}

// The reserved names count unless their pointer is null.

/// The first thing that speaks against a name. That it is the name of a global define gives way to a bad
/// character only.
DefineFault ValidateDefName(std::string_view name, const GlobalDefineTable& globals,
                            const ReservedTables* reserved);

/// What speaks against a define's value; sets its type.
ValueFault ValidateDefValue(TDefine& define, const GlobalDefineTable& globals,
                            const ReservedTables* reserved);

}  // namespace zorvex
