#include "zorvex/state/Palette.h"

#include "zorvex/state/LibraryState.h"

namespace zorvex {

std::array<BitmapColor, 16> PresentPalette() {
    std::array<BitmapColor, 16> palette;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const auto color = static_cast<std::uint32_t>(Library().EGARevColor[i]);
        palette[i] = {.Blue = static_cast<std::uint8_t>(color),
                      .Green = static_cast<std::uint8_t>(color >> 8),
                      .Red = static_cast<std::uint8_t>(color >> 16)};
    }
    return palette;
}

}  // namespace zorvex
