// Messages as a logic resource holds them and as source writes them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

class AGIResource;

/// The messages of a source on their way into a resource, by number; number 0 stays unused. Texts are game
/// text as they stand between the quotes of the source, with their escapes.
struct MessageTable {
    std::array<std::string, 256> MsgText;
    std::array<bool, 256> MsgUsed{};
};

/// Appends the message section to a resource that holds a header word and the finished code, and writes the
/// header word. Raises 516 when a field of the section lies past the largest position.
void WriteMsgs(AGIResource& resource, const MessageTable& messages);

/// Appends what the source text of a message stands for, byte by byte. False when the text holds `\0`, which
/// leaves the message without its terminator.
bool AppendMessageBytes(std::string_view text, ByteArray& bytes);

/// Appends a byte of a message as source text: the reverse of AppendMessageBytes.
void AppendEscaped(std::uint8_t byte, std::string& text);

}  // namespace zorvex
