// The two bridges between host text (UTF-8) and game text (one byte a character, code page 437).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The character that a byte from 128 to 255 stands for: code page 437 with 255 for byte 255.
char32_t CodePageCharacter(std::uint8_t byte);
/// Game text to host text: each byte above 127 becomes the character of the code page, the others stay.
std::string ConvertToCodePage(std::string_view gameText);
/// Host text to game text: a character above 128 goes through CharToByte, any other gives its code.
ByteArray TextToBytes(std::string_view hostText);
/// As TextToBytes, held in a string.
std::string TextToGame(std::string_view hostText);
/// The byte that stands for a character: the first match in the code page's upper half plus 128, else 32.
std::uint8_t CharToByte(char32_t code);

}  // namespace zorvex
