#include "zorvex/view/AGICel.h"

#include "zorvex/game/Error.h"

namespace zorvex {

AGICel::~AGICel() = default;

void AGICel::Changed() {
    celChanged_ = true;
    MarkDirty(link_);
}

void AGICel::Width(std::int32_t value) {
    if (value < 1 || value > MaxWidth) RaiseCatalogue(533, ErrorSource);
    if (value == pixels_.Width()) return;
    pixels_.Resize(value, pixels_.Height(), transColor_);
    Changed();
}

void AGICel::Height(std::int32_t value) {
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

AGIColors AGICel::CelData(std::int32_t xPos, std::int32_t yPos) const {
    return pixels_.Pixel(showMirrored_ ? pixels_.Width() - 1 - xPos : xPos, yPos);
}

void AGICel::CelData(std::int32_t xPos, std::int32_t yPos, AGIColors color) {
    pixels_.Pixel(showMirrored_ ? pixels_.Width() - 1 - xPos : xPos, yPos, color);
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

void AGICel::CopyCel(const AGICel& sourceCel) {
    CelPixels copy = sourceCel.AllCelData();
    if (showMirrored_) copy.Flip();
    pixels_ = std::move(copy);
    transColor_ = sourceCel.transColor_;
    Changed();
}

void AGICel::Clear() {
    pixels_ = CelPixels();
    Changed();
}

void AGICel::FlipPixels() {
    pixels_.Flip();
    Changed();
}

std::shared_ptr<AGICel> AGICel::Copy(ViewLinkPointer link, bool flipped) const {
    auto copy = std::make_shared<AGICel>(std::move(link), pixels_, transColor_);
    if (flipped) copy->pixels_.Flip();
    return copy;
}

}  // namespace zorvex
