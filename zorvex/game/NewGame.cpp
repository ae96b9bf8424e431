#include "zorvex/game/NewGame.h"

#include "zorvex/base/Faults.h"
#include "zorvex/base/FileName.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/game/GameLoad.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/PropertyFile.h"
#include "zorvex/storage/NewDirectories.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

constexpr std::string_view errorSource = AGIGame::ErrorSource;

// Stands in a directory from the first file of a new game until the game can be opened.
constexpr std::string_view unfinishedMark = "NEW_GAME.TXT";

/// The sections of a new property file, behind its heading.
constexpr std::string_view emptySections[] = {"[General]",
                                              "",
                                              "[Palette]",
                                              "",
                                              "[WORDS.TOK]",
                                              "",
                                              "[OBJECT]",
                                              "",
                                              "[::BEGIN Logics::]",
                                              "[::END Logics::]",
                                              "",
                                              "[::BEGIN Pictures::]",
                                              "[::END Pictures::]",
                                              "",
                                              "[::BEGIN Sounds::]",
                                              "[::END Sounds::]",
                                              "",
                                              "[::BEGIN Views::]",
                                              "[::END Views::]",
                                              ""};

/// One making of a game.
class GameMaking {
  public:
    GameMaking(AGIGame& game, std::string_view id, std::string_view version, std::string& resDir)
        : game_(game), id_(id), version_(version), resDir_(resDir) {}

    void Check(std::string_view newGameDir) {
        LibraryState& library = Library();
        RequireClosed();
        const std::string directory = CDir(InnerPath(newGameDir));
        if (!DirectoryExists(directory)) RaiseCatalogue(630, errorSource, newGameDir);
        const bool unfinished = FileExists(directory + std::string(unfinishedMark));
        if (unfinished) RemoveUnfinished(directory);
        if (!FilesMatching(directory, "*.zvg").empty()) RaiseCatalogue(687, errorSource);
        if (IsValidGameDir(directory)) {
            library.GameDir.clear();
            library.IsV3 = false;
            RaiseCatalogue(687, errorSource);
        }
        library.GameDir = directory;
        if (resDir_.empty()) resDir_ = library.DefResDir;
    }

    static void Begin() {
        Attempt([] { Files().Write(Library().GameDir + std::string(unfinishedMark), {}); });
    }

    void FromTemplate(std::string_view templateDir) {
        const std::string source = CDir(InnerPath(templateDir));
        const std::vector<std::string> propertyFiles = FilesMatching(source, "*.zvg");
        if (propertyFiles.empty()) RaiseText(ObjectErrorBase + 630, errorSource, CatalogueText(508));
        const std::vector<std::string> directories = SubdirectoriesOf(source);
        const std::string oldResDir = directories.empty() ? std::string() : directories.front();
        Begin();
        if (!CopyDirectory(source, Library().GameDir, false)) {
            RaiseCatalogue(683, errorSource, Library().LastErrorText);
        }
        OpenCopy(propertyFiles.front(), oldResDir);
        ChangeID();
        NameGlobals();
    }

    void FromNothing() {
        RequireKnownVersion(version_, errorSource);
        // An ID becomes part of file names, so it must not lead out of the directory.
        if (!id_.empty() && !FileName::Fits(id_)) {
            Wrapped(631, [] { RaiseRuntime(reBadFileName, errorSource); });
        }
        Begin();
        const Opening opening;
        StartProperties();
        try {
            WriteFiles();
        } catch (...) {
            const Error error = CurrentError();
            RememberError(error);
            Library().GameLoaded = false;
            EmptyCollections(Library());
            MakeEmptyLists();
            RaiseText(ObjectErrorBase + 631, error.Source(), CatalogueText(631, {error.NumberAndText()}));
        }
        fresh_ = true;
    }

    void Finish() {
        LibraryState& library = Library();
        EndMaking(library.GameDir);
        bool warnings = false;
        const std::string directory = library.GameDir + library.ResDirName;
        if (!DirectoryExists(directory) && Attempt([&] { Files().MakeDirectory(directory); })) {
            WriteLogEntry(0, "Can't create " + library.ResDir);
            library.ResDir = library.GameDir;
            warnings = true;
        }
        if (fresh_) Attempt([&] { library.Logics->Item(0)->SaveSource(); });
        WriteGameProperty("General", "GameID", library.GameID);
        WriteGameProperty("General", "Interpreter", library.InterpreterVersion);
        WriteGameProperty("General", "ResDir", library.ResDirName);
        for (std::size_t i = 0; i < library.EGAColor.size(); ++i) {
            WriteGameProperty("Palette", "Color" + std::to_string(i), "&H" + HexPad(library.EGAColor[i], 8));
        }
        if (warnings) RaiseCatalogue(637, errorSource);
    }

  private:
    /// Takes away by what the rest of an earlier attempt would count as a game.
    static void RemoveUnfinished(const std::string& directory) {
        for (const std::string_view pattern : {"*.zvg", "*DIR"}) {
            for (const std::string& name : FilesMatching(directory, pattern))
                Attempt([&] { Files().Remove(directory + name); });
        }
    }

    // --- From a template ---
    void OpenCopy(const std::string& propertyFile, const std::string& oldResDir) {
        LibraryState& library = Library();
        const std::string directory = library.GameDir;
        if (const auto error = Attempt([&] { game_.OpenGameZVG(directory + propertyFile); })) {
            RaiseCatalogue(684, errorSource, error->Description());
        }
        if (!oldResDir.empty() && !EqualNoCase(oldResDir, resDir_)) {
            Attempt([&] { Files().Rename(directory + oldResDir, directory + resDir_); });
        }
        library.ResDirName = resDir_;
        library.ResDir = CDir(library.GameDir + library.ResDirName);
    }

    void ChangeID() {
        if (const auto error = Attempt([&] { game_.GameID(id_); })) {
            RaiseCatalogue(685, errorSource, error->Description());
        }
    }

    /// The heading of the template's global defines names the game.
    void NameGlobals() const {
        Attempt([&] {
            const auto list = OpenPropertyList(Library().GameDir + "globals.txt", false);
            if (list->Count() <= 3 || !Trim(list->StringLine(2)).starts_with("[")) return;
            list->StringLine(2, "[ global defines file for " + id_);
            SavePropertyList(*list);
        });
    }

    // --- From nothing ---
    void StartProperties() {
        LibraryState& library = Library();
        library.InterpreterVersion = version_;
        library.IsV3 = Val(version_) > 3;
        library.GameID = UpperCase(CutCharacters(id_, library.IsV3 ? 5 : 6));
        library.GameFile = library.GameDir + library.GameID + ".zvg";
        Attempt([&] { Files().Remove(library.GameFile); });
        library.PropertyList = OpenPropertyList(library.GameFile, true);
        StringList& list = *library.PropertyList;
        list.Add("#");
        list.Add("# Zorvex Game Property File for " + library.GameID);
        list.Add("#");
        for (const std::string_view line : emptySections)
            list.Add(line);
        WriteGameProperty("General", "ZorvexVersion", LibraryVersion);
        // A name that cannot be a directory leaves the sources beside the other files of the game.
        if (Attempt([&] { game_.ResDirName(resDir_); })) library.ResDir = library.GameDir;
    }

    void WriteFiles() {
        LibraryState& library = Library();
        for (const NewDirectory& directory : EmptyDirectoryFiles(library.IsV3, library.GameID)) {
            Files().Write(library.GameDir + directory.Name, directory.Bytes);
        }
        library.VocabularyWords = std::make_shared<AGIWordList>();
        AGIWordList& words = *library.VocabularyWords;
        words.JoinGame(Internal(), true);
        words.AddWord("a", 0);
        words.AddWord("anyword", 1);
        words.AddWord("rol", 9999);
        words.Save();
        library.InventoryObjects = std::make_shared<AGIInventoryObjects>();
        AGIInventoryObjects& items = *library.InventoryObjects;
        items.JoinGame(Internal(), true);
        items.Add("?", 0);
        items.Save();
        InitCommandTables();
        SetCommandsForVersion(library.InterpreterVersion);
        library.GameLoaded = true;
        const std::shared_ptr<AGILogic> logic = library.Logics->Add(0);
        logic->Clear();
        logic->Save();
        logic->Unload();
        library.ResourceIDsValid = false;
    }

    AGIGame& game_;
    std::string id_;
    std::string version_;
    std::string& resDir_;
    bool fresh_ = false;
};

}  // namespace

void AGIGame::NewGame(std::string_view newID, std::string_view newVersion, std::string_view newGameDir,
                      std::string& newResDir, std::string_view templateDir) {
    State();
    GameMaking making(*this, newID, newVersion, newResDir);
    making.Check(newGameDir);
    if (templateDir.empty()) {
        making.FromNothing();
    } else {
        making.FromTemplate(templateDir);
    }
    making.Finish();
}

void EndMaking(std::string_view gameDir) {
    const std::string mark = std::string(gameDir) + std::string(unfinishedMark);
    if (FileExists(mark)) Attempt([&] { Files().Remove(mark); });
}

// --- Copying ---
bool CopyDirectory(std::string_view source, std::string_view target, bool move) {
    const std::string from = CDir(source);
    const std::string to = CDir(target);
    bool done = true;
    const auto step = [&done](auto&& action) { done = !Attempt(action) && done; };
    if (!DirectoryExists(to)) step([&] { Files().MakeDirectory(to); });
    std::vector<DirectoryEntry> entries;
    step([&] { entries = Files().List(from); });
    for (const DirectoryEntry& entry : entries) {
        if (entry.Kind == FileKind::Directory) {
            // A copy into a directory below its source must not copy itself.
            const std::string inner = CDir(from + entry.Name);
            if (EqualNoCase(to.substr(0, inner.size()), inner)) continue;
            done = CopyDirectory(from + entry.Name, to + entry.Name, move) && done;
            continue;
        }
        step([&] {
            Files().Copy(from + entry.Name, to + entry.Name);
            if (move) Files().Remove(from + entry.Name);
        });
    }
    if (move) {
        step([&] {
            if (Files().List(from).empty()) Files().RemoveDirectory(from);
        });
    }
    return done;
}

}  // namespace zorvex
