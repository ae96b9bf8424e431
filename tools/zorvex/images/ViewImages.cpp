#include "tools/zorvex/images/ViewImages.h"

#include <algorithm>

namespace zorvex::tool {

namespace {

constexpr std::uint8_t clear = 16;  // the index behind the colours
constexpr std::size_t margin = 2;   // rows, and twice as many columns on the screen, between cels
constexpr std::size_t mostPixels = std::size_t{1} << 26;

std::vector<std::shared_ptr<AGICel>> CelsOf(const AGILoop& loop) {
    std::vector<std::shared_ptr<AGICel>> found;
    const std::shared_ptr<AGICels> cels = loop.Cels();
    for (std::int32_t i = 0; i < cels->Count(); ++i)
        found.push_back(cels->Item(i));
    return found;
}

std::size_t TallestOf(const std::vector<std::shared_ptr<AGICel>>& cels) {
    std::size_t height = 0;
    for (const auto& cel : cels)
        height = std::max<std::size_t>(height, cel->Height());
    return height;
}

std::size_t WidestOf(const std::vector<std::shared_ptr<AGICel>>& cels) {
    std::size_t width = 0;
    for (const auto& cel : cels)
        width = std::max<std::size_t>(width, cel->Width());
    return width;
}

/// How a view is laid out: every cel in a cell of one width, every loop as high as its tallest cel.
struct SheetLayout {
    std::size_t cellWidth = 1;
    std::size_t columns = 1;
    std::size_t height = margin;

    explicit SheetLayout(const AGILoops& loops) {
        for (const auto& loop : loops) {
            const auto cels = CelsOf(*loop);
            cellWidth = std::max(cellWidth, WidestOf(cels));
            columns = std::max(columns, cels.size());
            height += TallestOf(cels) + margin;
        }
    }
    std::size_t Width() const { return margin + columns * (cellWidth + margin); }
};

ByteArray CelBytes(const AGICel& cel) {
    const CelPixels pixels = cel.AllCelData();
    return {pixels.Flat().begin(), pixels.Flat().end()};
}

}  // namespace

IndexedImage CelImage(const AGICel& cel, PixelSize size) {
    std::vector<PngColor> palette = GamePalette();
    palette[cel.TransColor()].Alpha = 0;
    IndexedImage image(cel.Width() * size.Across, cel.Height() * size.Down, std::move(palette));
    image.Place(CelBytes(cel), cel.Width(), 0, 0, size.Across, size.Down);
    return image;
}

IndexedImage SheetImage(AGIView& view, PixelSize size) {
    const std::shared_ptr<AGILoops> loops = view.Loops();
    const SheetLayout layout(*loops);
    if (layout.Width() * size.Across * layout.height * size.Down > mostPixels) {
        RaiseText(5, "zorvex", "The view is too large for one image; write its cels with --cels");
    }
    std::vector<PngColor> palette = GamePalette();
    palette.push_back({0, 0, 0, 0});
    IndexedImage image(layout.Width() * size.Across, layout.height * size.Down, std::move(palette), clear);
    std::size_t ground = 0;
    for (const auto& loop : *loops) {
        const auto cels = CelsOf(*loop);
        ground += margin + TallestOf(cels);
        std::size_t left = margin;
        for (const auto& cel : cels) {
            ByteArray pixels = CelBytes(*cel);
            std::ranges::replace(pixels, static_cast<std::uint8_t>(cel->TransColor()), clear);
            image.Place(pixels, cel->Width(), left * size.Across, (ground - cel->Height()) * size.Down,
                        size.Across, size.Down);
            left += layout.cellWidth + margin;
        }
    }
    return image;
}

GifAnimation LoopAnimation(const AGILoop& loop, PixelSize size) {
    const auto cels = CelsOf(loop);
    GifAnimation animation;
    animation.Width = WidestOf(cels) * size.Across;
    animation.Height = TallestOf(cels) * size.Down;
    animation.Palette = GamePalette();
    for (const auto& cel : cels) {
        IndexedImage image = CelImage(*cel, size);
        animation.Frames.push_back({0, animation.Height - image.Height, image.Width, image.Height,
                                    static_cast<std::uint8_t>(cel->TransColor()), std::move(image.Pixels)});
    }
    return animation;
}

}  // namespace zorvex::tool
