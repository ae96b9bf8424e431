#include "zorvex/view/CelPixels.h"

#include <algorithm>
#include <limits>

#include "zorvex/base/Error.h"
#include "zorvex/view/ViewLimits.h"

namespace zorvex {

namespace {

/// The number of pixels, which like Width and Height is a number of 32 bits.
std::size_t Area(AnyInteger width, AnyInteger height) {
    if (width < 0 || height < 0) RaiseRuntime(reSubscript, CelErrorSource);
    constexpr AnyInteger most = std::numeric_limits<std::int32_t>::max();
    if (width > most || height > most || width * height > most) RaiseRuntime(reOutOfMemory, CelErrorSource);
    return static_cast<std::size_t>(width * height);
}

}  // namespace

CelPixels::CelPixels(AnyInteger width, AnyInteger height, AGIColors fill)
    : pixels_(Area(width, height), fill),
      width_(static_cast<std::int32_t>(width)),
      height_(static_cast<std::int32_t>(height)) {}

std::size_t CelPixels::Index(AnyInteger x, AnyInteger y) const {
    if (x < 0 || x >= width_ || y < 0 || y >= height_) RaiseRuntime(reSubscript, CelErrorSource);
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
}

std::span<AGIColors> CelPixels::Row(AnyInteger y) & {
    if (y < 0 || y >= height_) RaiseRuntime(reSubscript, CelErrorSource);
    return std::span(pixels_).subspan(Area(width_, y), static_cast<std::size_t>(width_));
}

std::span<const AGIColors> CelPixels::Row(AnyInteger y) const& {
    if (y < 0 || y >= height_) RaiseRuntime(reSubscript, CelErrorSource);
    return std::span(pixels_).subspan(Area(width_, y), static_cast<std::size_t>(width_));
}

void CelPixels::Resize(AnyInteger width, AnyInteger height, AGIColors fill) {
    CelPixels sized(width, height, fill);
    const auto columns = static_cast<std::size_t>(std::min<AnyInteger>(width, width_));
    for (std::int32_t y = 0; y < std::min<AnyInteger>(height, height_); ++y) {
        std::ranges::copy(Row(y).first(columns), sized.Row(y).begin());
    }
    *this = std::move(sized);
}

void CelPixels::Flip() {
    for (std::int32_t y = 0; y < height_; ++y) {
        std::ranges::reverse(Row(y));
    }
}

}  // namespace zorvex
