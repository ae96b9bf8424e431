// The commands of a picture's stream, for people who look at how a picture is made.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// One command of a stream, with the bytes that it takes.
struct PictureCommandBytes {
    std::int32_t Position = 0;
    std::uint8_t Code = 0;
    ByteView Operands;
    /// The stream ends before the command has all that it needs.
    bool Cut = false;
};

/// The commands up to and including 0xFF; views into the stream.
std::vector<PictureCommandBytes> ListPictureCommands(ByteView stream);

/// "EnableVis", "AbsLine" and so on; "Unknown" for a byte that is no command.
std::string_view PictureCommandName(std::uint8_t code);

}  // namespace zorvex::tool
