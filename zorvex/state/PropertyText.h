// One line of a property file: the name of a section header, the key of an entry, its value and its comment.
//
// A line is seen without the blanks around it, and a tab in it counts as a blank. All texts are host text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorvex {

/// A line without the blanks and tabs at both ends; what the other functions here take as a line.
std::string_view TrimmedLine(std::string_view line);

/// True when a part of a line equals a text, a tab in the line counting as a blank.
bool SameLineText(std::string_view part, std::string_view text, bool ignoreCase);

/// The name in a section header: what stands between the "[" and the first "]", or all behind the "[". The
/// line must begin with "[".
std::string_view HeaderName(std::string_view line);

/// If the line is the entry of a key (in any case): what follows the key, which begins with a blank or "=".
std::optional<std::string_view> TextBehindKey(std::string_view line, std::string_view key);

/// A value as an entry holds it: in double quotes when it contains a blank or is empty, its line breaks
/// written as backslash and "n".
std::string EncodeValue(std::string_view value);

/// The value in the text behind a key. Not every value survives: a "#" ends one without quotes, a double
/// quote ends one in quotes, and blanks at the end go.
std::string DecodeValue(std::string_view behindKey);

/// True for a name that a file can have on every system and that an entry gives back as it is. IDs are such
/// names: they become parts of file names, and two that read back alike would share a file.
bool IsKeepableName(std::string_view name);

/// What stands behind the value in the text behind a key, as a comment with three blanks before it, or
/// nothing.
std::string KeptComment(std::string_view behindKey);

/// A whole entry from a key, an encoded value and a comment.
std::string EntryLine(std::string_view key, std::string_view encodedValue, std::string_view comment = {});

}  // namespace zorvex
