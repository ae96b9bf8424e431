#include "zorvex/view/AGICels.h"

#include <algorithm>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"

namespace zorvex {

std::shared_ptr<AGICel> AGICels::Item(AnyInteger index) const {
    const std::shared_ptr<AGICel>& cel = Stored(index);
    cel->ShowMirrored(showMirrored_);
    return cel;
}

const std::shared_ptr<AGICel>& AGICels::Stored(AnyInteger index) const {
    return At(cels_, index, ErrorSource);
}

const std::vector<std::shared_ptr<AGICel>>& AGICels::ShowAll() const {
    for (const auto& cel : cels_)
        cel->ShowMirrored(showMirrored_);
    return cels_;
}

void AGICels::Move(AnyInteger from, AnyInteger to) {
    Stored(from);
    Stored(to);
    MoveElement(cels_, from, to);
    RenewIndexes();
    MarkDirty(link_);
}

std::shared_ptr<AGICel> AGICels::Add(AnyInteger pos, AnyInteger celWidth, AnyInteger celHeight,
                                     AGIColors transColor) {
    if (Count() >= MaxCels) RaiseCatalogue(552, ErrorSource, "");
    return Wrapped(653, [&] {
        auto cel = std::make_shared<AGICel>(link_);
        if (celWidth >= 1 && celWidth <= AGICel::MaxWidth) cel->Width(celWidth);
        if (celHeight >= 1 && celHeight <= AGICel::MaxHeight) cel->Height(celHeight);
        if (transColor <= agWhite) cel->TransColor(transColor);
        cels_.insert(cels_.begin() + PlaceOrEnd(pos, Count()), cel);
        RenewIndexes();
        MarkDirty(link_);
        return cel;
    });
}

void AGICels::Remove(AnyInteger index) {
    if (Count() == 1) RaiseCatalogue(612, ErrorSource);
    if (index < 0 || index >= Count()) RaiseText(reSubscript, ErrorSource, "subscript out of range");
    Stored(index)->Leave();
    cels_.erase(cels_.begin() + index);
    RenewIndexes();
    MarkDirty(link_);
}

void AGICels::Append(CelPixels pixels, AGIColors transColor) {
    cels_.push_back(std::make_shared<AGICel>(link_, std::move(pixels), transColor));
    cels_.back()->Index(static_cast<std::uint8_t>(Count() - 1));
}

std::shared_ptr<AGICels> AGICels::Copy(ViewLinkPointer link) const {
    auto copy = std::make_shared<AGICels>(link);
    for (const auto& cel : cels_) {
        copy->cels_.push_back(cel->Copy(link, showMirrored_));
    }
    copy->RenewIndexes();
    return copy;
}

void AGICels::FlipPixels() {
    for (const auto& cel : cels_) {
        cel->FlipPixels();
    }
}

void AGICels::Leave() {
    for (const auto& cel : cels_)
        cel->Leave();
    link_.reset();
}

void AGICels::EndMirroring() {
    showMirrored_ = false;
    for (const auto& cel : cels_) {
        cel->ShowMirrored(false);
    }
}

void AGICels::RenewIndexes() {
    std::uint8_t index = 0;
    for (const auto& cel : cels_) {
        cel->Index(index++);
    }
}

}  // namespace zorvex
