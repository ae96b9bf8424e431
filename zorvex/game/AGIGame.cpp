#include "zorvex/game/AGIGame.h"

#include "zorvex/compiler/AGICommandFunctions.h"
#include "zorvex/compiler/AGICommands.h"
#include "zorvex/compiler/AGILogicSourceSettings.h"
#include "zorvex/compiler/AGITestCommands.h"
#include "zorvex/compiler/GlobalDefines.h"
#include "zorvex/game/AGIGameEvents.h"
#include "zorvex/game/Checked.h"
#include "zorvex/game/Faults.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/game/GameProperties.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/logic/StringList.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/FileSwap.h"
#include "zorvex/storage/GameCompile.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

constexpr std::size_t shortTextLimit = 256;
constexpr std::size_t longTextLimit = 4096;
constexpr std::int32_t minVol0Size = 32768;

void WriteGeneral(std::string_view key, std::string_view value) {
    WriteGameProperty("General", key, value);
}

/// Stores a descriptive text and its key.
void StoreText(std::string& field, std::string_view key, std::string_view value, std::size_t limit) {
    field = CutCharacters(value, limit);
    WriteGeneral(key, field);
}

void StorePlain(std::string& field, std::string_view key, std::string_view value) {
    field = value;
    WriteGeneral(key, field);
}

/// A directory name as both directory-name setters take it.
std::string ValidDirectoryName(std::string_view value) {
    const std::string name(Trim(value));
    if (name.empty() || name.find_first_of("\\/:*?<>| ") != std::string::npos) {
        RaiseRuntime(reInvalidPropertyValue, AGIGame::ErrorSource);
    }
    return name;
}

/// An existing directory, in the inner form with a backslash at its end.
std::string ExistingDirectory(std::string_view value) {
    const std::string directory = InnerPath(value);
    if (!DirectoryExists(directory)) RaiseCatalogue(630, AGIGame::ErrorSource, value);
    return CDir(directory);
}

}  // namespace

// --- The objects ---
bool AGIGame::GameLoaded() const {
    return Library().GameLoaded;
}
AGIGameEvents& AGIGame::GameEvents() const {
    return *Library().Events;
}
AGILogics& AGIGame::Logics() const {
    return *Library().Logics;
}
AGIPictures& AGIGame::Pictures() const {
    return *Library().Pictures;
}
AGISounds& AGIGame::Sounds() const {
    return *Library().Sounds;
}
AGIViews& AGIGame::Views() const {
    return *Library().Views;
}
std::shared_ptr<AGIWordList> AGIGame::VocabularyWords() const {
    return Library().VocabularyWords;
}
std::shared_ptr<AGIInventoryObjects> AGIGame::InventoryObjects() const {
    return Library().InventoryObjects;
}
AGICommands& AGIGame::Commands() const {
    return *Library().Commands;
}
AGITestCommands& AGIGame::TestCommands() const {
    return *Library().TestCommands;
}

std::shared_ptr<AGILogicSourceSettings> AGIGame::LogicSourceSettings() const {
    return Library().LogicSourceSettings;
}

void AGIGame::LogicSourceSettings(std::shared_ptr<AGILogicSourceSettings> value) {
    Library().LogicSourceSettings = std::move(value);
    Library().LastEdit = Now();
}

std::vector<TDefine> AGIGame::GlobalDefines() const {
    return CurrentGlobalDefines()->List();
}

// --- Identity and places ---
std::string AGIGame::GameID() const {
    if (!GameLoaded()) RaiseCatalogue(677, ErrorSource);
    return Library().GameID;
}

namespace {

/// Gives the directory and volume files of a V3 game the head of another ID: all of them or none.
void RenameV3Files(const std::string& oldID, const std::string& newID) {
    if (EqualNoCase(oldID, newID)) return;  // file names ignore case
    const std::string& directory = Library().GameDir;
    FileSwap swap(directory);
    const auto rename = [&](const std::string& from, const std::string& to) {
        if (!FileExists(directory + from)) RaiseRuntime(reFileNotFound);
        if (FileExists(directory + to)) RaiseRuntime(reFileExists);
        swap.Add(from, to);
    };
    rename(oldID + "DIR", newID + "DIR");
    for (const std::string& name : FilesMatching(directory, oldID + "VOL.*")) {
        if (EqualNoCase(name.substr(name.size() - 4), ".OLD")) continue;
        rename(name, newID + "VOL." + Split(name, ".")[1]);
    }
    swap.Run();
}

}  // namespace

void AGIGame::GameID(std::string_view value) {
    LibraryState& library = Library();
    if (!GameLoaded()) RaiseCatalogue(677, ErrorSource);
    const std::string newID = CutCharacters(value, library.IsV3 ? 5 : 6);
    const std::string oldID = library.GameID;
    if (newID == oldID) return;
    const auto failed = Attempt([&] {
        // An ID becomes part of file names, so it must not lead out of the directory.
        if (newID.find_first_of("\\/:") != std::string::npos) RaiseRuntime(reBadFileName);
        if (library.IsV3) RenameV3Files(oldID, newID);
        if (EqualNoCase(library.GameFile, library.GameDir + oldID + ".zvg"))
            GameFile(library.GameDir + newID + ".zvg");
        library.GameID = UpperCase(newID);
        WriteGeneral("GameID", newID);
    });
    if (failed) {
        RaiseText(ObjectErrorBase + 530, ErrorSource, CatalogueText(530, {failed->NumberAndText()}));
    }
}

std::string AGIGame::GameDir() const {
    return GameLoaded() ? Library().GameDir : CurrentDirectory();
}

void AGIGame::GameDir(std::string_view value) {
    LibraryState& library = Library();
    if (!GameLoaded()) return;
    library.GameDir = ExistingDirectory(value);
    library.GameFile = library.GameDir + JustFileName(library.GameFile);
    library.ResDir = CDir(library.GameDir + library.ResDirName);
    // What is saved from now on goes to where the game is.
    library.PropertyList->StringLine(0, library.GameFile);
    library.VocabularyWords->JoinGame(library.VocabularyWords->Loaded());
    library.InventoryObjects->JoinGame(library.InventoryObjects->Loaded());
    library.LastEdit = Now();
}

std::string AGIGame::GameFile() const {
    if (!GameLoaded()) RaiseCatalogue(693, ErrorSource);
    return Library().GameFile;
}

void AGIGame::GameFile(std::string_view value) {
    LibraryState& library = Library();
    if (!GameLoaded()) RaiseCatalogue(693, ErrorSource);
    const std::string path = InnerPath(value);
    Attempt([&] { Files().Rename(library.GameFile, path); });
    library.GameFile = path;
    library.LastEdit = Now();
    WriteGeneral("LastEdit", DateText(library.LastEdit));
    library.PropertyList->StringLine(0, path);
    SaveGameProperties();
}

std::string AGIGame::ResDir() const {
    return GameLoaded() ? Library().ResDir : CurrentDirectory();
}

std::string AGIGame::ResDirName() const {
    return Library().ResDirName;
}

void AGIGame::ResDirName(std::string_view value) {
    LibraryState& library = Library();
    library.ResDirName = ValidDirectoryName(value);
    library.ResDir = CDir(library.GameDir + library.ResDirName);
    WriteGeneral("ResDir", library.ResDirName);
    library.LastEdit = Now();
}

std::string AGIGame::DefResDir() const {
    return Library().DefResDir;
}

void AGIGame::DefResDir(std::string_view value) {
    Library().DefResDir = ValidDirectoryName(value);
    Library().LastEdit = Now();
}

std::string AGIGame::TemplateDir() const {
    return Library().TemplateDir;
}

void AGIGame::TemplateDir(std::string_view value) {
    Library().TemplateDir = ExistingDirectory(value);
}

std::string AGIGame::InterpreterVersion() const {
    const std::string& version = Library().InterpreterVersion;
    return !GameLoaded() && version.empty() ? std::string(DefaultV2Version) : version;
}

void AGIGame::InterpreterVersion(std::string_view value) {
    LibraryState& library = Library();
    RequireKnownVersion(value, ErrorSource);
    if (GameLoaded()) {
        if (value.front() != library.InterpreterVersion.front() && !ChangeGeneration()) return;
        library.LastEdit = Now();
        WriteGeneral("Interpreter", value);
        SaveGameProperties();
    }
    library.InterpreterVersion = value;
    library.IsV3 = Val(value) > 3;
    InitCommandTables();
    SetCommandsForVersion(library.InterpreterVersion);
}

bool AGIGame::ChangeGeneration() {
    LibraryState& library = Library();
    library.VersionChanging = true;
    if (!library.IsV3 && CharacterCount(library.GameID) > 5) GameID(CutCharacters(library.GameID, 5));
    if (const auto error = Attempt([&] { CompileGame(true, ""); })) {
        library.CompileCanceled = false;
        library.VersionChanging = false;
        RaiseWrapped(641, *error);
    }
    return !std::exchange(library.CompileCanceled, false);
}

void AGIGame::CompileGame(bool rebuildOnly, std::string_view newGameDir) {
    CompileGameFiles(rebuildOnly, newGameDir);
}

// --- Descriptive values ---
std::string AGIGame::GameAuthor() const {
    return Library().GameAuthor;
}
void AGIGame::GameAuthor(std::string_view value) {
    StoreText(Library().GameAuthor, "Author", value, shortTextLimit);
}

std::string AGIGame::GameAbout() const {
    return Library().GameAbout;
}
void AGIGame::GameAbout(std::string_view value) {
    StoreText(Library().GameAbout, "About", value, longTextLimit);
}

std::string AGIGame::GameDescription() const {
    return Library().GameDescription;
}
void AGIGame::GameDescription(std::string_view value) {
    StoreText(Library().GameDescription, "Description", value, longTextLimit);
}

std::string AGIGame::GameVersion() const {
    return Library().GameVersion;
}
void AGIGame::GameVersion(std::string_view value) {
    StoreText(Library().GameVersion, "GameVersion", value, shortTextLimit);
}

DateTime AGIGame::LastEdit() const {
    return GameLoaded() ? Library().LastEdit : Now();
}

std::int32_t AGIGame::PlatformType() const {
    return Library().PlatformType;
}
void AGIGame::PlatformType(std::int32_t value) {
    Library().PlatformType = value >= 0 && value <= 4 ? value : 0;
    WriteGeneral("PlatformType", std::to_string(Library().PlatformType));
}

std::string AGIGame::Platform() const {
    return Library().Platform;
}
void AGIGame::Platform(std::string_view value) {
    StorePlain(Library().Platform, "Platform", value);
}

std::string AGIGame::PlatformOpts() const {
    return Library().PlatformOpts;
}
void AGIGame::PlatformOpts(std::string_view value) {
    StorePlain(Library().PlatformOpts, "PlatformOpts", value);
}

std::string AGIGame::DOSExec() const {
    return Library().DOSExec;
}
void AGIGame::DOSExec(std::string_view value) {
    StorePlain(Library().DOSExec, "DOSExec", value);
}

bool AGIGame::UseLE() const {
    return GameLoaded() && Library().UseLE;
}
void AGIGame::UseLE(bool value) {
    Library().UseLE = value;
    WriteGeneral("UseLE", BoolText(value));
}

// --- Library-wide values ---
std::int32_t AGIGame::EGAColor(std::int16_t index) const {
    return At(Library().EGAColor, index, ErrorSource);
}

void AGIGame::EGAColor(std::int16_t index, std::int32_t value) {
    At(Library().EGAColor, index, ErrorSource);
    SetPaletteEntry(static_cast<std::size_t>(index), value);
    if (GameLoaded()) WriteGameProperty("Palette", "Color" + std::to_string(index), "&H" + HexPad(value, 8));
}

std::int32_t AGIGame::EGARevColor(std::int16_t index) const {
    return At(Library().EGARevColor, index, ErrorSource);
}

std::int32_t AGIGame::MaxVol0Size() const {
    return Library().MaxVol0Size;
}
void AGIGame::MaxVol0Size(std::int32_t value) {
    Library().MaxVol0Size = std::clamp(value, minVol0Size, Library().MaxVolSize);
}

std::string AGIGame::ResTypeName(AGIResType type) const {
    return std::string(At(ResTypeNames, static_cast<int>(type), ErrorSource));
}

// --- Properties and the running compile ---
void AGIGame::SaveProperties() {
    SaveGameProperties();
}

void AGIGame::WriteProperty(std::string_view section, std::string_view key, std::string_view value,
                            std::string_view group, bool forceSave) {
    WriteGameProperty(section, key, value, group);
    if (forceSave) SaveProperties();
}

void AGIGame::CancelCompile() {
    LibraryState& library = Library();
    if (!library.CompileActive) return;
    library.CompileActive = false;
    library.CompileCanceled = true;
}

}  // namespace zorvex
