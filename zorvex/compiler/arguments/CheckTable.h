// The table of the checks of arguments.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "zorvex/compiler/arguments/ArgumentChecks.h"

namespace zorvex {

/// What a condition looks at.
struct CheckedArgs {
    const CompileRun& run;
    const ArgBytes& a;
    std::uint8_t argCount;
};

/// What a row of the table does.
enum class CheckStep : std::uint8_t {
    Report,         // reports the row's number of the level if its condition holds
    ReservedVar,    // looks at the first argument as a variable that is changed
    ReservedValue,  // the same, with the second argument as the value it gets
    ReservedFlag,   // looks at the argument `index` as a flag that is changed
    NewRoom,        // notes that nothing that follows is run
    AddToPic,       // looks into the view
    TextRect        // tells two faults of a rectangle apart
};

/// What takes the place of %1 in a row's text.
enum class CheckFiller : std::uint8_t { None, Arg0, Arg1, Name };

/// The commands that a row is for.
struct CommandSet {
    constexpr CommandSet(std::initializer_list<int> list) {
        for (const int id : list)
            ids[count++] = static_cast<std::uint8_t>(id);
    }
    std::array<std::uint8_t, 12> ids{};
    std::size_t count = 0;
};

/// One check. A number below 5000 is an error, above it a warning, 0 is nothing; at leLow nothing is
/// reported.
struct ArgCheck {
    CommandSet commands;
    CheckStep step;
    bool (*holds)(const CheckedArgs&) = nullptr;
    std::int16_t high = 0;
    std::int16_t medium = 0;
    CheckFiller filler = CheckFiller::None;
    std::uint8_t index = 0;
};

/// The rows for action commands and for tests, in the order in which they run.
std::span<const ArgCheck> ActionChecks();
std::span<const ArgCheck> TestChecks();

}  // namespace zorvex
