#include "zorvex/language/MessageSection.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "zorvex/language/LogicFormat.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex {

namespace {

/// The value of up to two hexadecimal digits, read as far as they are digits.
std::uint8_t HexPrefix(std::string_view digits) {
    unsigned value = 0;
    for (const char digit : digits.substr(0, 2)) {
        const std::size_t place = std::string_view("0123456789abcdef").find(static_cast<char>(digit | 0x20));
        const bool isDigit = (digit >= '0' && digit <= '9') || place > 9;
        if (!isDigit || place == std::string_view::npos) break;
        value = value * 16 + static_cast<unsigned>(place);
    }
    return static_cast<std::uint8_t>(value);
}

bool IsPlainControl(char character) {
    return character == 0 || character == 8 || character == 9 || character == 10 || character == 13;
}

/// What one escape sequence, from its backslash on, comes to.
struct Escape {
    std::size_t length = 1;
    bool writes = false;
    std::uint8_t byte = 0;
    bool endsUnterminated = false;
};

Escape ReadEscape(std::string_view text) {
    if (text.size() == 1) return {};
    switch (text[1]) {
        case '"': return {2, true, '"', false};
        case '\\': return {2, true, '\\', false};
        case 'n':
        case 'N': return {2, true, 10, false};
        case '0': return {2, false, 0, true};
        case 'x': {
            const std::uint8_t value = text.size() >= 4 ? HexPrefix(text.substr(2)) : std::uint8_t{0};
            if (value == 0) return {1, true, '\\', false};
            return {4, true, value, false};
        }
        default: return {};
    }
}

}  // namespace

bool AppendMessageBytes(std::string_view text, ByteArray& bytes) {
    bool terminated = true;
    while (!text.empty()) {
        std::size_t length = 1;
        if (text.front() == '\\') {
            const Escape escape = ReadEscape(text);
            length = escape.length;
            if (escape.writes) bytes.push_back(escape.byte);
            if (escape.endsUnterminated) terminated = false;
        } else {
            bytes.push_back(IsPlainControl(text.front()) ? std::uint8_t{' '}
                                                         : static_cast<std::uint8_t>(text.front()));
        }
        text.remove_prefix(length);
    }
    return terminated;
}

void AppendEscaped(std::uint8_t byte, std::string& text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    if (byte == 10) {
        text += "\\n";
    } else if (byte < 32 || byte == 127 || byte == 255) {
        text += "\\x";
        text += digits[byte / 16];
        text += digits[byte % 16];
    } else {
        if (byte == '"' || byte == '\\') text += '\\';
        text += static_cast<char>(byte);
    }
}

void WriteMsgs(AGIResource& resource, const MessageTable& messages) {
    const auto lastUsed = std::find(messages.MsgUsed.rbegin(), messages.MsgUsed.rend() - 1, true);
    MessageSectionLayout layout;
    layout.start = resource.Size();
    layout.count = static_cast<std::int32_t>(messages.MsgUsed.rend() - lastUsed) - 1;

    ByteArray section(static_cast<std::size_t>(layout.TextStart() - layout.start));
    section[0] = static_cast<std::uint8_t>(layout.count);
    std::vector<std::int32_t> starts;
    for (std::size_t i = 1; std::cmp_less_equal(i, layout.count); ++i) {
        const std::size_t start = section.size();
        starts.push_back(messages.MsgUsed[i] ? static_cast<std::int32_t>(start) - 1 : 0);
        if (messages.MsgUsed[i] && AppendMessageBytes(messages.MsgText[i], section)) section.push_back(0);
        for (std::size_t at = start; at < section.size(); ++at) {
            section[at] = layout.Scramble(section[at], layout.start + static_cast<std::int32_t>(at));
        }
    }
    resource.InsertData(section);
    resource.WriteWord(resource.Size() - layout.Origin(), layout.EndField());
    resource.WriteWord(layout.start - LogicCodeStart, 0);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        resource.WriteWord(starts[i], layout.OffsetField(static_cast<std::int32_t>(i) + 1));
    }
}

}  // namespace zorvex
