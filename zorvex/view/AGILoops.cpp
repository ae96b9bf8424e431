#include "zorvex/view/AGILoops.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"

namespace zorvex {

AGILoops::~AGILoops() {
    // Loops that somebody still holds lose their partners, and must go on showing what they showed.
    for (const auto& loop : loops_) {
        if (loop.use_count() > 1) Attempt([&] { loop->UnMirror(); });
    }
    for (const auto& loop : loops_) {
        loop->Owner(nullptr);
    }
}

void AGILoops::Cut() {
    if (link_) link_->view = nullptr;
}

std::shared_ptr<AGILoop> AGILoops::Add(AnyInteger pos) {
    if (Count() >= MaxLoops) RaiseCatalogue(537, ErrorSource);
    const AnyInteger at = PlaceOrEnd(pos, Count());
    if (at < MirrorLimit && Count() >= MirrorLimit) loops_[MirrorLimit - 1]->UnMirror();
    auto loop = std::make_shared<AGILoop>(this, link_);
    loops_.insert(loops_.begin() + at, loop);
    RenewIndexes();
    MarkDirty(link_);
    return loop;
}

std::shared_ptr<AGILoop> AGILoops::Item(AnyInteger index) const {
    return At(loops_, index, ErrorSource);
}

void AGILoops::Remove(AnyInteger index) {
    if (Count() == 1) RaiseCatalogue(613, ErrorSource);
    if (index < 0 || index >= Count()) RaiseRuntime(reSubscript, ErrorSource);
    Wrapped(661, [&] { Take(index); });
}

void AGILoops::Take(AnyInteger index) {
    const std::shared_ptr<AGILoop> loop = Item(index);
    if (loop->Mirrored()) {
        // The cels stay with the partner; a host may hold the removed loop for an undo.
        const std::shared_ptr<AGICels> shared = loop->Cels();
        const auto own = shared->Copy(link_);
        const bool wasSource = loop->MirrorPair() > 0;
        loop->ForgetPair();
        loop->SetCels(own);
        if (wasSource) shared->FlipPixels();
    }
    loop->Leave();
    loops_.erase(loops_.begin() + index);
    RenewIndexes();
    MarkDirty(link_);
}

void AGILoops::Move(AnyInteger from, AnyInteger to) {
    const std::shared_ptr<AGILoop> loop = Item(from);
    Item(to);
    if (from == to) return;
    MoveElement(loops_, from, to);
    RenewIndexes();
    for (const auto& each : loops_) {
        if (each->Index() >= MirrorLimit) each->UnMirror();
    }
    MarkDirty(link_);
}

void AGILoops::SetMirror(AnyInteger targetLoop, AnyInteger sourceLoop) {
    if (sourceLoop >= Count() || sourceLoop >= MirrorLimit || targetLoop >= MirrorLimit) {
        RaiseCatalogue(539, ErrorSource);
    }
    if (targetLoop == sourceLoop) RaiseCatalogue(540, ErrorSource);
    const std::shared_ptr<AGILoop> target = Item(targetLoop);
    if (target->Mirrored()) RaiseCatalogue(550, ErrorSource, std::to_string(targetLoop));
    const std::shared_ptr<AGILoop> source = Item(sourceLoop);
    if (source->Mirrored()) RaiseCatalogue(551, ErrorSource, std::to_string(sourceLoop));
    const std::int16_t pair = FreePairNumber();
    source->MirrorPair(pair);
    target->MirrorPair(static_cast<std::int16_t>(-pair));
    target->SetCels(source->Cels());
    MarkDirty(link_);
}

std::int16_t AGILoops::FreePairNumber() const {
    std::int16_t pair = 1;
    while (
        std::ranges::any_of(loops_, [&](const auto& loop) { return std::abs(loop->MirrorPair()) == pair; })) {
        ++pair;
    }
    return pair;
}

void AGILoops::RenewIndexes() {
    std::uint8_t index = 0;
    for (const auto& loop : loops_) {
        loop->Index(index++);
    }
}

}  // namespace zorvex
