// How pixels reach the two screens of a picture: one writer for each of the pen's four states, chosen once
// for a run of operands, so that no pixel asks again what is drawn.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "zorvex/base/Checked.h"
#include "zorvex/picture/PictureFunctions.h"

namespace zorvex {

/// What a blank screen holds, and what a fill takes for empty.
inline constexpr std::uint8_t BlankVisual = agWhite;
inline constexpr std::uint8_t BlankPriority = agRed;

/// The spans of one fill that wait to have their neighbours looked at. Spans of a row never touch, so there
/// is room for every other column of every row. Left uninitialized: an entry is set before it is read.
struct FillStack {
    struct Span {
        std::int32_t first;
        std::int32_t last;
    };
    std::array<Span, static_cast<std::size_t>(PictureSize / 2)> spans;
};

/// Draws on the visual screen, the priority screen, both or none. Indexes are linear; what falls outside the
/// screens is dropped.
template <bool Visual, bool Priority>
class PixelWriter {
  public:
    PixelWriter(std::uint8_t* visual, std::uint8_t* priority, const PenStatus& pen)
        : visual_(visual), priority_(priority), visColor_(pen.VisColor), priColor_(pen.PriColor) {}

    void Pixel(std::int32_t index) const {
        if (index >= 0 && index < PictureSize) Put(index);
    }

    /// All pixels from one index to another, both included, in either order.
    void Row(std::int32_t from, std::int32_t to) const {
        const std::int32_t first = std::max(std::min(from, to), 0);
        const std::int32_t last = std::min(std::max(from, to), PictureSize - 1);
        if (first > last) return;
        const auto count = static_cast<std::size_t>(last - first + 1);
        if constexpr (Visual) std::memset(visual_ + first, visColor_, count);
        if constexpr (Priority) std::memset(priority_ + first, priColor_, count);
    }

    /// Every 160th pixel from one index to another, both included, in either order.
    void Column(std::int32_t from, std::int32_t to) const {
        std::int32_t index = std::min(from, to);
        if (index < 0) index += (PictureWidth - 1 - index) / PictureWidth * PictureWidth;
        const std::int32_t last = std::min(std::max(from, to), PictureSize - 1);
        for (; index <= last; index += PictureWidth)
            Put(index);
    }

    void Line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) const {
        const std::int32_t from = x1 + PictureWidth * y1;
        const std::int32_t to = x2 + PictureWidth * y2;
        if (y1 == y2) {
            Row(from, to);
        } else if (x1 == x2) {
            Column(from, to);
        } else {
            Slope(from, x2 - x1, y2 - y1);
        }
    }

    /// Paints the connected empty area around an index, if the pen paints at all. The visual screen decides
    /// what is empty when it is drawn on, else the priority screen. Raises 9 for an index outside the
    /// screens.
    void Fill(std::int32_t index, FillStack& stack) const {
        if constexpr (Visual || Priority) {
            if (index < 0 || index >= PictureSize) RaiseRuntime(reSubscript, "PictureFunctions");
            const std::uint8_t color = Visual ? visColor_ : priColor_;
            if (Tested()[index] == Empty && color != Empty) Flood(index, stack);
        }
    }

  private:
    static constexpr std::uint8_t Empty = Visual ? BlankVisual : BlankPriority;

    void Put(std::int32_t index) const {
        if constexpr (Visual) visual_[index] = visColor_;
        if constexpr (Priority) priority_[index] = priColor_;
    }

    const std::uint8_t* Tested() const { return Visual ? visual_ : priority_; }

    /// A line that is neither level nor upright. The long axis moves at every step; with equal distances that
    /// is X.
    void Slope(std::int32_t index, std::int32_t dx, std::int32_t dy) const {
        const std::int32_t xStep = dx < 0 ? -1 : 1;
        const std::int32_t yStep = dy < 0 ? -PictureWidth : PictureWidth;
        dx = std::abs(dx);
        dy = std::abs(dy);
        const bool steep = dx < dy;
        const std::int32_t length = steep ? dy : dx;
        const std::int32_t crossing = steep ? dx : dy;
        const std::int32_t longStep = steep ? yStep : xStep;
        const std::int32_t shortStep = steep ? xStep : yStep;
        std::int32_t error = length / 2;
        Pixel(index);
        for (std::int32_t step = 0; step < length; ++step) {
            error += crossing;
            if (error >= length) {
                error -= length;
                index += shortStep;
            }
            index += longStep;
            Pixel(index);
        }
    }

    /// The first index from `index` up to `end` whose pixel is not empty, or `end`.
    std::int32_t EmptyUntil(std::int32_t index, std::int32_t end) const {
        constexpr std::uint64_t emptyWord = Empty * 0x0101010101010101U;
        const std::uint8_t* tested = Tested();
        for (std::uint64_t word = 0; index + 8 <= end; index += 8) {
            std::memcpy(&word, tested + index, sizeof word);
            if (word != emptyWord) break;
        }
        while (index < end && tested[index] == Empty)
            ++index;
        return index;
    }

    /// The first empty pixel from `index` to `last`, or a higher index.
    std::int32_t NextEmpty(std::int32_t index, std::int32_t last) const {
        const std::uint8_t* tested = Tested();
        const std::int32_t near = std::min(last, index + 3);
        for (; index <= near; ++index) {
            if (tested[index] == Empty) return index;
        }
        if (index > last) return index;
        const auto count = static_cast<std::size_t>(last - index + 1);
        const void* found = std::memchr(tested + index, Empty, count);
        if (found == nullptr) return last + 1;
        return static_cast<std::int32_t>(static_cast<const std::uint8_t*>(found) - tested);
    }

    /// Paints a span pixel by pixel when it is short, as most spans of a crooked area are.
    void PutSpan(FillStack::Span span) const {
        if (span.last - span.first > 8) return Row(span.first, span.last);
        Put(span.last);
        for (std::int32_t i = span.first; i < span.last; ++i)
            Put(i);
    }

    /// Paints the whole empty span of a row around an empty pixel and returns it.
    FillStack::Span Claim(std::int32_t index) const {
        const std::uint8_t* tested = Tested();
        const std::int32_t start = index / PictureWidth * PictureWidth;
        std::int32_t first = index;
        while (first > start && tested[first - 1] == Empty)
            --first;
        const FillStack::Span span{first, EmptyUntil(index + 1, start + PictureWidth) - 1};
        PutSpan(span);
        return span;
    }

    /// Follows a claimed span into the next rows as long as they hold an empty span of the very same columns,
    /// paints these and returns the last. Nothing must be left to look at on the other side of the first.
    FillStack::Span Slide(FillStack::Span span, std::int32_t step) const {
        const std::uint8_t* tested = Tested();
        const bool hasLeft = span.first % PictureWidth != 0;
        const bool hasRight = (span.last + 1) % PictureWidth != 0;
        while (true) {
            const FillStack::Span next{span.first + step, span.last + step};
            if (next.first < 0 || next.last >= PictureSize) return span;
            if (tested[next.first] != Empty) return span;
            if (hasLeft && tested[next.first - 1] == Empty) return span;
            if (hasRight && tested[next.last + 1] == Empty) return span;
            if (EmptyUntil(next.first + 1, next.last + 1) <= next.last) return span;
            PutSpan(next);
            span = next;
        }
    }

    /// Claims all empty spans that touch a span from the row beside it, and stacks them.
    FillStack::Span* ClaimBeside(FillStack::Span span, std::int32_t step, FillStack::Span* top) const {
        const std::int32_t last = span.last + step;
        for (std::int32_t i = NextEmpty(span.first + step, last); i <= last; i = NextEmpty(i, last)) {
            const FillStack::Span claimed = Claim(i);
            i = claimed.last + 2;  // the pixel right of a span is not empty
            const bool within = claimed.first >= span.first + step && claimed.last <= last;
            *top++ = within ? Slide(claimed, step) : claimed;
        }
        return top;
    }

    void Flood(std::int32_t seed, FillStack& stack) const {
        const PixelWriter writer = *this;  // a copy of its own stays in registers while bytes are stored
        FillStack::Span* const bottom = stack.spans.data();
        FillStack::Span* top = bottom;
        *top++ = writer.Claim(seed);
        while (top != bottom) {
            const FillStack::Span span = *--top;
            if (span.first >= PictureWidth) top = writer.ClaimBeside(span, -PictureWidth, top);
            if (span.last < PictureSize - PictureWidth) top = writer.ClaimBeside(span, PictureWidth, top);
        }
    }

    std::uint8_t* visual_;
    std::uint8_t* priority_;
    std::uint8_t visColor_;
    std::uint8_t priColor_;
};

}  // namespace zorvex
