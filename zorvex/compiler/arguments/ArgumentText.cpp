#include "zorvex/compiler/arguments/ArgumentText.h"

#include <array>
#include <limits>

#include "zorvex/base/Text.h"
#include "zorvex/language/ArgumentMarkers.h"

namespace zorvex {

namespace {

constexpr std::array<std::string_view, 11> typeLabels{
    "number", "variable", "flag",       "message",        "screen object",  "inventory item",
    "string", "word",     "controller", "text in quotes", "vocabulary word"};

/// Most numbers in source are a few plain digits.
std::optional<double> PlainDigits(std::string_view text) {
    constexpr std::size_t safeLength = 9;
    if (text.empty() || text.size() > safeLength) return std::nullopt;
    std::int32_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

}  // namespace

std::optional<double> NumericValue(std::string_view text) {
    if (const auto plain = PlainDigits(text)) return plain;
    return ParseNumber(text);
}

std::int32_t VariableValue(std::string_view token) {
    std::optional<double> number = NumericValue(token);
    if (!number) {
        const std::size_t marker = token.starts_with('*') ? 2 : 1;
        if (token.size() <= marker) return -1;
        number = NumericValue(token.substr(marker));
        if (!number) return -1;
    }
    const double rounded = RoundHalfEven(*number);
    // So that what is no number at all fails as well.
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max())) {
        return -1;
    }
    auto value = static_cast<std::int32_t>(rounded);
    if (MarkerType(token) == atWord) --value;
    return value < 0 || value > 255 ? -1 : value;
}

bool IsMarkerOf(std::string_view text, ArgTypeEnum type) {
    if (text.size() < 2 || LowerCase(text.front()) != MarkerLetter(type)) return false;
    // w0 is recognised as a word, so that the complaint is about its number.
    return VariableValue(text) != -1 || (type == atWord && NumericValue(text.substr(1)) == 0.0);
}

bool EndsInQuote(std::string_view text) {
    if (text.size() < 2 || text.back() != '"') return false;
    std::size_t backslashes = 0;
    while (backslashes + 2 < text.size() && text[text.size() - 2 - backslashes] == '\\')
        ++backslashes;
    return backslashes % 2 == 0;
}

std::string_view ArgTypeLabel(ArgTypeEnum type) {
    return typeLabels[type];
}

}  // namespace zorvex
