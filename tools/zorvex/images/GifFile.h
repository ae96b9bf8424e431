// GIF animations, written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/zorvex/images/PngFile.h"
#include "zorvex/base/Types.h"

namespace zorvex::tool {

/// One picture of an animation: palette indexes, row by row from the top, at a place of the whole. One index
/// is not drawn.
struct GifFrame {
    std::size_t Left = 0;
    std::size_t Top = 0;
    std::size_t Width = 0;
    std::size_t Height = 0;
    std::uint8_t Transparent = 0;
    ByteArray Pixels;
};

/// An animation that is played over and over. What a frame does not cover is transparent while it is shown.
struct GifAnimation {
    std::size_t Width = 0;
    std::size_t Height = 0;
    std::vector<PngColor> Palette;  // a power of two of them, 2 to 256; they count as opaque
    int Delay = 20;                 // hundredths of a second that a frame is shown
    std::vector<GifFrame> Frames;
};

/// The bytes of a GIF file. Raises 5 for an animation that cannot be one.
ByteArray EncodeGif(const GifAnimation& animation);

}  // namespace zorvex::tool
