// PNG images: indexed ones written, indexed and true-colour ones read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex::tool {

struct PngColor {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    std::uint8_t Alpha = 255;

    bool operator==(const PngColor&) const = default;
};

/// An image of palette indexes, row by row from the top. A colour of the palette that is not opaque makes its
/// pixels transparent in the file as well.
struct IndexedImage {
    std::size_t Width = 0;
    std::size_t Height = 0;
    std::vector<PngColor> Palette;
    ByteArray Pixels;

    IndexedImage() = default;
    /// An image filled with one index.
    IndexedImage(std::size_t width, std::size_t height, std::vector<PngColor> palette,
                 std::uint8_t filling = 0)
        : Width(width), Height(height), Palette(std::move(palette)), Pixels(width * height, filling) {}

    /// Copies pixels of `width` columns to a place that lies within the image, each as a block of `across`
    /// columns and `down` rows.
    void Place(ByteView pixels, std::size_t width, std::size_t left, std::size_t top, std::size_t across = 1,
               std::size_t down = 1);
};

/// An image as it was read: the colour of every pixel, and for an indexed file also palette and indexes.
struct ReadImage {
    std::size_t Width = 0;
    std::size_t Height = 0;
    std::vector<PngColor> Colors;
    bool Indexed = false;
    std::vector<PngColor> Palette;
    ByteArray Pixels;
};

/// The bytes of a PNG file. The palette has 1 to 256 colours. Raises 5 for an image that cannot be one.
ByteArray EncodePng(const IndexedImage& image);

/// The image in a PNG file's bytes. Raises 321 for anything that is no such file or is larger than 4096
/// columns or rows.
ReadImage DecodePng(ByteView bytes);

/// The sixteen colours of the open game, or of a new game while none is open.
std::vector<PngColor> GamePalette();

}  // namespace zorvex::tool
