// Text helpers. Host text is UTF-8 and counts in characters; game text is one byte a character. Case is ASCII
// case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvex {

// --- Host text (UTF-8) ---
/// Takes the next character off the front of a UTF-8 text; a malformed byte counts as one character, U+FFFD.
/// The text must not be empty.
char32_t TakeCharacter(std::string_view& text);
/// Appends a character's UTF-8 form.
void AppendCharacter(std::string& text, char32_t character);
/// The number of characters of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);
/// The first `count` characters; never splits one.
std::string CutCharacters(std::string_view text, std::size_t count);

// --- Any text ---
char LowerCase(char character);
char UpperCase(char character);
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);
bool EqualNoCase(std::string_view left, std::string_view right);
bool StartsWithNoCase(std::string_view text, std::string_view start);
/// Less than zero, zero or more, comparing byte by byte in lower case.
int CompareNoCase(std::string_view left, std::string_view right);

/// The text without blanks at both ends. Only the blank counts, not tabs or line ends.
std::string_view Trim(std::string_view text);
std::string ReplaceAll(std::string_view text, std::string_view old, std::string_view replacement);
/// The pieces between separators; an empty text gives one empty piece. The separator must not be empty.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
/// Calls `take` for each line of a text. CR LF, CR, LF and vertical tab each end a line; an empty text is one
/// empty line, as is what follows a line end at the very end.
template <class Take>
void ForEachLine(std::string_view text, Take&& take) {
    while (true) {
        std::size_t end = 0;
        while (end < text.size() && !(text[end] >= '\n' && text[end] <= '\r' && text[end] != '\f'))
            ++end;
        take(text.substr(0, end));
        if (end == text.size()) return;
        const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        text.remove_prefix(end + (pair ? 2 : 1));
    }
}
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);
/// True when a name matches a pattern of plain characters, "*" and "?", without regard to case.
bool MatchesPattern(std::string_view name, std::string_view pattern);

// --- Numbers as text ---
/// The number that the longest prefix of the form blanks, sign, digits and point gives; nothing numeric gives
/// 0.
double Val(std::string_view text);
/// The number that the whole text stands for: blanks around, a sign, digits with at most one point. Nothing
/// else.
std::optional<double> ParseNumber(std::string_view text);
/// As ParseNumber, and also "&H" with one to eight hexadecimal digits; rounded half to even. Nothing when the
/// text is no number or does not fit 32 bits.
std::optional<std::int32_t> ParseLong(std::string_view text);
/// "True" or "False" in any case, or a number, of which 0 is false.
std::optional<bool> ParseBool(std::string_view text);
/// "True" or "False".
std::string_view BoolText(bool value);
/// Upper-case hexadecimal digits without leading zeros, at least two; a negative value gives eight.
std::string Hex2(std::int32_t value);
/// Upper-case hexadecimal digits padded with zeros to `width`; a negative value gives eight.
std::string HexPad(std::int32_t value, int width);
/// A text joined `count` times.
std::string RepeatText(std::string_view text, std::uint8_t count);
/// The base-10 logarithm; 0 where there is none.
double Log10(double x);
/// The whole number nearest to a value, halves to the even one.
double RoundHalfEven(double value);

}  // namespace zorvex
