#include "zorvex/logic/AGILogic.h"

#include <array>
#include <utility>

#include "zorvex/base/CheckSum.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

/// One `return` and an empty message section.
constexpr std::array<std::uint8_t, 6> smallestLogic{1, 0, 0, 0, 2, 0};

std::int32_t TextCRC(std::string_view text) {
    return CRC32(TextToBytes(text));
}

std::string CRCText(std::int32_t crc) {
    return "&H" + HexPad(crc, 1);
}

}  // namespace

AGILogic::AGILogic() : GameResource(rtLogic, ErrorSource) {
    Resource().NewResource();
    Resource().SetAllData(smallestLogic);
}

// --- Name and properties ---
std::string AGILogic::GameSourceFile() const {
    return Library().ResDir + ID() + Library().SourceExt;
}

void AGILogic::ID(std::string_view value) {
    SetIDOrRaise686(value);
}

void AGILogic::Rename(std::string_view value) {
    if (!InGame()) return ID(value);
    const std::string formerID = ID();
    const std::string former = GameSourceFile();
    ID(value);
    const std::string file = GameSourceFile();
    if (file == former) return;
    Guarded(
        [&] {
            if (!EqualNoCase(file, former) && FileExists(file, true)) RaiseRuntime(reFileExists, ErrorSource);
            if (FileExists(former)) Files().Rename(former, file);
        },
        [&] { ID(formerID); });
}

void AGILogic::IDChanged() {
    if (InGame()) sourceFile_ = GameSourceFile();
}

void AGILogic::SetIDField(std::string_view value) {
    GameResource::SetIDField(value);
    sourceFile_ = GameSourceFile();
}

bool AGILogic::IsOtherDescription(std::string_view value) const {
    return !EqualNoCase(value, description_);
}

bool AGILogic::IsRoom() const {
    return isRoom_ && !(InGame() && Number() == 0);
}

void AGILogic::IsRoom(bool value) {
    if (InGame() && Number() == 0) RaiseRuntime(reReadOnlyProperty, ErrorSource);
    if (value == isRoom_) return;
    isRoom_ = value;
    if (InGame()) WriteKey("IsRoom", BoolText(isRoom_));
}

void AGILogic::ReadOwnProperties() {
    crc_ = ReadGameLong(Section(), "CRC32", 0);
    compiledCRC_ = ReadGameLong(Section(), "CompCRC32", 0);
    isRoom_ = ReadGameBool(Section(), "IsRoom", false) && Number() != 0;
}

void AGILogic::WriteFirstProperties() {
    WriteKey("CRC32", "0");
    WriteKey("CompCRC32", "0");
}

void AGILogic::WriteNumberedProperties() const {
    WriteKey("ID", ID());
    WriteKey("Description", description_, false);
    WriteKey("CRC32", CRCText(crc_), false);
    WriteKey("CompCRC32", CRCText(compiledCRC_), false);
    WriteKey("IsRoom", BoolText(isRoom_), false);
}

void AGILogic::DefaultIDFollowed(std::string_view oldID) {
    Attempt([&] {
        const std::string file = GameSourceFile();
        const std::string former =
            Library().ResDir + std::string(oldID) + Library().LogicSourceSettings->SourceExt();
        if (FileExists(former)) {
            Files().Replace(former, file);
        } else {
            Files().Remove(file);
        }
    });
}

void AGILogic::WriteCRC() const {
    WriteKey("CRC32", CRCText(crc_));
}

void AGILogic::WriteCompiledCRC() const {
    WriteKey("CompCRC32", CRCText(compiledCRC_));
}

// --- Source ---
std::string AGILogic::SourceFile() const {
    return InGame() ? GameSourceFile() : sourceFile_;
}

void AGILogic::SourceFile(std::string_view value) {
    if (InGame()) RaiseRuntime(reReadOnlyProperty, ErrorSource);
    sourceFile_ = InnerPath(value);
}

const std::string& AGILogic::SourceText() const {
    RequireLoaded();
    return sourceText_;
}

void AGILogic::SourceText(std::string_view value) {
    while (value.size() >= 2 && value.back() == '\r')
        value.remove_suffix(1);
    sourceText_ = value;
    textWaits_ = !Loaded();
    if (!InGame()) return;
    crc_ = TextCRC(sourceText_);
    sourceDirty_ = true;
}

/// The file to read the source from, or "" when there is none. A text file that another tool has left under
/// the logic's number or ID is taken over.
std::string AGILogic::FindSourceFile() {
    if (!InGame()) return sourceFile_;
    Resource().RequirePresent(Internal());  // the directory is that of the present workspace's game
    sourceFile_ = GameSourceFile();
    if (FileExists(sourceFile_)) return sourceFile_;
    if (!EqualNoCase(Library().SourceExt, ".lgc")) return {};
    for (const std::string& name : {"logic" + std::to_string(Number()), ID()}) {
        const std::string other = Library().ResDir + name + ".txt";
        if (!FileExists(other)) continue;
        Files().Rename(other, sourceFile_);
        return sourceFile_;
    }
    return {};
}

std::string AGILogic::ReadSource(const std::string& file) const {
    ByteArray bytes;
    if (const auto failed = Attempt([&] { bytes = Files().Read(file); })) {
        RaiseCatalogue(502, ErrorSource, std::to_string(failed->Number()), file);
    }
    return std::string(bytes.begin(), bytes.end());
}

std::string AGILogic::DecompiledText() const {
    return DecodeLogic(Resource().View())->Text("\r\n");
}

void AGILogic::LoadSource(bool forceDecompile) {
    const std::string file = FindSourceFile();
    const bool fresh = file.empty() || forceDecompile;
    sourceText_ = ConvertToCodePage(fresh ? DecompiledText() : ReadSource(file));
    crc_ = TextCRC(sourceText_);
    if (InGame()) {
        WriteCRC();
        if (fresh) {
            SaveSource();
            compiledCRC_ = crc_;
            WriteCompiledCRC();
        }
    }
    sourceDirty_ = false;
    DataDirty(false);
}

void AGILogic::StoreSource(const std::string& saveFile) {
    if (Attempt([&] { ReplaceWholeFile(saveFile, TextToBytes(sourceText_)); }))
        RaiseCatalogue(582, ErrorSource);
}

void AGILogic::SaveSource(std::string_view saveFile, bool exporting) {
    Resource().RequirePresent(Internal());
    Wrapped(663,
            [&] {
                const bool wasLoaded = Loaded();
                if (!wasLoaded && !textWaits_) Load();
                const auto unload = [&] {
                    if (!wasLoaded) Unload();
                };
                Guarded(
                    [&] {
                        std::string target = InnerPath(saveFile);
                        if (target.empty()) {
                            if (!InGame()) RaiseCatalogue(599, ErrorSource);
                            target = SourceFile();
                        }
                        StoreSource(target);
                        if (exporting) return;
                        if (InGame()) {
                            WriteCRC();
                            Library().LastEdit = Now();
                        } else {
                            TakeFileName(target);
                        }
                        sourceDirty_ = false;
                    },
                    unload);
                unload();
            },
            {599, 582});
}

// --- Compiling ---
bool AGILogic::Compiled() {
    if (crc_ == 0 && !Loaded()) {
        Resource().Load();
        Guarded([&] { LoadSource(false); }, [&] { Unload(); });
        Unload();
    }
    return crc_ == compiledCRC_;
}

void AGILogic::Compile() {
    if (!InGame()) RaiseCatalogue(618, ErrorSource);
    Resource().RequirePresent(Internal());
    RequireLoaded();
    if (sourceText_.empty()) RaiseCatalogue(546, ErrorSource);
    CompileLogic(*this);
    DataDirty(true);
    Save();
}

void AGILogic::NoteCompiled() {
    compiledCRC_ = crc_;
    WriteCRC();
    WriteCompiledCRC();
}

// --- Life ---
bool AGILogic::IsDirty() const {
    return InGame() ? DataDirty() || WritePropState() : sourceDirty_;
}

void AGILogic::Load() {
    if (Loaded()) {
        LoadSource(false);
        return;
    }
    Resource().Load();
    // A text that was set before is not given up for the file's.
    if (std::exchange(textWaits_, false)) return;
    Guarded([&] { LoadSource(false); }, [&] { Unload(); });
}

void AGILogic::Unload() {
    Resource().Unload();
    sourceText_.clear();
    textWaits_ = false;
}

void AGILogic::Clear() {
    if (InGame()) RequireLoaded();
    sourceText_ = CommandCatalogue().ActionCommandTable[0].Name + "();\r\n\r\n[ messages";
    if (InGame()) {
        crc_ = TextCRC(sourceText_);
        compiledCRC_ = crc_;
        Resource().Clear();
        Resource().SetAllData(smallestLogic);
    }
    DataDirty(true);
    sourceDirty_ = true;
}

void AGILogic::SetLogic(AGILogic& copyLogic) {
    if (&copyLogic == this) return;
    const bool wasLoaded = copyLogic.Loaded();
    if (!wasLoaded) copyLogic.Load();
    GameResource::SetIDField(copyLogic.ID());
    description_ = copyLogic.description_;
    isRoom_ = copyLogic.isRoom_;
    compiledCRC_ = copyLogic.compiledCRC_;
    crc_ = copyLogic.crc_;
    sourceText_ = copyLogic.sourceText_;
    sourceDirty_ = copyLogic.sourceDirty_;
    sourceFile_ = copyLogic.SourceFile();
    Resource().SetRes(Internal(), copyLogic.Resource());
    Resource().SetAllData(copyLogic.Resource().AllData());
    DataDirty(copyLogic.DataDirty());
    WritePropState(copyLogic.WritePropState());
    if (!wasLoaded) copyLogic.Unload();
}

void AGILogic::Export(std::string_view exportFile, bool /*resetDirty*/) {
    if (!InGame()) RaiseCatalogue(668, ErrorSource);
    RequireLoaded();
    Resource().Export(InnerPath(exportFile));
}

void AGILogic::Import(std::string_view importFile, bool asSource) {
    const std::string file = InnerPath(importFile);
    Resource().NewResource(true);
    if (asSource) {
        Resource().SetAllData(smallestLogic);
        sourceFile_ = file;
        LoadSource(false);
    } else {
        Guarded([&] { Resource().Import(file); }, [&] { Unload(); });
        if (Attempt([&] { LoadSource(true); })) {
            sourceText_.clear();
            crc_ = 0;
            sourceDirty_ = false;
            DataDirty(false);
        }
        sourceFile_.clear();
    }
    TakeFileName(file);
}

void AGILogic::Save(std::string_view saveFile) {
    if (InGame() && WritePropState()) {
        WriteKey("ID", ID());
        WriteKey("Description", description_);
        WriteCRC();
        WriteCompiledCRC();
        WriteKey("IsRoom", BoolText(isRoom_));
        WritePropState(false);
    }
    RequireLoaded();
    if (InGame()) {
        if (!DataDirty()) return;
        DataDirty(!Resource().Save());
        WriteSize();
    } else if (sourceDirty_) {
        SaveSource(saveFile);
    }
}

}  // namespace zorvex
