// Views as images.
#pragma once

#include <cstddef>
#include <cstdint>

#include "tools/zorvex/images/GifFile.h"
#include "tools/zorvex/images/PngFile.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// How many columns and rows of an image a pixel of a cel takes.
struct PixelSize {
    std::size_t Across = 1;
    std::size_t Down = 1;
};

/// One cel as its loop shows it. A pixel's index is its colour number, and the transparent
/// colour is not opaque in the palette.
IndexedImage CelImage(const AGICel& cel, PixelSize size);

/// All cels of a view, a row of the image for each loop, the cels of a loop side by side on one ground line.
/// What is transparent, and the room between, has an index of its own behind the sixteen colours. Raises 5
/// for a view that is too large for one image.
IndexedImage SheetImage(AGIView& view, PixelSize size);

/// One loop, a frame for each cel. Raises 5 for a loop without cels.
GifAnimation LoopAnimation(const AGILoop& loop, PixelSize size);

}  // namespace zorvex::tool
