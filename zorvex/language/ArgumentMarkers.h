// The letters that mark arguments in source: v12 is a variable, f12 a flag. The only table of them; the
// compiler, the decompiler and the rules of defines all ask here.
#pragma once

#include <array>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The letter before an argument's number in source, by ArgTypeEnum from atNum to atCtrl; lower case.
inline constexpr std::array<std::string_view, 9> ArgTypePrefixes{"", "v", "f", "m", "o", "i", "s", "w", "c"};

/// The letter of a marker of that type; 0 for a type without one.
constexpr char MarkerLetter(ArgTypeEnum type) {
    if (type >= ArgTypePrefixes.size() || ArgTypePrefixes[type].empty()) return 0;
    return ArgTypePrefixes[type].front();
}

/// The type that the first letter of a text marks, in either case; atDefStr for a text that begins otherwise.
ArgTypeEnum MarkerType(std::string_view text);

/// True for a marker letter, in either case, with a number behind it.
bool IsMarker(std::string_view text);

}  // namespace zorvex
