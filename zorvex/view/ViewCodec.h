// The byte format of views: from bytes to loops and cels as plain values, and back. No files, no objects.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/view/CelPixels.h"
#include "zorvex/view/ViewLimits.h"

namespace zorvex {

/// One cel: its pixels and which colour is not drawn.
struct CelContent {
    CelPixels pixels;
    AGIColors transColor = agBlack;

    bool operator==(const CelContent&) const = default;
};

/// One loop. Of a mirror pair the lower-numbered loop holds the cels, as it shows them; the other holds none.
struct LoopContent {
    static constexpr std::int32_t None = -1;

    std::vector<CelContent> cels;
    std::int32_t mirrorLoop = None;  // the partner, from either side

    bool operator==(const LoopContent&) const = default;
};

/// What the bytes of a view say.
struct ViewContent {
    std::vector<LoopContent> loops;
    std::string description;  // game text

    bool operator==(const ViewContent&) const = default;
};

/// The most pixels that a view unfolds to. An honest one stays far below: only cels that overlap in the
/// bytes, over and over, give more.
inline constexpr std::size_t MaxViewPixels = std::size_t{64} << 20;

/// Reads a view. Loops at one place in the bytes come out as a mirror pair, the lower one as its source; a
/// third loop there is a copy of its own. Raises 595 for no loops, 548 and 553 for a loop and a cel beyond
/// the end, 539 for a mirror above loop 7, 513 for a description that is not within the bytes, 7 for more
/// than MaxViewPixels. Other damage does not stop it: a cel whose rows are broken is black all over, a value
/// beyond the end counts as 0.
ViewContent DecodeView(ByteView bytes);

/// The bytes of a view, which DecodeView reads. Raises 654 for a pixel above 15, 595 for no loops, 534 for a
/// loop without cels; 516 and 557 where the view is too large for a resource or its offsets.
ByteArray EncodeView(const ViewContent& view);

/// Reads the rows of a cel of that size from a position on. Raises 555 when a row is wider than the cel or
/// the bytes end.
CelPixels ExpandCelData(ByteView bytes, std::size_t pos, std::int32_t width, std::int32_t height,
                        AGIColors transColor);

/// The rows of a cel as bytes. Those of a mirrored cel are padded with zeros to the length that the flipped
/// cel takes, since an interpreter writes it over the stored one. Raises 654 for a pixel above 15.
ByteArray CompressCelData(const CelPixels& pixels, AGIColors transColor, bool mirrored);

/// The smallest view: one loop with one cel of one black pixel.
ByteView DefaultViewBytes();

}  // namespace zorvex
