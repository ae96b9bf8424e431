#include "zorvex/state/PropertyText.h"

#include <algorithm>

#include "zorvex/base/FileName.h"
#include "zorvex/base/HostText.h"
#include "zorvex/base/Text.h"

namespace zorvex {

namespace {

char Plain(char character) {
    return character == '\t' ? ' ' : character;
}

/// The text behind a key without the "=" and the blanks before and behind it, tabs turned into blanks.
std::string ValueAndComment(std::string_view behindKey) {
    std::string_view text = TrimmedLine(behindKey);
    if (text.starts_with('=')) text = TrimmedLine(text.substr(1));
    std::string result(text);
    std::replace(result.begin(), result.end(), '\t', ' ');
    return result;
}

}  // namespace

std::string_view TrimmedLine(std::string_view line) {
    while (!line.empty() && Plain(line.front()) == ' ')
        line.remove_prefix(1);
    while (!line.empty() && Plain(line.back()) == ' ')
        line.remove_suffix(1);
    return line;
}

bool SameLineText(std::string_view part, std::string_view text, bool ignoreCase) {
    if (part.size() != text.size()) return false;
    for (std::size_t i = 0; i < part.size(); ++i) {
        const char character = Plain(part[i]);
        if (character != text[i] && !(ignoreCase && LowerCase(character) == LowerCase(text[i]))) return false;
    }
    return true;
}

std::string_view HeaderName(std::string_view line) {
    line.remove_prefix(1);
    return line.substr(0, line.find(']'));
}

std::optional<std::string_view> TextBehindKey(std::string_view line, std::string_view key) {
    if (line.size() <= key.size()) return std::nullopt;
    const char next = Plain(line[key.size()]);
    if (next != ' ' && next != '=') return std::nullopt;
    if (!SameLineText(line.substr(0, key.size()), key, true)) return std::nullopt;
    return line.substr(key.size());
}

std::string EncodeValue(std::string_view value) {
    std::string text(value);
    if (text.find(' ') != std::string::npos) {
        if (text.front() != '"') text.insert(text.begin(), '"');
        if (text.back() != '"') text.push_back('"');
    }
    // A vertical tab ends a line for those who read the file.
    for (const std::string_view lineEnd : {"\r\n", "\r", "\n", "\v"}) {
        if (text.find(lineEnd) != std::string::npos) text = ReplaceAll(text, lineEnd, "\\n");
    }
    return text.empty() ? "\"\"" : text;
}

std::string DecodeValue(std::string_view behindKey) {
    std::string text = ValueAndComment(behindKey);
    if (text.empty()) return text;
    text.resize(std::min(text.size(), text.find(text.front() == '"' ? '"' : '#', 1)));
    std::string_view value = Trim(text);
    if (value.starts_with('"')) value.remove_prefix(1);
    if (value.ends_with('"')) value.remove_suffix(1);
    return ReplaceAll(value, "\\n", "\r\n");
}

bool IsKeepableName(std::string_view name) {
    return FileName::FitsEverywhere(name) && DecodeValue(EncodeValue(HostTextOf(name))) == name;
}

std::string KeptComment(std::string_view behindKey) {
    const std::string text = ValueAndComment(behindKey);
    if (text.empty()) return {};
    std::size_t rest = text.find(text.front() == '"' ? '"' : ' ', 1);
    rest = rest == std::string::npos ? text.find('#', 1) : rest + 1;
    if (rest == std::string::npos) return {};
    const std::string_view comment = Trim(std::string_view(text).substr(rest));
    if (comment.empty()) return {};
    return std::string(comment.starts_with('#') ? "   " : "   #").append(comment);
}

std::string EntryLine(std::string_view key, std::string_view encodedValue, std::string_view comment) {
    return std::string("   ").append(key).append(" = ").append(encodedValue).append(comment);
}

}  // namespace zorvex
