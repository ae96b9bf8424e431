// Game text, one byte a character, as the tool prints it.
#pragma once

#include <string>
#include <string_view>

namespace zorvex::tool {

/// Game text as UTF-8: each byte is the character of that code. No byte is lost, so a reader gets the bytes
/// back.
std::string GameTextAsUtf8(std::string_view gameText);

/// As GameTextAsUtf8, for a person's terminal: control characters as \xNN.
std::string PrintableGameText(std::string_view gameText);

}  // namespace zorvex::tool
