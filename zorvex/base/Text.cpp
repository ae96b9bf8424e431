#include "zorvex/base/Text.h"

#include <cmath>
#include <limits>

namespace zorvex {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

/// Length and first bits of a UTF-8 sequence by its first byte; length 0 for a byte that starts none.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead LeadOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte <= 0xDF) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte <= 0xEF) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte <= 0xF4) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
    const Lead lead = LeadOf(static_cast<unsigned char>(text.front()));
    char32_t character = lead.bits;
    bool wellFormed = lead.length != 0 && lead.length <= text.size();
    for (std::size_t i = 1; wellFormed && i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        wellFormed = (byte & 0xC0U) == 0x80U;
        character = (character << 6U) | (byte & 0x3FU);
    }
    wellFormed = wellFormed && character >= lead.least && character <= 0x10FFFF &&
                 !(character >= 0xD800 && character <= 0xDFFF);
    text.remove_prefix(wellFormed ? lead.length : 1);
    return wellFormed ? character : replacementCharacter;
}

void AppendCharacter(std::string& text, char32_t character) {
    const auto append = [&text](char32_t bits) {
        text.push_back(static_cast<char>(static_cast<unsigned char>(bits)));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6U));
        append(0x80 | (character & 0x3FU));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12U));
        append(0x80 | ((character >> 6U) & 0x3FU));
        append(0x80 | (character & 0x3FU));
    } else {
        append(0xF0 | (character >> 18U));
        append(0x80 | ((character >> 12U) & 0x3FU));
        append(0x80 | ((character >> 6U) & 0x3FU));
        append(0x80 | (character & 0x3FU));
    }
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    while (!text.empty()) {
        TakeCharacter(text);
        ++count;
    }
    return count;
}

std::string CutCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count) return std::string(text);
    std::string_view rest = text;
    while (count > 0 && !rest.empty()) {
        TakeCharacter(rest);
        --count;
    }
    return std::string(text.substr(0, text.size() - rest.size()));
}

char LowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

char UpperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

std::string LowerCase(std::string_view text) {
    std::string result(text);
    for (char& character : result)
        character = LowerCase(character);
    return result;
}

std::string UpperCase(std::string_view text) {
    std::string result(text);
    for (char& character : result)
        character = UpperCase(character);
    return result;
}

bool EqualNoCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (LowerCase(left[i]) != LowerCase(right[i])) return false;
    }
    return true;
}

bool StartsWithNoCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && EqualNoCase(text.substr(0, start.size()), start);
}

int CompareNoCase(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto a = static_cast<unsigned char>(LowerCase(left[i]));
        const auto b = static_cast<unsigned char>(LowerCase(right[i]));
        if (a != b) return a < b ? -1 : 1;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view old, std::string_view replacement) {
    std::string result;
    for (std::size_t at = old.empty() ? std::string_view::npos : text.find(old); at != std::string_view::npos;
         at = text.find(old)) {
        result.append(text.substr(0, at)).append(replacement);
        text.remove_prefix(at + old.size());
    }
    return result.append(text);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
        pieces.emplace_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
    }
    pieces.emplace_back(text);
    return pieces;
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result.append(separator);
        result.append(pieces[i]);
    }
    return result;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    // The usual two-finger walk: after a mismatch go back to the last "*" and let it take one more character.
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            starName = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || LowerCase(pattern[p]) == LowerCase(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

namespace {

struct NumberPrefix {
    double value = 0;
    std::size_t length = 0;  // 0: the text does not begin with a number
};

NumberPrefix ReadNumberPrefix(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && text[at] == ' ')
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) negative = text[at++] == '-';
    double value = 0;
    double scale = 1;
    bool point = false;
    bool digits = false;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '.' && !point) {
            point = true;
        } else if (c >= '0' && c <= '9') {
            digits = true;
            value = value * 10 + (c - '0');
            if (point) scale *= 10;
        } else {
            break;
        }
    }
    if (!digits) return {};
    value /= scale;
    return {negative ? -value : value, at};
}

std::optional<std::int32_t> ParseHex(std::string_view digits) {
    if (digits.empty() || digits.size() > 8) return std::nullopt;
    std::uint32_t value = 0;
    for (const char c : digits) {
        const char upper = UpperCase(c);
        std::uint32_t digit = 0;
        if (upper >= '0' && upper <= '9') {
            digit = static_cast<std::uint32_t>(upper - '0');
        } else if (upper >= 'A' && upper <= 'F') {
            digit = static_cast<std::uint32_t>(upper - 'A' + 10);
        } else {
            return std::nullopt;
        }
        value = value * 16 + digit;
    }
    return static_cast<std::int32_t>(value);
}

}  // namespace

double Val(std::string_view text) {
    return ReadNumberPrefix(text).value;
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const NumberPrefix prefix = ReadNumberPrefix(trimmed);
    if (prefix.length == 0 || prefix.length != trimmed.size()) return std::nullopt;
    return prefix.value;
}

std::optional<std::int32_t> ParseLong(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (StartsWithNoCase(trimmed, "&H")) return ParseHex(trimmed.substr(2));
    const std::optional<double> number = ParseNumber(trimmed);
    if (!number) return std::nullopt;
    const double rounded = RoundHalfEven(*number);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

std::optional<bool> ParseBool(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (EqualNoCase(trimmed, "True")) return true;
    if (EqualNoCase(trimmed, "False")) return false;
    const std::optional<double> number = ParseNumber(trimmed);
    if (!number) return std::nullopt;
    return *number != 0;
}

std::string_view BoolText(bool value) {
    return value ? "True" : "False";
}

double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5) return below;
    if (fraction > 0.5) return below + 1;
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

std::string HexPad(std::int32_t value, int width) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (auto rest = static_cast<std::uint32_t>(value); rest != 0; rest >>= 4U) {
        result.insert(result.begin(), digits[rest & 15U]);
    }
    const auto wanted = static_cast<std::size_t>(std::max(width, 1));
    if (result.size() < wanted) result.insert(0, wanted - result.size(), '0');
    return result;
}

std::string Hex2(std::int32_t value) {
    return HexPad(value, 2);
}

std::string RepeatText(std::string_view text, std::uint8_t count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result.append(text);
    return result;
}

double Log10(double x) {
    return x > 0 && std::isfinite(x) ? std::log(x) / std::log(10.0) : 0;
}

}  // namespace zorvex
