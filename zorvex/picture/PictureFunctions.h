// The interpreter of picture streams: from bytes to the two screens of a picture.
//
// A screen is 160 columns by 168 rows, one byte a pixel, a colour 0 to 15, row 0 at the top; the pixel (X, Y)
// stands at X + 160 * Y. The visual screen is what the player sees, the priority screen holds bands and
// control lines. Addressing is linear: what is drawn past column 159 continues in the row below.
//
// A stream is replayed from its first byte on every run, so a picture is shown step by step by running it
// again with another end position. Nothing of a run lives on but its results and the pen of GetToolStatus.
#pragma once

#include <cstdint>

#include "zorvex/base/Types.h"
#include "zorvex/picture/PictureTypes.h"

namespace zorvex {

/// Draws a stream into two screens, which become PictureSize bytes each, and returns the error level: 0, or
/// bits of PictureError. Never raises; the fault that ended a run is kept as the library's last error. The
/// first command is executed in any case; after it, no command whose code stands at `endPos` or later. -1 as
/// `endPos` means the stream's last position; -1 as `statusPos` means the end position. The stream must not
/// share memory with the screens.
///
/// The pen is kept for GetToolStatus at the first command boundary past `statusPos`, or when 0xFF ends the
/// stream and `statusPos` is the end position. A stream that ends in another way before it keeps the pen of
/// an earlier run.
std::int32_t DrawPicture(ByteArray& visData, ByteArray& priData, ByteView picData, std::int32_t endPos = -1,
                         std::int32_t statusPos = -1);

/// The pen that the runs so far have kept last.
PenStatus GetToolStatus();

}  // namespace zorvex
