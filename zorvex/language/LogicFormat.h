// The bytes of a logic resource: a header word with the length of the code, the code, and the message
// section.
//
// All 16-bit values are low byte first. In the code, statements follow one another: an action command is its
// number and its arguments; a few bytes above all command numbers mark structure. In the message section a
// count, an end and a table of offsets come before the text, of which every byte is scrambled.
#pragma once

#include <cstddef>
#include <cstdint>

#include "zorvex/base/ScrambleKey.h"
#include "zorvex/base/Types.h"

namespace zorvex {

/// Bytes of the code that mark structure.
enum LogicByte : std::uint8_t {
    lbOr = 0xFC,    // in a test list: starts and also ends a group of tests of which one must hold
    lbNot = 0xFD,   // in a test list: the next test must not hold
    lbGoto = 0xFE,  // a statement: a signed distance from behind it follows; also the `else` of an `if`
    lbIf = 0xFF     // a statement: starts a test list; ends the list, and a block length follows
};

/// The code begins behind the header word, which holds its length.
inline constexpr std::int32_t LogicCodeStart = 2;
/// The test command that carries a count of words and the words, of 16 bits each.
inline constexpr std::uint8_t SaidCommand = 14;
/// The test command that only one platform's interpreters know.
inline constexpr std::uint8_t UnknownTest = 19;

/// A reader takes these lengths and values in signed 16-bit arithmetic.
inline constexpr std::int32_t MaxLogicWord = 32767;

/// Where things stand in the message section of a logic. Positions count from the start of the resource.
struct MessageSectionLayout {
    std::int32_t start = 0;  // of the section: the byte with the highest message number
    std::int32_t count = 0;  // that number

    /// The values of the end field and of the offset table count from here.
    std::int32_t Origin() const { return start + 1; }
    /// The word with the end of the text.
    std::int32_t EndField() const { return start + 1; }
    /// The word with the start of message 1 to `count`; 0 for a number that is not in use.
    std::int32_t OffsetField(std::int32_t message) const { return start + 1 + 2 * message; }
    /// The first byte of the text.
    std::int32_t TextStart() const { return start + 3 + 2 * count; }
    /// Scrambles, or unscrambles, the byte at a position of the text. The key runs on through all messages.
    std::uint8_t Scramble(std::uint8_t byte, std::int32_t pos) const {
        return byte ^ ScrambleKey[static_cast<std::size_t>(pos - TextStart()) % ScrambleKey.size()];
    }
};

}  // namespace zorvex
