// Views as images.
#pragma once

#include <cstddef>
#include <cstdint>

#include "tools/zorvex/GifFile.h"
#include "tools/zorvex/PngFile.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// The pixels of a cel as its loop shows them.
ByteArray CelBytes(const AGICel& cel);

/// One cel, each pixel `across` columns wide. A pixel's index is its colour number, and the transparent
/// colour is not opaque in the palette.
IndexedImage CelImage(const AGICel& cel, std::size_t across);

/// All cels of a view, a row of the image for each loop, the cels of a loop side by side on one ground line.
/// What is transparent, and the room between, has an index of its own behind the sixteen colours. Raises 5
/// for a view that is too large for one image.
IndexedImage SheetImage(AGIView& view, std::size_t across);

/// One loop, a frame for each cel. Raises 5 for a loop without cels.
GifAnimation LoopAnimation(const AGILoop& loop, std::size_t across);

}  // namespace zorvex::tool
