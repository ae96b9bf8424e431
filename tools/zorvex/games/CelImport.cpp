#include "tools/zorvex/games/CelImport.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

namespace zorvex::tool {

namespace {

constexpr std::size_t colorCount = 16;
constexpr std::uint8_t halfOpaque = 128;

bool SameColor(const PngColor& left, const PngColor& right) {
    return left.Red == right.Red && left.Green == right.Green && left.Blue == right.Blue;
}

bool HasGameColors(const ReadImage& image, const std::vector<PngColor>& palette) {
    return image.Indexed && image.Palette.size() >= colorCount &&
           std::equal(palette.begin(), palette.end(), image.Palette.begin(), SameColor);
}

int Distance(const PngColor& left, const PngColor& right) {
    const auto square = [](int difference) { return difference * difference; };
    return square(left.Red - right.Red) + square(left.Green - right.Green) + square(left.Blue - right.Blue);
}

AGIColors Nearest(const PngColor& color, const std::vector<PngColor>& palette) {
    std::size_t best = 0;
    int least = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < colorCount; ++i) {
        const int distance = Distance(color, palette[i]);
        if (distance < least) {
            least = distance;
            best = i;
        }
    }
    return static_cast<AGIColors>(best);
}

/// One image on its way to a cel.
class Reader {
  public:
    Reader(const ReadImage& image, std::size_t across)
        : image_(image),
          across_(across),
          palette_(GamePalette()),
          sameColors_(HasGameColors(image, palette_)) {
        RequireSize();
    }

    ImportedCel Read(std::optional<AGIColors> wanted) {
        ImportedCel cel{CelPixels(width_, height_, agNone), agBlack};
        for (std::int32_t y = 0; y < height_; ++y) {
            for (std::int32_t x = 0; x < width_; ++x)
                TakePixel(cel.Pixels, x, y);
        }
        cel.TransColor = Transparent(wanted);
        for (std::int32_t y = 0; y < height_; ++y) {
            std::ranges::replace(cel.Pixels.Row(y), agNone, cel.TransColor);
        }
        return cel;
    }

  private:
    void RequireSize() {
        const std::size_t width = image_.Width / across_;
        if (image_.Width % across_ != 0) {
            RaiseText(5, "zorvex",
                      "The image is " + std::to_string(image_.Width) +
                          " columns wide, which is no whole number of pixels of " + std::to_string(across_) +
                          " columns");
        }
        if (width < 1 || width > AGICel::MaxWidth || image_.Height < 1 || image_.Height > AGICel::MaxHeight) {
            RaiseText(5, "zorvex",
                      "The image is " + std::to_string(width) + " by " + std::to_string(image_.Height) +
                          " pixels; a cel is at most 160 by 168");
        }
        width_ = static_cast<std::int32_t>(width);
        height_ = static_cast<std::int32_t>(image_.Height);
    }

    void TakePixel(CelPixels& pixels, std::int32_t x, std::int32_t y) {
        const std::size_t at =
            static_cast<std::size_t>(y) * image_.Width + static_cast<std::size_t>(x) * across_;
        const PngColor& color = image_.Colors[at];
        const bool kept = sameColors_ && image_.Pixels[at] < colorCount;
        const AGIColors number = kept ? static_cast<AGIColors>(image_.Pixels[at]) : Nearest(color, palette_);
        if (color.Alpha < halfOpaque) {
            if (kept && !clearColor_) clearColor_ = number;
            return;
        }
        used_[number] = true;
        pixels.Pixel(x, y, number);
    }

    /// The transparent colour; every cel has one, and nothing opaque may have it.
    AGIColors Transparent(std::optional<AGIColors> wanted) const {
        if (!wanted) wanted = clearColor_;
        if (!wanted && sameColors_) wanted = ClearEntry();
        if (wanted && !used_[*wanted]) return *wanted;
        const auto free = std::ranges::find(used_, false);
        if (free != used_.end()) return static_cast<AGIColors>(free - used_.begin());
        RaiseText(5, "zorvex",
                  "The image has opaque pixels of all sixteen colours; none is left for transparency");
    }

    /// The colour that an image marks as transparent though no pixel has it.
    std::optional<AGIColors> ClearEntry() const {
        for (std::size_t i = 0; i < colorCount; ++i) {
            if (image_.Palette[i].Alpha < halfOpaque) return static_cast<AGIColors>(i);
        }
        return std::nullopt;
    }

    const ReadImage& image_;
    std::size_t across_;
    std::vector<PngColor> palette_;
    bool sameColors_;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    std::array<bool, colorCount> used_{};
    std::optional<AGIColors> clearColor_;
};

}  // namespace

ImportedCel CelOfImage(const ReadImage& image, std::size_t across, std::optional<AGIColors> wanted) {
    return Reader(image, across).Read(wanted);
}

}  // namespace zorvex::tool
