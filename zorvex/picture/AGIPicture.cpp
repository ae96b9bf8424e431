#include "zorvex/picture/AGIPicture.h"

#include <algorithm>
#include <cstring>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/Text.h"
#include "zorvex/picture/PictureFunctions.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/Palette.h"

namespace zorvex {
namespace {

constexpr std::string_view errorSource = "ZORVEX.agiPicture";
constexpr std::uint8_t defaultPriBase = 48;
constexpr std::uint8_t maxPriBase = 158;
constexpr double firstVersionWithPriBase = 2.936;
constexpr std::uint32_t white = 0xFFFFFF;

constexpr BitmapHeader screenHeader{.Width = PictureWidth,
                                    .Height = -PictureHeight,
                                    .BitCount = 8,
                                    .ImageSize = static_cast<std::uint32_t>(PictureSize),
                                    .ColorsUsed = 16};

}  // namespace

AGIPicture::AGIPicture() : GameResource(rtPicture, errorSource) {
    NewResource();
    constexpr std::uint8_t emptyPicture[] = {dfEnd};
    Resource().SetAllData(emptyPicture);
    changes_ = Resource().Change.Subscribe([this] {
        DataDirty(true);
        built_ = false;
    });
}

AGIPicture::~AGIPicture() {
    Attempt([this] {
        if (Loaded()) Resource().Unload();
        ReleaseBitmaps();
    });
}

// --- Drawing ---
void AGIPicture::BuildBMPs() {
    ReleaseBitmaps();
    colors_ = PresentPalette();
    errorLevel_ = DrawPicture(visData_, priData_, Resource().View(), stepDraw_ ? drawPos_ : -1, drawPos_);
    toolStatus_ = GetToolStatus();
    MakeBitmaps();
    built_ = true;
}

void AGIPicture::MakeBitmaps() {
    const bool made = visual_.Make(screenHeader, colors_) && priority_.Make(screenHeader, colors_) &&
                      visual_.Services()->SetBkColor(visual_.Context(), white) != 0;
    if (!made) {
        ReleaseBitmaps();
        RaiseCatalogue(610, errorSource);
    }
    std::memcpy(visual_.Bits(), visData_.data(), visData_.size());
    std::memcpy(priority_.Bits(), priData_.data(), priData_.size());
}

void AGIPicture::ReleaseBitmaps() {
    visual_.Restore();
    priority_.Restore();
    visual_.DeleteBitmap();
    priority_.DeleteBitmap();
    visual_.DeleteContext();
    priority_.DeleteContext();
}

void AGIPicture::EnsureBuilt() {
    if (!built_) BuildBMPs();
}

void AGIPicture::EnsureBitmaps() {
    EnsureBuilt();
    if (visual_.IsCurrent()) return;
    ReleaseBitmaps();
    MakeBitmaps();
}

void AGIPicture::EnsureDrawn() {
    Attempt([this] { EnsureBuilt(); });
}

// --- The screens ---
void AGIPicture::RequirePoint(AnyInteger x, AnyInteger y) const {
    RequireLoaded();
    if (x < 0 || x >= PictureWidth || y < 0 || y >= PictureHeight) RaiseCatalogue(621, errorSource);
}

std::uint8_t AGIPicture::PixelAt(const ByteArray& screen, AnyInteger x, AnyInteger y) const {
    return At(screen, x + PictureWidth * y, errorSource);
}

/// Where a run of pixels ends that is cut at the screen's edge.
AnyInteger AGIPicture::EndOfRun(AnyInteger x, AnyInteger length) {
    if (length < 0) RaiseRuntime(reOverflow, errorSource);
    return x + std::min<AnyInteger>(length, PictureWidth - x);
}

ByteArray AGIPicture::VisData() {
    VisView();
    return visData_;
}

ByteArray AGIPicture::PriData() {
    PriView();
    return priData_;
}

ByteView AGIPicture::VisView() {
    RequireLoaded();
    EnsureDrawn();
    return visData_;
}

ByteView AGIPicture::PriView() {
    RequireLoaded();
    EnsureDrawn();
    return priData_;
}

std::uint8_t AGIPicture::VisPixel(AnyInteger x, AnyInteger y) {
    RequirePoint(x, y);
    EnsureDrawn();
    return PixelAt(visData_, x, y);
}

std::uint8_t AGIPicture::PriPixel(AnyInteger x, AnyInteger y) {
    RequirePoint(x, y);
    EnsureDrawn();
    return PixelAt(priData_, x, y);
}

AGIColors AGIPicture::PixelPriority(AnyInteger x, AnyInteger y) {
    RequirePoint(x, y);
    EnsureDrawn();
    std::uint8_t priority = 0;
    for (AnyInteger row = y; row < PictureHeight && priority < agCyan; ++row)
        priority = PixelAt(priData_, x, row);
    return static_cast<AGIColors>(priority);
}

AGIColors AGIPicture::PixelControl(AnyInteger x, AnyInteger y, AnyInteger length) {
    RequirePoint(x, y);
    const AnyInteger end = EndOfRun(x, length);
    EnsureDrawn();
    std::uint8_t lowest = agWhite;
    for (AnyInteger column = x; column < end; ++column)
        lowest = std::min(lowest, PixelAt(priData_, column, y));
    return static_cast<AGIColors>(lowest);
}

bool AGIPicture::ObjOnWater(AnyInteger x, AnyInteger y, AnyInteger length) {
    RequirePoint(x, y);
    const AnyInteger end = EndOfRun(x, length);
    EnsureBuilt();
    for (AnyInteger column = x; column < end; ++column) {
        if (PixelAt(priData_, column, y) != agCyan) return false;
    }
    return true;
}

std::int32_t AGIPicture::VisualBMP() {
    RequireLoaded();
    EnsureBitmaps();
    return visual_.Context();
}

std::int32_t AGIPicture::PriorityBMP() {
    RequireLoaded();
    EnsureBitmaps();
    return priority_.Context();
}

// --- Step by step ---
std::vector<PictureCommand> AGIPicture::Commands() const {
    RequireLoaded();
    return ListPictureCommands(View());
}

std::int32_t AGIPicture::DrawPos() const {
    RequireLoaded();
    return drawPos_;
}

void AGIPicture::DrawPos(AnyInteger value) {
    RequireLoaded();
    if (value == drawPos_) return;
    drawPos_ = value < 0 ? -1 : static_cast<std::int32_t>(std::min<AnyInteger>(value, Size() - 1));
    built_ = false;
}

bool AGIPicture::StepDraw() const {
    RequireLoaded();
    return stepDraw_;
}

void AGIPicture::StepDraw(bool value) {
    RequireLoaded();
    if (value == stepDraw_) return;
    stepDraw_ = value;
    built_ = false;
}

PenStatus AGIPicture::CurrentToolStatus() const {
    RequireLoaded();
    return toolStatus_;
}

// --- Settings ---
template <class Field, class Value>
void AGIPicture::SetField(Field& field, const Value& value) {
    RequireLoaded();
    field = value;
    WritePropState(true);
}

void AGIPicture::BkgdImgFile(std::string_view value) {
    SetField(bkgdImgFile_, value);
}

void AGIPicture::BkgdShow(bool value) {
    SetField(bkgdShow_, value);
}

void AGIPicture::BkgdTrans(std::int32_t value) {
    SetField(bkgdTrans_, value);
}

void AGIPicture::BkgdPosition(std::string_view value) {
    SetField(bkgdPosition_, value);
}

void AGIPicture::BkgdSize(std::string_view value) {
    SetField(bkgdSize_, value);
}

std::uint8_t AGIPicture::PriBase() {
    const LibraryState& library = Library();
    if (!library.GameLoaded || Val(library.InterpreterVersion) < firstVersionWithPriBase)
        priBase_ = defaultPriBase;
    return priBase_;
}

void AGIPicture::PriBase(AnyInteger value) {
    RequireLoaded();
    if (value < 0) RaiseRuntime(reOverflow, errorSource);
    SetField(priBase_, static_cast<std::uint8_t>(std::min<AnyInteger>(value, maxPriBase)));
}

void AGIPicture::ReadBackground() {
    bkgdImgFile_ = ReadGameString(Section(), "BkgdImg", "");
    if (bkgdImgFile_.empty()) return;
    bkgdShow_ = ReadGameBool(Section(), "BkgdShow", false);
    bkgdTrans_ = ReadGameLong(Section(), "BkgdTrans", 0);
    bkgdPosition_ = ReadGameString(Section(), "BkgdPosn", "");
    bkgdSize_ = ReadGameString(Section(), "BkgdSize", "");
}

void AGIPicture::WriteNumberedProperties() const {
    WriteKey("ID", ID());
    WriteKey("Description", Description(), false);
    WriteKey("BkgdImg", bkgdImgFile_, false);
    if (bkgdImgFile_.empty()) return;
    WriteKey("BkgdTrans", std::to_string(bkgdTrans_), false);
    WriteKey("BkgdPosn", bkgdPosition_, false);
    WriteKey("BkgdSize", bkgdSize_, false);
}

void AGIPicture::WriteSettings() {
    WriteKey("ID", ID());
    WriteKey("Description", Description(), false);
    if (priBase_ == defaultPriBase) {
        DeleteGameProperty(Section(), "PriBase");
    } else {
        WriteKey("PriBase", std::to_string(priBase_), false);
    }
    if (bkgdImgFile_.empty()) {
        bkgdShow_ = false;
        for (const std::string_view key : {"BkgdImg", "BkgdShow", "BkgdTrans", "BkgdPosn", "BkgdSize"})
            DeleteGameProperty(Section(), key);
    } else {
        WriteKey("BkgdImg", bkgdImgFile_, false);
        WriteKey("BkgdShow", BoolText(bkgdShow_), false);
        WriteKey("BkgdTrans", std::to_string(bkgdTrans_), false);
        WriteKey("BkgdPosn", bkgdPosition_, false);
        WriteKey("BkgdSize", bkgdSize_, false);
    }
    WritePropState(false);
}

// --- The resource ---
void AGIPicture::Load() {
    const bool keepsEdits = Loaded() && IsDirty();
    if (!Loaded()) Resource().Load();
    if (InGame() && !keepsEdits) ReadBackground();
    BuildBMPs();
    if (!keepsEdits) DataDirty(false);
}

void AGIPicture::Unload() {
    Resource().Unload();
    DataDirty(false);
    ReleaseBitmaps();
    built_ = false;
}

void AGIPicture::Clear() {
    RequireLoaded();
    Resource().Clear();
    Resource().WriteByte(dfEnd);
    drawPos_ = 1;
    Attempt([this] { BuildBMPs(); });
    DataDirty(true);
}

void AGIPicture::Save(std::string_view saveFile) {
    if (InGame() && WritePropState()) WriteSettings();
    if (!HasToWrite(saveFile)) return;
    RequireLoaded();
    DataDirty(!Resource().Save(saveFile));
    if (InGame()) WriteSize();
}

void AGIPicture::Export(std::string_view exportFile, bool resetDirty) {
    RequireLoaded();
    const std::string path = InnerPath(exportFile);
    Resource().Export(path);
    if (InGame()) return;
    TakeFileName(path);
    if (resetDirty) DataDirty(false);
}

void AGIPicture::Import(std::string_view importFile) {
    const std::string path = InnerPath(importFile);
    ImportBytes(path);
    Imported(path);
}

void AGIPicture::SetPictureData(ByteView picData) {
    Resource().SetAllData(picData);
    if (Loaded()) Attempt([this] { BuildBMPs(); });
}

void AGIPicture::SetPicture(AGIPicture& copyPicture) {
    SetIDField(copyPicture.ID());
    description_ = copyPicture.Description();
    bkgdImgFile_ = copyPicture.BkgdImgFile();
    bkgdShow_ = copyPicture.BkgdShow();
    bkgdTrans_ = copyPicture.BkgdTrans();
    bkgdPosition_ = copyPicture.BkgdPosition();
    bkgdSize_ = copyPicture.BkgdSize();
    priBase_ = copyPicture.PriBase();
    const bool dataDirty = copyPicture.DataDirty();
    Resource().SetRes(Internal(), copyPicture.Resource());
    if (copyPicture.Loaded()) {
        Attempt([&] { Resource().SetAllData(copyPicture.AllData()); });
        Attempt([this] { BuildBMPs(); });
    }
    DataDirty(dataDirty);
    WritePropState(copyPicture.WritePropState());
}

}  // namespace zorvex
