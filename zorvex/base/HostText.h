// Host text from the bytes of a file that somebody may have written with any editor.
#pragma once

#include <string>
#include <string_view>

namespace zorvex {

/// Bytes as host text: UTF-8 where all of them are that, else one character a byte.
std::string HostTextOf(std::string_view bytes);

}  // namespace zorvex
