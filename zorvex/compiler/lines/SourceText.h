// Source text as lines.
#pragma once

#include <string_view>

namespace zorvex {

/// The line without its comment, which begins with "[" or "//" outside a string, and without blanks at both
/// ends.
std::string_view StripComment(std::string_view line);

}  // namespace zorvex
