#include "zorvex/view/AGICel.h"

#include "zorvex/base/Error.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

void AGICel::Changed() {
    celChanged_ = true;
    MarkDirty(link_);
}

void AGICel::Width(AnyInteger value) {
    if (value < 1 || value > MaxWidth) RaiseCatalogue(533, ErrorSource);
    if (value == pixels_.Width()) return;
    pixels_.Resize(value, pixels_.Height(), transColor_);
    Changed();
}

void AGICel::Height(AnyInteger value) {
    if (value < 1 || value > MaxHeight) RaiseCatalogue(532, ErrorSource);
    if (value == pixels_.Height()) return;
    pixels_.Resize(pixels_.Width(), value, transColor_);
    Changed();
}

void AGICel::TransColor(AGIColors value) {
    if (value > agWhite) RaiseCatalogue(556, ErrorSource);
    if (value == transColor_) return;
    transColor_ = value;
    MarkDirty(link_);
}

/// Where a column that the cel shows is stored; one that it does not have stays outside.
AnyInteger AGICel::Column(AnyInteger shown) const {
    const bool flipped = showMirrored_ && shown >= 0 && shown < pixels_.Width();
    return flipped ? pixels_.Width() - 1 - shown : shown;
}

AGIColors AGICel::CelData(AnyInteger xPos, AnyInteger yPos) const {
    return pixels_.Pixel(Column(xPos), yPos);
}

void AGICel::CelData(AnyInteger xPos, AnyInteger yPos, AGIColors color) {
    pixels_.Pixel(Column(xPos), yPos, color);
    Changed();
}

CelPixels AGICel::AllCelData() const {
    CelPixels copy = pixels_;
    if (showMirrored_) copy.Flip();
    return copy;
}

void AGICel::AllCelData(const CelPixels& pixels) {
    if (pixels.Width() != pixels_.Width() || pixels.Height() != pixels_.Height()) {
        RaiseCatalogue(614, ErrorSource);
    }
    pixels_ = pixels;
    Changed();
}

void AGICel::Store(CelPixels pixels) {
    if (pixels.Width() < 1 || pixels.Width() > MaxWidth) RaiseCatalogue(533, ErrorSource);
    if (pixels.Height() < 1 || pixels.Height() > MaxHeight) RaiseCatalogue(532, ErrorSource);
    pixels_ = std::move(pixels);
    Changed();
}

void AGICel::CopyCel(const AGICel& sourceCel) {
    CelPixels copy = sourceCel.AllCelData();
    if (showMirrored_) copy.Flip();
    pixels_ = std::move(copy);
    transColor_ = sourceCel.transColor_;
    Changed();
}

void AGICel::Clear() {
    pixels_ = CelPixels();
    FreeBitmap();
    Changed();
}

void AGICel::FlipPixels() {
    pixels_.Flip();
    Changed();
}

// --- The bitmap ---

void AGICel::FreeBitmap() {
    bitmap_.Restore();
    bitmap_.DeleteContext();
    bitmap_.DeleteBitmap();
}

std::int32_t AGICel::CelBMP() {
    if (bitmap_.IsCurrent() && bitmapMirrored_ == showMirrored_ && !celChanged_) return bitmap_.Context();
    FreeBitmap();
    BitmapHeader header;
    header.Width = pixels_.Width();
    header.Height = -pixels_.Height();
    header.BitCount = 32;
    header.ImageSize = static_cast<std::uint32_t>(pixels_.Flat().size());
    if (!bitmap_.Make(header, {})) {
        FreeBitmap();
        RaiseCatalogue(607, ErrorSource);
    }
    PaintBitmap();
    bitmapMirrored_ = showMirrored_;
    celChanged_ = false;
    return bitmap_.Context();
}

void AGICel::PaintBitmap() {
    std::uint8_t* out = bitmap_.Bits();
    const CelPixels pixels = AllCelData();
    for (const AGIColors pixel : pixels.Flat()) {
        const auto color = static_cast<std::uint32_t>(pixel <= agWhite ? Library().EGARevColor[pixel] : 0);
        for (std::uint32_t shift = 0; shift < 32; shift += 8) {
            *out++ = static_cast<std::uint8_t>(color >> shift & 255);
        }
    }
}

std::shared_ptr<AGICel> AGICel::Copy(ViewLinkPointer link, bool flipped) const {
    auto copy = std::make_shared<AGICel>(std::move(link), pixels_, transColor_);
    if (flipped) copy->pixels_.Flip();
    return copy;
}

}  // namespace zorvex
