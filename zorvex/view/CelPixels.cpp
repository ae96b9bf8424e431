#include "zorvex/view/CelPixels.h"

#include <algorithm>

#include "zorvex/base/Error.h"

namespace zorvex {

namespace {

std::size_t Area(std::int32_t width, std::int32_t height) {
    if (width < 0 || height < 0) RaiseRuntime(reSubscript);
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

}  // namespace

CelPixels::CelPixels(std::int32_t width, std::int32_t height, AGIColors fill)
    : width_(width), height_(height), pixels_(Area(width, height), fill) {}

std::size_t CelPixels::Index(std::int32_t x, std::int32_t y) const {
    if (x < 0 || x >= width_ || y < 0 || y >= height_) RaiseRuntime(reSubscript);
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
}

std::span<AGIColors> CelPixels::Row(std::int32_t y) & {
    if (y < 0 || y >= height_) RaiseRuntime(reSubscript);
    return std::span(pixels_).subspan(Area(width_, y), static_cast<std::size_t>(width_));
}

std::span<const AGIColors> CelPixels::Row(std::int32_t y) const& {
    if (y < 0 || y >= height_) RaiseRuntime(reSubscript);
    return std::span(pixels_).subspan(Area(width_, y), static_cast<std::size_t>(width_));
}

void CelPixels::Resize(std::int32_t width, std::int32_t height, AGIColors fill) {
    CelPixels sized(width, height, fill);
    const auto columns = static_cast<std::size_t>(std::min(width, width_));
    for (std::int32_t y = 0; y < std::min(height, height_); ++y) {
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
