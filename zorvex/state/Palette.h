// The sixteen colours in which pictures and views are shown.
#pragma once

#include <array>

#include "zorvex/platform/Bitmaps.h"

namespace zorvex {

/// The palette of the open game, or the usual one while none is open.
std::array<BitmapColor, 16> PresentPalette();

}  // namespace zorvex
