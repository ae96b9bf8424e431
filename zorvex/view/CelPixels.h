// A rectangle of colours: the pixels of a cel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// A two-dimensional array of colours, addressed as (x, y) from 0 and kept flat in rows from the top. A plain
/// value. Its size is any the host asks for; a cel takes only pixels of its own size.
class CelPixels {
  public:
    /// One black pixel.
    CelPixels() : CelPixels(1, 1) {}
    /// Raises run-time error 9 for a negative size, 7 for 2,147,483,648 pixels and more.
    CelPixels(AnyInteger width, AnyInteger height, AGIColors fill = agBlack);

    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }
    /// One pixel; raises run-time error 9 outside the rectangle.
    AGIColors Pixel(AnyInteger x, AnyInteger y) const { return pixels_[Index(x, y)]; }
    void Pixel(AnyInteger x, AnyInteger y, AGIColors color) { pixels_[Index(x, y)] = color; }
    /// One row in place, valid until the size changes; raises run-time error 9.
    std::span<AGIColors> Row(AnyInteger y) &;
    std::span<const AGIColors> Row(AnyInteger y) const&;
    /// All pixels, row after row.
    const std::vector<AGIColors>& Flat() const& { return pixels_; }
    std::vector<AGIColors> Flat() && { return std::move(pixels_); }

    /// Changes the size: what remains keeps its place, what is new gets the colour. Raises 9 and
    /// 7 as when made.
    void Resize(AnyInteger width, AnyInteger height, AGIColors fill);
    /// Reverses every row.
    void Flip();

    bool operator==(const CelPixels&) const = default;

  private:
    std::size_t Index(AnyInteger x, AnyInteger y) const;

    std::vector<AGIColors> pixels_;
    std::int32_t width_;
    std::int32_t height_;
};

}  // namespace zorvex
