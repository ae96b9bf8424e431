#include "zorvex/view/AGIView.h"

#include <algorithm>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/view/ViewCodec.h"

namespace zorvex {

AGIView::AGIView() : GameResource(rtView, ViewErrorSource) {
    change_ = Resource().Change.Subscribe([this] {
        DataDirty(true);
        viewSet_ = false;
    });
    DropLoops();
    NewResource();
    WriteDefaultView();
    DataDirty(false);
}

AGIView::~AGIView() {
    loops_->Cut();
}

bool AGIView::IsDirty() const {
    return DataDirty() || (InGame() && WritePropState());
}

// --- Loops and description ---

void AGIView::DropLoops() {
    if (loops_) loops_->Cut();
    auto link = std::make_shared<ViewLink>();
    link->view = this;
    loops_ = std::make_shared<AGILoops>(std::move(link));
    viewSet_ = false;
}

void AGIView::RequireSet() {
    RequireLoaded();
    if (viewSet_) return;
    // The bytes may wait to be saved; to look at them does not change that.
    const bool dirty = DataDirty();
    Guarded([&] { LoadViewData(); }, [&] { Unload(); });
    DataDirty(dirty);
}

std::shared_ptr<AGILoops> AGIView::Loops() {
    RequireSet();
    return loops_;
}

std::string AGIView::ViewDescription() {
    RequireSet();
    return viewDescription_;
}

void AGIView::ViewDescription(std::string_view value) {
    if (Loaded()) RequireSet();
    if (value == viewDescription_) return;
    viewDescription_ = value;
    DataDirty(true);
}

void AGIView::SetMirror(AnyInteger targetLoop, AnyInteger sourceLoop) {
    Loops()->SetMirror(targetLoop, sourceLoop);
}

void AGIView::MoveLoop(AnyInteger from, AnyInteger to) {
    Loops()->Move(from, to);
}

void AGIView::MoveCel(AnyInteger loop, AnyInteger from, AnyInteger to) {
    Loops()->Item(loop)->Cels()->Move(from, to);
}

CelPixels AGIView::ReadCel(AnyInteger loop, AnyInteger cel) {
    return Loops()->Item(loop)->ShownPixels(cel);
}

void AGIView::WriteCel(AnyInteger loop, AnyInteger cel, CelPixels pixels,
                       std::optional<AGIColors> transColor) {
    const auto isNone = [](AGIColors color) { return color > agWhite; };
    const std::shared_ptr<AGILoop> target = Loops()->Item(loop);
    const std::shared_ptr<AGICel> stored = target->Cels()->Stored(cel);
    if (std::ranges::any_of(pixels.Flat(), isNone) || (transColor && isNone(*transColor))) {
        RaiseCatalogue(556, AGICel::ErrorSource);
    }
    if (target->IsMirror()) pixels.Flip();
    stored->Store(std::move(pixels));
    if (transColor) stored->TransColor(*transColor);
}

// --- From bytes and to bytes ---

void AGIView::LoadViewData() {
    DropLoops();
    TakeContent(DecodeView(Resource().View()));
    viewSet_ = true;
    DataDirty(false);
}

void AGIView::TakeContent(ViewContent content) {
    for (LoopContent& loop : content.loops) {
        const std::shared_ptr<AGICels> cels = loops_->Add()->Cels();
        for (CelContent& cel : loop.cels) {
            cels->Append(std::move(cel.pixels), cel.transColor);
        }
    }
    for (std::int32_t i = 0; i < loops_->Count(); ++i) {
        const std::int32_t partner = content.loops[static_cast<std::size_t>(i)].mirrorLoop;
        if (partner > i) loops_->SetMirror(partner, i);
    }
    viewDescription_ = std::move(content.description);
}

ViewContent AGIView::Content() {
    RequireSet();
    ViewContent content;
    for (const auto& loop : *loops_) {
        LoopContent& copy = content.loops.emplace_back();
        if (loop->Mirrored()) copy.mirrorLoop = loop->MirrorLoop();
        if (loop->Mirrored() && copy.mirrorLoop < loop->Index()) continue;
        const std::shared_ptr<AGICels> cels = loop->Cels();
        for (std::int32_t j = 0; j < cels->Count(); ++j) {
            const std::shared_ptr<AGICel> cel = cels->Item(j);
            copy.cels.push_back({cel->AllCelData(), cel->TransColor()});
        }
    }
    content.description = viewDescription_;
    return content;
}

void AGIView::BuildViewData() {
    Wrapped(632, [&] { Resource().SetAllData(EncodeView(Content())); });
    viewSet_ = true;
}

void AGIView::WriteDefaultView() {
    std::int32_t pos = 0;
    for (const std::uint8_t byte : DefaultViewBytes()) {
        Resource().WriteByte(byte, pos++);
    }
}

// --- Life ---

void AGIView::Load() {
    Guarded(
        [&] {
            if (!Loaded()) Resource().Load();
            LoadViewData();
        },
        [&] { Unload(); });
}

void AGIView::Unload() {
    Resource().Unload();
    DropLoops();
    DataDirty(false);
}

void AGIView::Clear() {
    RequireLoaded();
    Resource().Clear();
    while (loops_->Count() > 1) {
        loops_->Remove(loops_->Count() - 1);
    }
    if (loops_->Count() == 1 && loops_->Item(0)->Cels()->Count() > 0) {
        const std::shared_ptr<AGICels> cels = loops_->Item(0)->Cels();
        while (cels->Count() > 1) {
            cels->Remove(cels->Count() - 1);
        }
        cels->Item(0)->Clear();
    }
    viewDescription_.clear();
    WriteDefaultView();
    DataDirty(true);
}

void AGIView::WriteNumberedProperties() const {
    WriteKey("ID", ID());
    WriteKey("Description", Description(), false);
}

void AGIView::Save(std::string_view saveFile) {
    if (InGame() && WritePropState()) {
        WriteKey("ID", ID());
        WriteKey("Description", Description());
        WritePropState(false);
    }
    RequireLoaded();
    if (!DataDirty()) return;
    BuildViewData();
    DataDirty(!Resource().Save(saveFile));
    if (InGame()) WriteSize();
}

void AGIView::Export(std::string_view exportFile, bool resetDirty) {
    RequireLoaded();
    if (DataDirty()) BuildViewData();
    const std::string path = InnerPath(exportFile);
    Resource().Export(path);
    if (!InGame()) TakeFileName(path);
    if (resetDirty) DataDirty(false);
}

void AGIView::Import(std::string_view importFile) {
    const std::string path = InnerPath(importFile);
    Guarded([&] { Resource().Import(path); }, [&] { Unload(); });
    TakeFileName(path);
    DataDirty(false);
    WritePropState(false);
    viewSet_ = false;
}

void AGIView::SetView(AGIView& copyView) {
    if (&copyView == this) return;
    Wrapped(643, [&] { CopyFrom(copyView); });
}

void AGIView::CopyFrom(AGIView& source) {
    const std::shared_ptr<AGILoops> loops = source.Loaded() ? source.Loops() : nullptr;
    SetIDField(source.ID());
    description_ = source.Description();
    Resource().SetRes(Internal(), source.Resource());
    DropLoops();
    if (loops) {
        Resource().SetAllData(source.Resource().View());
        viewDescription_ = source.viewDescription_;
        for (const auto& loop : *loops) {
            loops_->Add()->CopyLoop(*loop);
        }
        for (const auto& loop : *loops) {
            if (loop->MirrorPair() > 0) loops_->SetMirror(loop->MirrorLoop(), loop->Index());
        }
    }
    DataDirty(source.DataDirty());
    WritePropState(source.WritePropState());
    viewSet_ = source.viewSet_;
}

}  // namespace zorvex
