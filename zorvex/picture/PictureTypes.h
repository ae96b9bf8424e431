// The screens of a picture, the commands of its stream, and the pen that they steer.
#pragma once

#include <cstdint>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The size of a picture's two screens, in pixels of one byte. Row 0 is the top row; the pixel (X, Y) stands
/// at X + PictureWidth * Y.
inline constexpr std::int32_t PictureWidth = 160;
inline constexpr std::int32_t PictureHeight = 168;
inline constexpr std::int32_t PictureSize = PictureWidth * PictureHeight;

/// The bits of the error level of a drawn stream. A picture with errors is still a picture: below peFailure
/// all of it that can be drawn is drawn.
enum PictureError : std::int32_t {
    peDataEnds = 1,  // no 0xFF at the end, or a command read past the last byte
    peColor = 2,     // the colour byte of a dfEnableVis was above 15
    peCommand = 4,   // a byte that is no command stood where one was expected
    peFailure = 8    // anything else; drawing stopped there
};

/// The commands of a picture's stream. Any other byte where a command is expected is an anomaly and skipped.
enum DrawFunction : std::uint8_t {
    dfEnableVis = 0xF0,   // one byte: the visual colour
    dfDisableVis = 0xF1,  // no operands
    dfEnablePri = 0xF2,   // one byte: the priority colour
    dfDisablePri = 0xF3,  // no operands
    dfYCorner = 0xF4,     // X, Y, then Y and X in turn
    dfXCorner = 0xF5,     // X, Y, then X and Y in turn
    dfAbsLine = 0xF6,     // X, Y, then pairs
    dfRelLine = 0xF7,     // X, Y, then displacements
    dfFill = 0xF8,        // pairs
    dfChangePen = 0xF9,   // one byte: style, shape and size
    dfPlotPen = 0xFA,     // pairs, or a pattern and a pair each with a splatter pen
    dfEnd = 0xFF
};

/// The outline of the pen that plots.
enum EPlotShape : std::int32_t { psCircle = 0, psRectangle = 1 };

/// Whether the pen plots all of its outline or a pattern of it.
enum EPlotStyle : std::int32_t { psSolid = 0, psSplatter = 1 };

/// The pen at one point of a picture's stream.
struct PenStatus {
    /// The colour drawn on the visual screen; agNone and above: nothing is drawn there.
    AGIColors VisColor = agBlack;
    /// The colour drawn on the priority screen; agNone and above: nothing is drawn there.
    AGIColors PriColor = agBlack;
    EPlotShape PlotShape = psCircle;
    EPlotStyle PlotStyle = psSolid;
    /// 0 to 7: a pen is PlotSize + 1 columns wide and 2 * PlotSize + 1 rows tall.
    std::int32_t PlotSize = 0;

    bool operator==(const PenStatus&) const = default;
};

}  // namespace zorvex
