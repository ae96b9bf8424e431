// What a piece of source text is worth as a number, a marker such as v12, or a quoted string.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The number that a whole text stands for, see ParseNumber.
std::optional<double> NumericValue(std::string_view text);

/// The byte that a number or a marker such as `v12` or `*v12` stands for, or -1. A fraction is rounded, half
/// to even. `w1` is 0, as words count from 1 in source.
std::int32_t VariableValue(std::string_view token);

/// True for a marker of just that type whose number a source may use.
bool IsMarkerOf(std::string_view text, ArgTypeEnum type);

/// True when a text ends in a double quote that no backslash makes an ordinary character. The first character
/// does not count.
bool EndsInQuote(std::string_view text);

/// The type's name in messages: "number", "variable", ..., "vocabulary word".
std::string_view ArgTypeLabel(ArgTypeEnum type);

}  // namespace zorvex
