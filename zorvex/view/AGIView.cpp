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

void AGIView::RequireRead() {
    RequireLoaded();
    if (!viewSet_) LoadViewData();
}

void AGIView::RequireSet() {
    RequireLoaded();
    Guarded([&] { RequireRead(); }, [&] { Unload(); });
}

std::shared_ptr<AGILoops> AGIView::Loops() {
    RequireSet();
    return loops_;
}

std::string AGIView::ViewDescription() {
    RequireRead();
    return viewDescription_;
}

void AGIView::ViewDescription(std::string_view value) {
    if (Loaded()) RequireRead();
    const std::string_view cut = value.substr(0, std::min(value.find('\0'), MaxViewDescription));
    if (cut == viewDescription_) return;
    viewDescription_ = cut;
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
    ViewContent content = DecodeView(Resource().View());
    // The bytes may wait to be saved; to look at them does not change that.
    const bool dirty = DataDirty();
    TakeContent(std::move(content));
    viewSet_ = true;
    DataDirty(dirty);
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
        // Cels that a host holds go on showing themselves as they do.
        for (std::int32_t j = 0; j < loop->Stored().Count(); ++j)
            copy.cels.push_back({loop->ShownPixels(j), loop->Stored().Stored(j)->TransColor()});
    }
    content.description = viewDescription_;
    return content;
}

void AGIView::BuildViewData() {
    const ByteArray bytes = Wrapped(632, [&] { return EncodeView(Content()); });
    Resource().SetAllData(bytes);
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
            if (Loaded() && viewSet_ && IsDirty()) return;  // edits stay
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
    if (Loaded() && DataDirty()) BuildViewData();  // first, since it may fail
    if (InGame() && WritePropState()) {
        WriteKey("ID", ID());
        WriteKey("Description", Description());
        WritePropState(false);
    }
    RequireLoaded();
    if (!HasToWrite(saveFile)) return;
    DataDirty(!Resource().Save(saveFile));
    if (InGame()) WriteSize();
}

void AGIView::Export(std::string_view exportFile, bool resetDirty) {
    RequireLoaded();
    if (DataDirty()) BuildViewData();
    const std::string path = InnerPath(exportFile);
    Resource().Export(path);
    if (InGame()) return;
    TakeFileName(path);
    if (resetDirty) DataDirty(false);
}

void AGIView::Import(std::string_view importFile) {
    const std::string path = InnerPath(importFile);
    ImportBytes(path);
    viewSet_ = false;
    Imported(path);
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
