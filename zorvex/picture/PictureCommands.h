// The commands of a picture's stream as a list of plain values, for editors and for whatever looks at how a
// picture is made.
//
//     for (const zorvex::PictureCommand& command : zorvex::ListPictureCommands(picture.View()))
//         if (command.Code == zorvex::dfFill) ++fills;
#pragma once

#include <cstdint>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/picture/PictureTypes.h"

namespace zorvex {

/// One command with its operands. All commands of a list, one behind the other, are the bytes of the stream
/// up to its dfEnd.
struct PictureCommand {
    /// Where the command's code stands in the stream. AGIPicture::DrawPos at this position draws what stands
    /// before the command.
    std::int32_t Position = 0;
    /// A DrawFunction; another value where a byte that is no command stands in the place of one.
    std::uint8_t Code = 0;
    /// The bytes behind the code, as DrawFunction tells them. Those that the end of the stream, or the next
    /// command, has cut off are missing.
    ByteArray Arguments;
    /// The pen after the command, which for all that draw is the pen with which they do.
    PenStatus Pen;
    /// What is wrong with the command: bits of PictureError, 0 for a sound one. Drawing stops at a command
    /// with peFailure, while the list goes on.
    std::int32_t Faults = 0;

    bool operator==(const PictureCommand&) const = default;
};

/// Reads a stream, such as AGIPicture::View gives, up to its dfEnd, which is the last command of the list, or
/// to the end of its bytes. Never raises: damage is marked where it stands. Takes one pass over the bytes.
std::vector<PictureCommand> ListPictureCommands(ByteView stream);

}  // namespace zorvex
