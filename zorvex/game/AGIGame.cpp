#include "zorvex/game/AGIGame.h"

#include <algorithm>

#include "zorvex/base/Internal.h"
#include "zorvex/game/HeldObjects.h"

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/FileName.h"
#include "zorvex/base/HostText.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/game/GameCompile.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/AGICommands.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/language/AGITestCommands.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/PropertyText.h"
#include "zorvex/storage/FileSwap.h"
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
    if (!FileName::FitsEverywhere(name) || name.find(' ') != std::string::npos) {
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

LibraryState& AGIGame::State() const {
    LibraryState& library = Library();
    if (library.GameObject != this) RaiseRuntime(reObjectNotSet, ErrorSource);
    return library;
}

// --- The objects ---
bool AGIGame::GameLoaded() const {
    return State().GameLoaded;
}
AGIGameEvents& AGIGame::GameEvents() const {
    State();
    return *held_->Events;
}
AGILogics& AGIGame::Logics() const {
    State();
    return *held_->Logics;
}
AGIPictures& AGIGame::Pictures() const {
    State();
    return *held_->Pictures;
}
AGISounds& AGIGame::Sounds() const {
    State();
    return *held_->Sounds;
}
AGIViews& AGIGame::Views() const {
    State();
    return *held_->Views;
}
std::shared_ptr<AGIWordList> AGIGame::VocabularyWords() const {
    return State().VocabularyWords;
}
std::shared_ptr<AGIInventoryObjects> AGIGame::InventoryObjects() const {
    return State().InventoryObjects;
}
AGICommands& AGIGame::Commands() const {
    State();
    return *held_->Commands;
}
AGITestCommands& AGIGame::TestCommands() const {
    State();
    return *held_->TestCommands;
}

std::shared_ptr<AGILogicSourceSettings> AGIGame::LogicSourceSettings() const {
    return State().LogicSourceSettings;
}

void AGIGame::LogicSourceSettings(std::shared_ptr<AGILogicSourceSettings> value) {
    State().LogicSourceSettings = std::move(value);
    State().LastEdit = Now();
}

std::vector<TDefine> AGIGame::GlobalDefines() const {
    State();
    return CurrentGlobalDefines()->List();
}

// --- Identity and places ---
std::string AGIGame::GameID() const {
    if (!GameLoaded()) RaiseCatalogue(677, ErrorSource);
    return State().GameID;
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

/// An ID becomes part of file names and of patterns of them, so it must not lead out of the directory; and
/// the property file must give it back, or the game could not be opened again.
void RequireUsableID(std::string_view id) {
    if (!IsKeepableName(id)) RaiseRuntime(reBadFileName);
}

}  // namespace

void AGIGame::GameID(std::string_view value) {
    LibraryState& library = State();
    if (!GameLoaded()) RaiseCatalogue(677, ErrorSource);
    const std::string newID = CutCharacters(value, library.IsV3 ? 5 : 6);
    const std::string oldID = library.GameID;
    if (newID == oldID) return;
    const auto failed = Attempt([&] {
        RequireUsableID(newID);
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
    return GameLoaded() ? State().GameDir : CurrentDirectory();
}

void AGIGame::GameDir(std::string_view value) {
    LibraryState& library = State();
    if (!GameLoaded()) return;
    library.GameDir = ExistingDirectory(value);
    if (!library.Session->IsProtected()) library.Session->EnterDirectory(library.GameDir);
    library.GameFile = library.GameDir + JustFileName(library.GameFile);
    library.ResDir = CDir(library.GameDir + library.ResDirName);
    // What is saved from now on goes to where the game is.
    library.PropertyList->StringLine(0, library.GameFile);
    library.VocabularyWords->JoinGame(Internal(), library.VocabularyWords->Loaded());
    library.InventoryObjects->JoinGame(Internal(), library.InventoryObjects->Loaded());
    library.LastEdit = Now();
}

std::string AGIGame::GameFile() const {
    if (!GameLoaded()) RaiseCatalogue(693, ErrorSource);
    return State().GameFile;
}

void AGIGame::GameFile(std::string_view value) {
    LibraryState& library = State();
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
    return GameLoaded() ? State().ResDir : CurrentDirectory();
}

std::string AGIGame::ResDirName() const {
    return State().ResDirName;
}

void AGIGame::ResDirName(std::string_view value) {
    LibraryState& library = State();
    library.ResDirName = ValidDirectoryName(value);
    library.ResDir = CDir(library.GameDir + library.ResDirName);
    WriteGeneral("ResDir", library.ResDirName);
    library.LastEdit = Now();
}

std::string AGIGame::DefResDir() const {
    return State().DefResDir;
}

void AGIGame::DefResDir(std::string_view value) {
    State().DefResDir = ValidDirectoryName(value);
    State().LastEdit = Now();
}

std::string AGIGame::TemplateDir() const {
    return State().TemplateDir;
}

void AGIGame::TemplateDir(std::string_view value) {
    State().TemplateDir = ExistingDirectory(value);
}

std::string AGIGame::InterpreterVersion() const {
    const std::string& version = State().InterpreterVersion;
    return !GameLoaded() && version.empty() ? std::string(DefaultV2Version) : version;
}

void AGIGame::InterpreterVersion(std::string_view value) {
    LibraryState& library = State();
    RequireKnownVersion(value, ErrorSource);
    if (GameLoaded() && value.front() != library.InterpreterVersion.front()) {
        ChangeGeneration(std::string(value));
        return;
    }
    StoreVersion(value);
    if (GameLoaded()) SaveGameProperties();
}

namespace {

/// Marks that a compile changes the generation, for as long as it lives.
class VersionChange {
  public:
    VersionChange() { Library().VersionChanging = true; }
    VersionChange(const VersionChange&) = delete;
    VersionChange& operator=(const VersionChange&) = delete;
    ~VersionChange() { Library().VersionChanging = false; }
};

}  // namespace

void AGIGame::ChangeGeneration(const std::string& version) {
    LibraryState& library = State();
    const VersionChange change;
    if (!library.IsV3 && CharacterCount(library.GameID) > 5) GameID(CutCharacters(library.GameID, 5));
    if (const auto error = Attempt([&] { CompileGameFiles(true, "", version); })) {
        library.CompileCanceled = false;
        // From the swap on the game has the new version, whatever a handler has raised.
        if (library.InterpreterVersion == version) throw Error(*error);
        RaiseWrapped(641, *error);
    }
    library.CompileCanceled = false;
}

void AGIGame::CompileGame(bool rebuildOnly, std::string_view newGameDir) {
    State();
    CompileGameFiles(rebuildOnly, newGameDir);
}

BuildReport AGIGame::Build(const BuildOptions& options) {
    State();
    BuildReport report;
    BuildGameFiles(options, {}, report);
    return report;
}

// --- Descriptive values ---
std::string AGIGame::GameAuthor() const {
    return State().GameAuthor;
}
void AGIGame::GameAuthor(std::string_view value) {
    StoreText(State().GameAuthor, "Author", value, shortTextLimit);
}

std::string AGIGame::GameAbout() const {
    return State().GameAbout;
}
void AGIGame::GameAbout(std::string_view value) {
    StoreText(State().GameAbout, "About", value, longTextLimit);
}

std::string AGIGame::GameDescription() const {
    return State().GameDescription;
}
void AGIGame::GameDescription(std::string_view value) {
    StoreText(State().GameDescription, "Description", value, longTextLimit);
}

std::string AGIGame::GameVersion() const {
    return State().GameVersion;
}
void AGIGame::GameVersion(std::string_view value) {
    StoreText(State().GameVersion, "GameVersion", value, shortTextLimit);
}

DateTime AGIGame::LastEdit() const {
    return GameLoaded() ? State().LastEdit : Now();
}

std::int32_t AGIGame::PlatformType() const {
    return State().PlatformType;
}
void AGIGame::PlatformType(std::int32_t value) {
    State().PlatformType = value >= 0 && value <= 4 ? value : 0;
    WriteGeneral("PlatformType", std::to_string(State().PlatformType));
}

std::string AGIGame::Platform() const {
    return State().Platform;
}
void AGIGame::Platform(std::string_view value) {
    StorePlain(State().Platform, "Platform", value);
}

std::string AGIGame::PlatformOpts() const {
    return State().PlatformOpts;
}
void AGIGame::PlatformOpts(std::string_view value) {
    StorePlain(State().PlatformOpts, "PlatformOpts", value);
}

std::string AGIGame::DOSExec() const {
    return State().DOSExec;
}
void AGIGame::DOSExec(std::string_view value) {
    StorePlain(State().DOSExec, "DOSExec", value);
}

bool AGIGame::UseLE() const {
    return GameLoaded() && State().UseLE;
}
void AGIGame::UseLE(bool value) {
    State().UseLE = value;
    WriteGeneral("UseLE", BoolText(value));
}

// --- Library-wide values ---
std::int32_t AGIGame::EGAColor(std::int16_t index) const {
    return At(State().EGAColor, index, ErrorSource);
}

void AGIGame::EGAColor(std::int16_t index, std::int32_t value) {
    At(State().EGAColor, index, ErrorSource);
    SetPaletteEntry(static_cast<std::size_t>(index), value);
    if (GameLoaded()) WriteGameProperty("Palette", "Color" + std::to_string(index), "&H" + HexPad(value, 8));
}

std::int32_t AGIGame::EGARevColor(std::int16_t index) const {
    return At(State().EGARevColor, index, ErrorSource);
}

std::int32_t AGIGame::MaxVol0Size() const {
    return State().MaxVol0Size;
}
void AGIGame::MaxVol0Size(std::int32_t value) {
    State().MaxVol0Size = std::clamp(value, minVol0Size, State().MaxVolSize);
}

std::string AGIGame::ResTypeName(AGIResType type) const {
    State();
    return std::string(At(ResTypeNames, static_cast<int>(type), ErrorSource));
}

// --- Properties and the running compile ---
void AGIGame::SaveProperties() {
    State();
    SaveGameProperties();
}

void AGIGame::WriteProperty(std::string_view section, std::string_view key, std::string_view value,
                            std::string_view group, bool forceSave) {
    State();
    WriteGameProperty(section, key, value, group);
    if (forceSave) SaveProperties();
}

void AGIGame::CancelCompile() {
    LibraryState& library = State();
    if (!library.CompileActive) return;
    library.CompileActive = false;
    library.CompileCanceled = true;
}

}  // namespace zorvex
