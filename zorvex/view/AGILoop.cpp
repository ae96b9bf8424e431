#include "zorvex/view/AGILoop.h"

#include "zorvex/base/Error.h"
#include "zorvex/view/AGILoops.h"

namespace zorvex {

AGILoop::AGILoop(AGILoops* owner, ViewLinkPointer link)
    : owner_(owner), link_(std::move(link)), cels_(std::make_shared<AGICels>(link_)) {}

std::shared_ptr<AGICels> AGILoop::Cels() const {
    cels_->ShowMirrored(IsMirror());
    return cels_;
}

CelPixels AGILoop::ShownPixels(AnyInteger cel) const {
    CelPixels pixels = cels_->Stored(cel)->Stored();
    if (IsMirror()) pixels.Flip();
    return pixels;
}

AGILoop* AGILoop::Partner() const {
    if (mirrorPair_ == 0 || owner_ == nullptr) return nullptr;
    for (const auto& loop : *owner_) {
        if (loop->mirrorPair_ == -mirrorPair_) return loop.get();
    }
    return nullptr;
}

std::uint8_t AGILoop::MirrorLoop() const {
    const AGILoop* partner = Partner();
    if (partner == nullptr) RaiseCatalogue(611, ErrorSource);
    return partner->index_;
}

void AGILoop::ForgetPair() {
    if (AGILoop* partner = Partner()) partner->mirrorPair_ = 0;
    mirrorPair_ = 0;
    cels_->EndMirroring();
}

void AGILoop::UnMirror() {
    if (mirrorPair_ == 0) return;
    if (mirrorPair_ > 0) {
        if (AGILoop* mirror = Partner()) mirror->UnMirror();
        return;
    }
    auto own = Cels()->Copy(link_);
    ForgetPair();
    cels_ = std::move(own);
    MarkDirty(link_);
}

void AGILoop::CopyLoop(const AGILoop& sourceLoop) {
    auto copy = sourceLoop.Cels()->Copy(link_);  // first, so that a loop copied onto itself stays as it looks
    if (mirrorPair_ > 0) {
        UnMirror();
    } else {
        ForgetPair();
    }
    cels_ = std::move(copy);
    MarkDirty(link_);
}

void AGILoop::Leave() {
    owner_ = nullptr;
    link_.reset();
    cels_->Leave();
}

void AGILoop::SetCels(const std::shared_ptr<AGICels>& cels) {
    cels_ = cels;
    if (AGILoop* partner = Partner()) partner->cels_ = cels;
}

}  // namespace zorvex
