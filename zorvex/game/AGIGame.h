// The root object of the library: the door through which a host enters.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/game/BuildOptions.h"
#include "zorvex/platform/Clock.h"
#include "zorvex/state/LoadIssue.h"
#include "zorvex/state/OpenOptions.h"

namespace zorvex {

class AGICommands;
class AGIGameEvents;
class AGIInventoryObjects;
class AGILogics;
class AGILogicSourceSettings;
class AGIPictures;
class AGISounds;
class AGITestCommands;
class AGIViews;
class AGIWordList;
class Internal;
struct LibraryState;

/// The open game and everything that belongs to it.
///
/// A host makes one AGIGame and opens a game with OpenGameDIR (from its directory files) or OpenGameZVG (from
/// its property file). While a game is open the collections hold one object per resource, and most properties
/// go to the property list at once; the list reaches the disk with SaveProperties, CloseGame and the
/// operations that say so. An AGIGame belongs to the workspace that was current when it was made (see
/// Workspace); making a second one there starts that workspace afresh. The members of an AGIGame whose
/// workspace is not the current one, or was started afresh, raise 91.
///
/// Resources and lists belong to one open game. When it is closed, when a resource is removed, when opening
/// fails and when the AGIGame or the workspace goes, objects that a host still holds become stand-alone
/// objects that keep their contents. The collections stay valid for the life of the AGIGame.
///
/// All texts are host text. Paths given by a host may use either separator; paths that the library gives back
/// use backslashes (see NativePath), and a directory ends in one. Errors carry the source "agiGame".
class AGIGame {
  public:
    static constexpr std::string_view ErrorSource = "agiGame";

    AGIGame();
    ~AGIGame();
    AGIGame(const AGIGame&) = delete;
    AGIGame& operator=(const AGIGame&) = delete;

    // --- Opening and closing ---
    /// Opens the game of a directory or a property file in the way that a host asks for. What the load warns
    /// of is in LoadIssues and raises nothing. Raises 501 while a game is open, 53 for a path that does not
    /// exist, and what OpenGameDIR and OpenGameZVG raise but 636, with whole sentences as descriptions.
    void Open(std::string_view path, const OpenOptions& options = {});
    /// What the last load warned of; empty when all went well. Kept until the next game is opened.
    const std::vector<LoadIssue>& LoadIssues() const;
    /// True while a game is open that was opened to be looked at only.
    bool ReadOnly() const;
    /// Opens the AGI game of a directory. A property file already there is set aside as .OLD and a new one is
    /// written; when the opening fails it is put back. Raises 501 while a game is open, 541 for a directory
    /// without a game, 543 for an unknown version, and what the directory files give (524, 542, 545, the
    /// plain 511). 636 means that the game is open and that errlog.txt in its directory has warnings.
    void OpenGameDIR(std::string_view newGameDir);
    /// Opens the game of a property file. Raises 501, and with a bare file name or path as description 655
    /// (no such file), 541 (no such directory), 665 (made by another version), 690 (no game ID), 691 (unknown
    /// interpreter version); then as OpenGameDIR.
    void OpenGameZVG(std::string_view gameZVG);
    /// For the library: the common second half of every open. Mode 0: a property file was read; 1: the game
    /// came from its directory.
    void FinishGameLoad(const Internal& key, int mode = 0);
    /// Saves the property list, empties the collections and forgets the game. Nothing happens while none is
    /// open.
    void CloseGame();
    /// True while a game is open.
    bool GameLoaded() const;
    /// Makes a game in an existing directory and leaves it open. Without a template it has an empty logic 0,
    /// three words and one item; with a template directory it is a copy of that game, whose property file
    /// decides the version, under the new ID. An empty `newResDir` takes the value of DefResDir. Raises 501;
    /// 630 for a directory that does not exist or a template without a property file; 687 for a directory
    /// that has a game; 543 and 597 for an unknown version; 683, 684, 685 when a template cannot be copied,
    /// opened or renamed; 631 when a file cannot be written. 637 means that the game is open and that
    /// errlog.txt has warnings.
    void NewGame(std::string_view newID, std::string_view newVersion, std::string_view newGameDir,
                 std::string& newResDir, std::string_view templateDir = {});
    /// Writes the whole game anew: all resources packed into new volumes, after compiling vocabulary,
    /// inventory and logics unless `rebuildOnly`. With a `newGameDir` the files go there and the open game
    /// stays as it is; else the former files stay as .OLD. Reports through GameEvents().CompileGameStatus,
    /// from whose handlers CancelCompile ends the run; nothing happens while no game is open. Raises 561,
    /// 694, 503, 593, 638 and 640.
    void CompileGame(bool rebuildOnly = false, std::string_view newGameDir = {});

    /// Writes the whole game anew, like CompileGame, in the way that a host asks for, and tells what became
    /// of each resource. A failing resource raises nothing; what is wrong with the run as a whole raises as
    /// in CompileGame, and 5 (see BuildOptions::DropUnreadable). GameEvents().CompileGameStatus tells the
    /// same while the build runs. While no game is open nothing happens.
    BuildReport Build(const BuildOptions& options = {});

    // --- The objects of the game ---
    AGIGameEvents& GameEvents() const;
    AGILogics& Logics() const;
    AGIPictures& Pictures() const;
    AGISounds& Sounds() const;
    AGIViews& Views() const;
    std::shared_ptr<AGIWordList> VocabularyWords() const;
    std::shared_ptr<AGIInventoryObjects> InventoryObjects() const;
    AGICommands& Commands() const;
    AGITestCommands& TestCommands() const;
    /// Settings of compiler and decompiler. The setter replaces the object; it is kept across games.
    std::shared_ptr<AGILogicSourceSettings> LogicSourceSettings() const;
    void LogicSourceSettings(std::shared_ptr<AGILogicSourceSettings> value);

    /// A copy of the defines in the game's globals.txt, which is read again when it has changed.
    std::vector<TDefine> GlobalDefines() const;

    // --- Identity and places ---
    /// At most 6 characters, 5 in a V3 game; longer values are cut. The setter renames the V3 directory and
    /// volume files and a property file named after the ID. Raises 677 while no game is open, and 530 when a
    /// rename fails and for an ID that cannot be part of a file name, such as an empty one.
    std::string GameID() const;
    void GameID(std::string_view value);
    /// The game directory, or the current directory while no game is open. The setter moves no file; what is
    /// saved later goes to the new directory. It has no effect while no game is open, and raises 630 for a
    /// directory that does not exist.
    std::string GameDir() const;
    void GameDir(std::string_view value);
    /// Full path of the property file. The setter renames the file and saves the list. Raises 693 while no
    /// game is open.
    std::string GameFile() const;
    void GameFile(std::string_view value);
    /// GameDir and ResDirName; the current directory while no game is open.
    std::string ResDir() const;
    /// Name of the resource directory. The setter renames nothing on disk; raises 380 for an empty or unfit
    /// name.
    std::string ResDirName() const;
    void ResDirName(std::string_view value);
    /// The name for games that have no resource directory. Raises 380.
    std::string DefResDir() const;
    void DefResDir(std::string_view value);
    /// Directory of game templates. Raises 630 if it does not exist.
    std::string TemplateDir() const;
    void TemplateDir(std::string_view value);
    /// One of the known interpreter versions; "2.917" while none was set. A value of the other generation
    /// rebuilds the open game in place in the other layout; the files of the former layout stay. Raises 543
    /// and 597 for a version that is not known, and 641 when the rebuild fails, which leaves the version as
    /// it was.
    std::string InterpreterVersion() const;
    void InterpreterVersion(std::string_view value);

    // --- Descriptive values; each setter writes to the property list ---
    /// At most 256 characters.
    std::string GameAuthor() const;
    void GameAuthor(std::string_view value);
    /// At most 4096 characters.
    std::string GameAbout() const;
    void GameAbout(std::string_view value);
    /// At most 4096 characters.
    std::string GameDescription() const;
    void GameDescription(std::string_view value);
    /// At most 256 characters.
    std::string GameVersion() const;
    void GameVersion(std::string_view value);
    /// When the game was last changed; now while no game is open.
    DateTime LastEdit() const;
    /// 0 to 4; any other value is stored as 0.
    std::int32_t PlatformType() const;
    void PlatformType(std::int32_t value);
    std::string Platform() const;
    void Platform(std::string_view value);
    std::string PlatformOpts() const;
    void PlatformOpts(std::string_view value);
    std::string DOSExec() const;
    void DOSExec(std::string_view value);
    /// False while no game is open.
    bool UseLE() const;
    void UseLE(bool value);

    // --- Library-wide values ---
    /// A palette entry, red in the low byte. Raises 9 for an index outside 0 to 15. Persisted while a game is
    /// open; CloseGame restores the default colours.
    std::int32_t EGAColor(std::int16_t index) const;
    void EGAColor(std::int16_t index, std::int32_t value);
    /// The same colour with red and blue exchanged. Raises 9.
    std::int32_t EGARevColor(std::int16_t index) const;
    /// How far volume 0 is filled by a rebuild: 32768 to 1047552 bytes; values outside are moved to the
    /// nearer end.
    std::int32_t MaxVol0Size() const;
    void MaxVol0Size(std::int32_t value);
    /// "Logic", "Picture", "Sound" or "View". Raises 9 for any other type.
    std::string ResTypeName(AGIResType type) const;

    // --- Properties and the running compile ---
    /// Writes the property list to its file, if there is a list.
    void SaveProperties();
    /// Writes a key of the property list; with `forceSave` also saves the list.
    void WriteProperty(std::string_view section, std::string_view key, std::string_view value,
                       std::string_view group = {}, bool forceSave = false);
    /// Asks a running compile to stop; for handlers of CompileGameStatus.
    void CancelCompile();

  private:
    struct Held;

    /// The record of this game's workspace; raises 91 when that is not current or belongs to another AGIGame.
    LibraryState& State() const;
    void OpenDirectory(std::string_view directory, const OpenOptions& options);
    void BeginPropertyFile();
    void OpenPropertyFile(std::string_view file, const OpenOptions& options);
    void ChangeGeneration(const std::string& version);

    std::unique_ptr<Held> held_;
};

}  // namespace zorvex
