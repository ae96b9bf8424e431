// The part of AGIGame that starts the library and opens and closes games.
#include "zorvex/game/GameLoad.h"
#include "zorvex/compiler/AGICommandFunctions.h"
#include "zorvex/compiler/AGICommands.h"
#include "zorvex/compiler/AGILogicSourceSettings.h"
#include "zorvex/compiler/AGITestCommands.h"
#include "zorvex/compiler/ReservedTables.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/game/AGIGameEvents.h"
#include "zorvex/game/Faults.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/game/GameProperties.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/HostText.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/NewGame.h"
#include "zorvex/game/OldPropertyFile.h"
#include "zorvex/game/PropertyFile.h"
#include "zorvex/game/Text.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/logic/StringList.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/storage/ExtractResources.h"
#include "zorvex/storage/FileSwap.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

void RaiseLoadStatus(ELStatus status, AGIResType type) {
    Library().Events->LoadStatus.Raise(status, type, 0, "");
}

/// Forgets which game was to be opened.
void ClearIdentity() {
    LibraryState& library = Library();
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

/// True for a text that can be a file's name or the head of one.
bool IsPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of("\\/:") == std::string_view::npos;
}

}  // namespace

void MakeEmptyCollections() {
    LibraryState& library = Library();
    library.Logics = std::make_shared<AGILogics>();
    library.Views = std::make_shared<AGIViews>();
    library.Pictures = std::make_shared<AGIPictures>();
    library.Sounds = std::make_shared<AGISounds>();
    library.InventoryObjects = std::make_shared<AGIInventoryObjects>();
    library.VocabularyWords = std::make_shared<AGIWordList>();
}

void ResetToEmptyGame() {
    LibraryState& library = Library();
    library.GameLoaded = false;
    library.ResDirName.clear();
    library.ResDir.clear();
    ClearIdentity();
    MakeEmptyCollections();
    library.PropertyList.reset();
}

// --- Start and end of the library ---
AGIGame::AGIGame() {
    InitLibraryState();
    LibraryState& library = Library();
    library.GameObject = this;
    library.Events = std::make_shared<AGIGameEvents>();
    MakeEmptyCollections();
    library.LogicSourceSettings = std::make_shared<AGILogicSourceSettings>();
    library.Commands = std::make_shared<AGICommands>();
    library.TestCommands = std::make_shared<AGITestCommands>();
    InitCommandTables();
    InitReservedDefines();
}

AGIGame::~AGIGame() {
    LibraryState& library = Library();
    if (library.GameObject != this) return;
    library.Logics.reset();
    library.Pictures.reset();
    library.Sounds.reset();
    library.Views.reset();
    library.InventoryObjects.reset();
    library.VocabularyWords.reset();
    library.Events.reset();
    library.GameObject = nullptr;
    library.PropertyList.reset();
    library.GameLoaded = false;
    ClearIdentity();
}

// --- Opening ---
void AGIGame::OpenGameDIR(std::string_view newGameDir) {
    LibraryState& library = Library();
    if (GameLoaded()) RaiseCatalogue(501, ErrorSource);
    library.GameDir = newGameDir.empty() ? CurrentDirectory() : CDir(InnerPath(newGameDir));
    RaiseLoadStatus(lsDecompiling, rtNone);
    FileSwap::Finish(library.GameDir);
    if (!IsValidGameDir(library.GameDir)) {
        const std::string directory = library.GameDir;
        library.LastErrorText = directory;
        ClearIdentity();
        RaiseCatalogue(541, ErrorSource, directory);
    }

    library.GameFile = library.GameDir + library.GameID + ".zvg";
    const std::string backup = library.GameFile + ".OLD";
    Attempt([&] { Files().Remove(backup); });
    Attempt([&] { Files().Rename(library.GameFile, backup); });
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
    FinishGameLoad(1);
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

void AGIGame::OpenGameZVG(std::string_view gameZVG) {
    LibraryState& library = Library();
    if (GameLoaded()) RaiseCatalogue(501, ErrorSource);
    const std::string path = InnerPath(gameZVG);
    const std::string name = JustFileName(path);
    if (!FileExists(path)) {
        const std::string directory = JustPath(path, true);
        if (directory.empty() || DirectoryExists(directory)) RefusePropertyFile(655, name);
        RefusePropertyFile(541, directory);
    }
    library.GameDir = name == path ? CurrentDirectory() : JustPath(path);
    library.GameFile = library.GameDir + name;
    FileSwap::Finish(library.GameDir);
    ReadPropertyFile();
    CheckPropertyFileVersion(name);
    library.GameID = ReadGameString("General", "GameID", "");
    if (!IsPlainName(library.GameID)) RefusePropertyFile(690, name);
    library.InterpreterVersion = ReadGameString("General", "Interpreter", "");
    if (!IsKnownVersion(library.InterpreterVersion)) RefusePropertyFile(691, name);
    FinishGameLoad(0);
}

namespace {

/// The steps of FinishGameLoad. It remembers whether anything was logged.
class GameLoad {
  public:
    explicit GameLoad(int mode) : mode_(mode) {}

    void Run() {
        LibraryState& library = Library();
        library.IsV3 = Val(library.InterpreterVersion) >= 3;
        Guarded([&] { OpenResources(); }, [] { ResetToEmptyGame(); });
        library.ResourceIDsValid = false;
        library.GameLoaded = true;
        EndMaking(library.GameDir);
        WriteGameProperty("General", "LastEdit", DateText(library.LastEdit));
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
        if (!IsPlainName(library.ResDirName)) library.ResDirName.clear();
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
            Warn("Can't create " + library.ResDir);
            library.ResDir = library.GameDir;
        }
    }

    /// Replaces the vocabulary or the inventory by the one of the game's file.
    template <class List>
    void LoadList(std::shared_ptr<List>& list, const std::string& fileName) {
        list = std::make_shared<List>();
        list->JoinGame(false);
        if (const auto error = Attempt([&] { list->Load(Library().GameDir + fileName); })) {
            warnings_ = true;
            WriteLogEntry(1, "An error occurred while loading " + fileName + ": " + error->Description());
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
            Warn("Error while loading ZVG file; some properties not loaded. (Error number: " +
                 std::to_string(error->Number()) + ")");
        }
    }

    void Warn(std::string_view text) {
        warnings_ = true;
        WriteLogEntry(0, text);
    }

    int mode_;
    bool warnings_ = false;
};

}  // namespace

void AGIGame::FinishGameLoad(int mode) {
    GameLoad(mode).Run();
}

// --- Closing ---
namespace {

template <class List>
void LeaveGame(const std::shared_ptr<List>& list) {
    if (!list) return;
    if (list->Loaded()) list->Unload();
    list->LeaveGame();
}

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
    LibraryState& library = Library();
    if (!GameLoaded()) return;
    Wrapped(644, [&] {
        library.Views->ClearCollection();
        library.Logics->ClearCollection();
        library.Pictures->ClearCollection();
        library.Sounds->ClearCollection();
        LeaveGame(library.InventoryObjects);
        LeaveGame(library.VocabularyWords);
    });
    ResetDefaultPalette();
    WriteGameProperty("General", "LastEdit", DateText(library.LastEdit));
    SaveGameProperties();
    library.PropertyList.reset();
    ClearGameFields();
}

}  // namespace zorvex
