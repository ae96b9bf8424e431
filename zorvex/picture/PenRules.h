// What the bytes behind the commands of a picture's stream mean, for whatever replays or lists a stream.
#pragma once

#include <cstdint>

#include "zorvex/picture/PictureTypes.h"

namespace zorvex {

/// The lowest byte that is a command where an operand may stand.
inline constexpr std::uint8_t FirstPictureCommand = 0xF0;

/// Takes the colour byte of dfEnableVis and returns its fault: peColor, or 0.
inline std::int32_t TakeVisualColor(PenStatus& pen, std::uint8_t color) {
    pen.VisColor = static_cast<AGIColors>(color & 0x0F);
    if (color <= agWhite) return 0;
    pen.PriColor = static_cast<AGIColors>(pen.PriColor | (color >> 4));  // the upper nibble leaks
    return peColor;
}

/// Takes the colour byte of dfEnablePri.
inline void TakePriorityColor(PenStatus& pen, std::uint8_t color) {
    pen.PriColor = static_cast<AGIColors>(color & 0x0F);
}

/// Takes the byte of dfChangePen.
inline void TakePlotPen(PenStatus& pen, std::uint8_t bits) {
    pen.PlotStyle = (bits & 0x20) != 0 ? psSplatter : psSolid;
    pen.PlotShape = (bits & 0x10) != 0 ? psRectangle : psCircle;
    pen.PlotSize = bits & 7;
}

/// A point, or the way from one to another.
struct PicturePoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// The way that a byte of dfRelLine goes.
inline PicturePoint Displacement(std::uint8_t byte) {
    const std::int32_t right = byte >> 4 & 7;
    const std::int32_t down = byte & 7;
    return {(byte & 0x80) != 0 ? -right : right, (byte & 0x08) != 0 ? -down : down};
}

}  // namespace zorvex
