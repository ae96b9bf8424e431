// The open game's properties: the property list of the library's record, as the objects of the game use it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvex {

/// Writes a key of the open game's property list, in memory only, and sets LastEdit to now unless the key is
/// "LastEdit", "ZorvexVersion" or "Palette". Nothing happens while there is no list.
void WriteGameProperty(std::string_view section, std::string_view key, std::string_view value,
                       std::string_view group = {});

/// Readers of the open game's list. A missing key is created with its default; without a list the default is
/// returned.
std::string ReadGameString(std::string_view section, std::string_view key, std::string_view defaultValue);
std::int32_t ReadGameLong(std::string_view section, std::string_view key, std::int32_t defaultValue);
std::uint8_t ReadGameByte(std::string_view section, std::string_view key, std::uint8_t defaultValue);
bool ReadGameBool(std::string_view section, std::string_view key, bool defaultValue);

void DeleteGameProperty(std::string_view section, std::string_view key);
void DeleteGameSection(std::string_view section);

/// Writes the property list to its file, if there is a list. False when the file could not be written.
bool SaveGameProperties();

/// Reads the general values and the palette from the list into the library's record. Raises 13 for a LastEdit
/// that is no date, after all other values have been read.
void GetGameProperties();
/// Writes the date of the last edit. The text of one that could not be read stays until there is another.
void WriteLastEdit();

/// Appends a line to errlog.txt in the game directory: level 0 is a warning, any other an error. Never
/// raises.
void WriteLogEntry(int level, std::string_view text);

}  // namespace zorvex
