// Images as cels.
#pragma once

#include <cstddef>
#include <optional>

#include "tools/zorvex/images/PngFile.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// The pixels and the transparent colour that an image stands for.
struct ImportedCel {
    CelPixels Pixels;
    AGIColors TransColor = agBlack;
};

/// Takes an image whose pixels are `across` columns wide; the first column of each counts. An indexed image
/// with the colours of the open game keeps its indexes, any other takes the nearest colours. Pixels that are
/// more than half transparent become the transparent colour: the wanted one, else that of the image, else one
/// that no other pixel has. When opaque pixels have the wanted one, it gives way. Raises 5 for an image that
/// no cel can be.
ImportedCel CelOfImage(const ReadImage& image, std::size_t across, std::optional<AGIColors> wanted);

}  // namespace zorvex::tool
