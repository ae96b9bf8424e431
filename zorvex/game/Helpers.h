// Small operations on whose exact results file formats and comparisons depend.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/game/Types.h"
#include "zorvex/platform/Clock.h"

namespace zorvex {

/// The standard CRC-32 (IEEE 802.3, reflected polynomial EDB88320) of some bytes, in a signed field.
std::int32_t CRC32(ByteView bytes);
std::int32_t CRC32(std::string_view bytes);

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

/// A directory with a backslash behind it, unless it is empty or ends in one.
std::string CDir(std::string_view directory);
/// The current directory with a backslash behind it.
std::string CurrentDirectory();
/// All but the last part of a path, with a backslash behind it (also behind an empty result) unless
/// `noSlash`.
std::string JustPath(std::string_view path, bool noSlash = false);
/// The part of a path behind its last backslash.
std::string JustFileName(std::string_view path);
/// The file name of a path up to, and without, its last ".".
std::string FileNameNoExt(std::string_view path);

/// Upper-case hexadecimal digits without leading zeros, at least two; a negative value gives eight.
std::string Hex2(std::int32_t value);
/// Upper-case hexadecimal digits padded with zeros to `width`; a negative value gives eight.
std::string HexPad(std::int32_t value, int width);
/// A text joined `count` times.
std::string RepeatText(std::string_view text, std::uint8_t count);
/// The base-10 logarithm; 0 where there is none.
double Log10(double x);

/// Creates an empty file with a unique name in the library's temporary directory and returns its path. Raises
/// 547.
std::string TempFileName();
/// A file's last write time in universal time, or the zero date.
DateTime FileLastMod(std::string_view path);
/// True when a path is not empty and a file (or, if asked for, also a directory) of that name exists.
bool FileExists(std::string_view path, bool orDirectory = false);
/// True when a path names an existing directory; an ending backslash is allowed.
bool DirectoryExists(std::string_view path);

}  // namespace zorvex
