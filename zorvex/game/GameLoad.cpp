// The part of AGIGame that starts the library and opens and closes games.
#include "zorvex/game/GameLoad.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/FileName.h"
#include "zorvex/base/HostText.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/game/HeldObjects.h"
#include "zorvex/game/NewGame.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/AGICommands.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/language/AGITestCommands.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/OldPropertyFile.h"
#include "zorvex/state/PropertyFile.h"
#include "zorvex/state/Workspace.h"
#include "zorvex/storage/ExtractResources.h"
#include "zorvex/storage/FileSwap.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

/// Tells the host how far a load is. A handler may have ended it.
void RaiseLoadStatus(ELStatus status, AGIResType type) {
    const RunSession session;
    Library().Events->LoadStatus.Raise(status, type, 0, "");
    session.Require(AGIGame::ErrorSource);
}

/// Forgets which game was to be opened.
void ClearIdentity(LibraryState& library = Library()) {
    library.GameDir.clear();
    library.GameFile.clear();
    library.GameID.clear();
    library.InterpreterVersion.clear();
    library.IsV3 = false;
}

/// Gives up a property file that cannot be opened. The description is the bare name, which the host puts in
/// the catalogue's text itself.
[[noreturn]] void RefusePropertyFile(std::int32_t id, const std::string& name) {
    Library().LastErrorText = name;
    ClearIdentity();
    Library().PropertyList.reset();
    RaiseText(ObjectErrorBase + id, AGIGame::ErrorSource, name);
}

}  // namespace

RunSession Opening::Started() {
    BeginGameSession();
    return {};
}

Opening::~Opening() {
    if (session_.Lasts() && !Library().GameLoaded) EndGameSession(Library());
}

void EmptyCollections(LibraryState& record) noexcept {
    for (ResourceCollectionBase* collection : record.Collections) {
        if (collection != nullptr) collection->ClearCollection(Internal());
    }
}

void MakeEmptyLists() {
    LibraryState& library = Library();
    if (library.InventoryObjects) library.InventoryObjects->LeaveGame(Internal());
    if (library.VocabularyWords) library.VocabularyWords->LeaveGame(Internal());
    library.InventoryObjects = std::make_shared<AGIInventoryObjects>();
    library.VocabularyWords = std::make_shared<AGIWordList>();
}

void ResetToEmptyGame() {
    LibraryState& library = Library();
    library.GameLoaded = false;
    library.ResDirName.clear();
    library.ResDir.clear();
    ClearIdentity();
    EmptyCollections(library);
    MakeEmptyLists();
    library.PropertyList.reset();
}

// --- Start and end of the library ---
AGIGame::AGIGame() : held_(std::make_unique<Held>()) {
    EmptyCollections(Library());
    InitLibraryState();
    LibraryState& library = Library();
    library.GameObject = this;
    held_->Home = PresentWorkspace();
    library.Events = held_->Events = std::make_shared<AGIGameEvents>();
    library.Logics = held_->Logics = std::make_shared<AGILogics>(Internal());
    library.Pictures = held_->Pictures = std::make_shared<AGIPictures>(Internal());
    library.Sounds = held_->Sounds = std::make_shared<AGISounds>(Internal());
    library.Views = held_->Views = std::make_shared<AGIViews>(Internal());
    library.Collections = {held_->Logics.get(), held_->Pictures.get(), held_->Sounds.get(),
                           held_->Views.get()};
    MakeEmptyLists();
    library.LogicSourceSettings = std::make_shared<AGILogicSourceSettings>();
    library.Commands = held_->Commands = std::make_shared<AGICommands>();
    library.TestCommands = held_->TestCommands = std::make_shared<AGITestCommands>();
    InitCommandTables();
    InitReservedDefines();
}

AGIGame::~AGIGame() {
    // The workspace may be another than the current one, or gone.
    const std::shared_ptr<WorkspaceData> home = held_->Home.lock();
    if (!home || RecordOf(*home).GameObject != this) return;
    LibraryState& library = RecordOf(*home);
    EndGameSession(library);
    EmptyCollections(library);
    library.Collections = {};
    library.Logics.reset();
    library.Pictures.reset();
    library.Sounds.reset();
    library.Views.reset();
    library.InventoryObjects.reset();
    library.VocabularyWords.reset();
    library.Events.reset();
    library.GameObject = nullptr;
    library.PropertyList.reset();
    ClearIdentity(library);
}

// --- Opening ---
void RequireClosed() {
    // A handler of a load finds a session, though no game is open yet.
    if (Library().GameLoaded || Library().Session) RaiseCatalogue(501, AGIGame::ErrorSource);
}

namespace {

/// Without a choice of the host: as the two openings of the class model are told.
constexpr OpenOptions plainOpening{.PreferPropertyFile = false,
                                   .ReadOnly = false,
                                   .EmptyDirectories = EmptyDirectory::Refuse,
                                   .BadEntries = BadEntry::Blank};

/// What comes before anything is written below the game's directory.
void BeginIn(const std::string& directory, const OpenOptions& options) {
    LibraryState& library = Library();
    library.Opened = options;
    // A directory that cannot be opened holds no game, which is told by what looks for one.
    Attempt([&] { library.Session->EnterDirectory(directory); });
    if (options.ReadOnly) library.Session->ProtectDirectory(directory);
    FileSwap::Finish(directory);
}

/// The property file to open for a directory, or "" for none.
std::string PropertyFileOf(const std::string& directory) {
    const std::vector<std::string> files = FilesMatching(directory, "*.zvg");
    if (files.size() == 1) return directory + files.front();
    if (files.size() > 1 && IsValidGameDir(directory)) {
        const std::string wanted = Library().GameID + ".zvg";
        ClearIdentity();
        for (const std::string& name : files) {
            if (EqualNoCase(name, wanted)) return directory + name;
        }
    }
    return {};
}

/// A bare name as description becomes the sentence that goes with it.
Error InWords(const Error& error) {
    const std::int32_t id = error.Id();
    const bool isBare = id == 655 || id == 665 || id == 690 || id == 691;
    if (!isBare) return error;
    std::string text = CatalogueText(id, {error.Description()});
    if (text.find(error.Description()) == std::string::npos) text += " (" + error.Description() + ")";
    return {error.Number(), error.Source(), text};
}

}  // namespace

void AGIGame::Open(std::string_view path, const OpenOptions& options) {
    State();
    RequireClosed();
    const std::string inner = InnerPath(path);
    const FileKind kind = inner.empty() ? FileKind::Directory : Files().Kind(inner);
    if (kind == FileKind::None) RaiseRuntime(reFileNotFound, ErrorSource);
    std::string file = kind == FileKind::File ? inner : std::string();
    if (kind == FileKind::Directory && options.PreferPropertyFile)
        file = PropertyFileOf(inner.empty() ? CurrentDirectory() : CDir(inner));
    const auto error = Attempt([&] {
        if (file.empty()) {
            OpenDirectory(inner, options);
        } else {
            OpenPropertyFile(file, options);
        }
    });
    if (error && !error->Is(636)) throw InWords(*error);
}

const std::vector<LoadIssue>& AGIGame::LoadIssues() const {
    return State().LoadIssues;
}

bool AGIGame::ReadOnly() const {
    const LibraryState& library = State();
    return library.GameLoaded && library.Session->IsProtected();
}

void AGIGame::OpenGameDIR(std::string_view newGameDir) {
    OpenDirectory(newGameDir, plainOpening);
}

void AGIGame::OpenGameZVG(std::string_view gameZVG) {
    OpenPropertyFile(gameZVG, plainOpening);
}

void AGIGame::OpenDirectory(std::string_view newGameDir, const OpenOptions& options) {
    LibraryState& library = State();
    RequireClosed();
    const Opening opening;
    library.GameDir = newGameDir.empty() ? CurrentDirectory() : CDir(InnerPath(newGameDir));
    RaiseLoadStatus(lsDecompiling, rtNone);
    BeginIn(library.GameDir, options);
    if (!IsValidGameDir(library.GameDir)) {
        const std::string directory = library.GameDir;
        library.LastErrorText = directory;
        ClearIdentity();
        RaiseCatalogue(541, ErrorSource, directory);
    }

    library.GameFile = library.GameDir + library.GameID + ".zvg";
    const std::string file = library.GameFile;
    const std::string backup = file + ".OLD";
    Attempt([&] { Files().Remove(backup); });
    const bool setAside = !Attempt([&] { Files().Rename(file, backup); });
    // An opening that fails leaves the property file where it was.
    Guarded([&] { BeginPropertyFile(); },
            [&] {
                if (setAside && !Library().GameLoaded && !FileExists(file)) Files().Rename(backup, file);
            });
}

/// Of a game that is opened from its directory.
void AGIGame::BeginPropertyFile() {
    LibraryState& library = Library();
    library.PropertyList = std::make_shared<StringList>();
    library.PropertyList->Add(library.GameFile);
    library.PropertyList->Add("# Zorvex Game Property File");
    library.PropertyList->Add("#");
    WriteGameProperty("General", "ZorvexVersion", LibraryVersion);
    WriteGameProperty("General", "GameID", library.GameID);

    Guarded(
        [&] {
            library.InterpreterVersion = DetectInterpreterVersion();
            if (library.InterpreterVersion.empty()) RaiseCatalogue(543, ErrorSource);
        },
        [&] {
            ClearIdentity();
            library.PropertyList.reset();
        });
    WriteGameProperty("General", "Interpreter", library.InterpreterVersion);
    FinishGameLoad(Internal(), 1);
}

namespace {

/// Reads the property file. Its lines are host text, but one that another system wrote may hold a byte for
/// each character.
void ReadPropertyFile() {
    LibraryState& library = Library();
    library.PropertyList = OpenPropertyList(library.GameFile, false);
    StringList& list = *library.PropertyList;
    for (std::int32_t i = 1; i < list.Count(); ++i) {
        const std::string& line = list.Lines()[static_cast<std::size_t>(i)];
        const std::string text = HostTextOf(line);
        if (text != line) list.StringLine(i, text);
    }
}

/// Checks the version of the library that wrote the property file; an older one is brought up to date.
void CheckPropertyFileVersion(const std::string& name) {
    const std::string version = ReadGameString("General", "ZorvexVersion", "");
    if (version.empty()) {
        ConvertOldPropertyFile();
    } else if (version != LibraryVersion) {
        if (!version.starts_with("1.2.")) RefusePropertyFile(665, name);
        WriteGameProperty("General", "ZorvexVersion", LibraryVersion);
    }
}

}  // namespace

void AGIGame::OpenPropertyFile(std::string_view gameZVG, const OpenOptions& options) {
    LibraryState& library = State();
    RequireClosed();
    const Opening opening;
    const std::string path = InnerPath(gameZVG);
    const std::string name = JustFileName(path);
    if (!FileExists(path)) {
        const std::string directory = JustPath(path, true);
        if (directory.empty() || DirectoryExists(directory)) RefusePropertyFile(655, name);
        RefusePropertyFile(541, directory);
    }
    library.GameDir = name == path ? CurrentDirectory() : JustPath(path);
    library.GameFile = library.GameDir + name;
    BeginIn(library.GameDir, options);
    ReadPropertyFile();
    CheckPropertyFileVersion(name);
    library.GameID = ReadGameString("General", "GameID", "");
    if (!FileName::Fits(library.GameID)) RefusePropertyFile(690, name);
    library.InterpreterVersion = ReadGameString("General", "Interpreter", "");
    if (!IsKnownVersion(library.InterpreterVersion)) RefusePropertyFile(691, name);
    FinishGameLoad(Internal(), 0);
}

namespace {

/// The steps of FinishGameLoad. It remembers whether anything was logged.
class GameLoad {
  public:
    explicit GameLoad(int mode) : mode_(mode) {}

    void Run() {
        LibraryState& library = Library();
        library.IsV3 = Val(library.InterpreterVersion) >= 3;
        const RunSession session;
        Guarded([&] { OpenResources(); },
                [&] {
                    if (session.Lasts()) ResetToEmptyGame();
                });
        library.ResourceIDsValid = false;
        library.GameLoaded = true;
        EndMaking(library.GameDir);
        WriteLastEdit();
        SaveGameProperties();
        if (warnings_) RaiseCatalogue(636, AGIGame::ErrorSource);
    }

  private:
    void OpenResources() {
        FindResDir();
        MakeResDir();
        if (const auto error = Attempt([&] { warnings_ |= ExtractResources(); })) {
            Library().LastErrorText = error->Description();
            RaiseText(error->Number(), AGIGame::ErrorSource, error->Description());
        }
        RaiseLoadStatus(lsResources, rtWords);
        LoadList(Library().VocabularyWords, "WORDS.TOK");
        RaiseLoadStatus(lsResources, rtObjects);
        LoadList(Library().InventoryObjects, "OBJECT");
        RaiseLoadStatus(lsFinalizing, rtNone);
        InitCommandTables();
        SetCommandsForVersion(Library().InterpreterVersion);
        ReadProperties();
    }

    void FindResDir() {
        LibraryState& library = Library();
        library.ResDirName.clear();
        if (mode_ == 0) {
            RaiseLoadStatus(lsPropertyFile, rtNone);
            library.ResDirName = ReadGameString("General", "ResDir", "");
        }
        // A name from a file must not lead out of the game directory.
        if (!FileName::Fits(library.ResDirName)) library.ResDirName.clear();
        if (!library.ResDirName.empty()) return;
        const std::vector<std::string> directories = SubdirectoriesOf(library.GameDir);
        library.ResDirName = directories.size() == 1 ? directories.front() : library.DefResDir;
        WriteGameProperty("General", "ResDir", library.ResDirName);
    }

    void MakeResDir() {
        LibraryState& library = Library();
        library.ResDir = CDir(library.GameDir + library.ResDirName);
        if (DirectoryExists(library.ResDir)) return;
        if (Attempt([&] { Files().MakeDirectory(library.ResDir); })) {
            Warn({.Kind = LoadIssueKind::SourceDirectory, .Text = "Can't create " + library.ResDir});
            library.ResDir = library.GameDir;
        }
    }

    /// Replaces the vocabulary or the inventory by the one of the game's file.
    template <class List>
    void LoadList(std::shared_ptr<List>& list, const std::string& fileName) {
        list = std::make_shared<List>();
        list->JoinGame(Internal(), false);
        if (const auto error = Attempt([&] { list->Load(Library().GameDir + fileName); })) {
            Warn({.Kind = LoadIssueKind::List,
                  .IsError = true,
                  .Text = "An error occurred while loading " + fileName + ": " + error->Description(),
                  .ErrorNumber = error->Number() > 0 ? error->Number() : error->Id(),
                  .Type = EqualNoCase(fileName, "OBJECT") ? rtObjects : rtWords});
        }
    }

    void ReadProperties() {
        LibraryState& library = Library();
        library.LastEdit = {};
        library.PlatformType = 0;
        for (std::string* text :
             {&library.GameAuthor, &library.GameDescription, &library.GameVersion, &library.GameAbout,
              &library.Platform, &library.PlatformOpts, &library.DOSExec}) {
            text->clear();
        }
        if (const auto error = Attempt([] { GetGameProperties(); })) {
            Warn({.Kind = LoadIssueKind::Properties,
                  .Text = "Error while loading ZVG file; some properties not loaded. (Error number: " +
                          std::to_string(error->Number()) + ")",
                  .ErrorNumber = error->Number()});
        }
    }

    void Warn(LoadIssue issue) {
        warnings_ = true;
        NoteLoadIssue(std::move(issue));
    }

    int mode_;
    bool warnings_ = false;
};

}  // namespace

void AGIGame::FinishGameLoad(const Internal& /*key*/, int mode) {
    State();
    GameLoad(mode).Run();
}

// --- Closing ---
namespace {

void ClearGameFields() {
    LibraryState& library = Library();
    ClearIdentity();
    library.LastEdit = {};
    library.PlatformType = 0;
    for (std::string* text :
         {&library.GameDescription, &library.GameAuthor, &library.GameVersion, &library.GameAbout,
          &library.ResDirName, &library.Platform, &library.PlatformOpts, &library.DOSExec, &library.ResDir}) {
        text->clear();
    }
    library.GameLoaded = false;
    library.GlobalsCRC = 0;
}

}  // namespace

void AGIGame::CloseGame() {
    LibraryState& library = State();
    if (!GameLoaded()) return;
    Wrapped(644, [&] {
        EmptyCollections(library);
        MakeEmptyLists();
    });
    ResetDefaultPalette();
    WriteLastEdit();
    SaveGameProperties();
    library.PropertyList.reset();
    ClearGameFields();
    EndGameSession(library);
}

}  // namespace zorvex
