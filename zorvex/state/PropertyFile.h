// The property file: sections of keys and values in a text file, gathered into named groups.
//
// The file lives in memory as a StringList whose line 0 is the file's path; every read and write goes against
// the list, and only SavePropertyList touches the disk. A line is empty, a comment ("#" first), a section
// header
// ("[name]"), a group marker ("[::BEGIN name::]", "[::END name::]") or an entry: three blanks, the key, " =
// ", the value and perhaps a comment. Readers take any spacing. All texts are host text.
//
// None of these operations raises an error: a read falls back on its default, a write that fails is lost.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zorvex {

class StringList;

/// A new list with the file's lines, its path in line 0. Without a file, or with one that cannot be read, the
/// list holds one line "#". An empty file is made to hold that line, and with `create` so is a missing one.
std::shared_ptr<StringList> OpenPropertyList(std::string_view path, bool create);

/// Writes the list to the path in its line 0, through a temporary file beside it, so that a save that fails
/// leaves the former file as it was. False after a failure; the record of the last caught error then tells
/// which.
bool SavePropertyList(StringList& list);

/// The value of a key; section and key compare without regard to case. A missing section or key is created
/// with the default, which is returned. Without a list (null), or when the
/// text does not convert, the default is returned.
std::string ReadPropertyString(StringList* list, std::string_view section, std::string_view key,
                               std::string_view defaultValue);
std::int32_t ReadPropertyLong(StringList* list, std::string_view section, std::string_view key,
                              std::int32_t defaultValue);
std::uint8_t ReadPropertyByte(StringList* list, std::string_view section, std::string_view key,
                              std::uint8_t defaultValue);
bool ReadPropertyBool(StringList* list, std::string_view section, std::string_view key, bool defaultValue);

/// Sets a key, creating what is missing; section and group compare exactly, the key without regard to case.
/// With a group the section ends up between the group's markers.
void WritePropertyLine(StringList& list, std::string_view section, std::string_view key,
                       std::string_view value, std::string_view group = {});

/// Removes the first entry of a section whose line begins with the key; all compared exactly.
void DeletePropertyKey(StringList& list, std::string_view section, std::string_view key);

/// Removes a section's header and all its lines; compared exactly.
void DeletePropertySection(StringList& list, std::string_view section);

}  // namespace zorvex
