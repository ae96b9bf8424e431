// The record of a workspace: all state that the library keeps across runs. All modules read and write the
// present one directly; AGIGame is a thin face on it.
// This header only declares the classes that it refers to, and no other header includes it.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/platform/Clock.h"
#include "zorvex/state/LoadIssue.h"
#include "zorvex/state/OpenOptions.h"

namespace zorvex {

class AGIGame;
class AGIGameEvents;
class AGILogics;
class AGIPictures;
class AGISounds;
class AGIViews;
class AGIInventoryObjects;
class AGIWordList;
class AGILogicSourceSettings;
class AGICommands;
class AGITestCommands;
class GameSession;
class GlobalDefineTable;
class HeldVolumes;
class NewVolume;
class ReservedTables;
class ResourceIDTable;
class ResourceCollectionBase;
class StringList;
struct CommandTables;
struct PenStatus;
struct PropertyIndex;

struct LibraryState {
    LibraryState();

    std::shared_ptr<GameSession> Session;  // while a game is open or being opened

    OpenOptions Opened;                 // how that game was or is being opened
    std::vector<LoadIssue> LoadIssues;  // of its load
    std::array<std::bitset<256>, 4>
        LeftEntries{};  // by AGIResType: directory entries of unreadable resources

    // The open game. Texts are host text, paths are inner paths.
    bool GameLoaded = false;
    std::string GameDir;      // ends in a backslash
    std::string ResDirName;   // no separators
    std::string ResDir;       // GameDir + ResDirName + "\"
    std::string DefResDir;    // kept across games
    std::string TemplateDir;  // kept across games
    std::string GameFile;
    std::string GameID;
    std::string InterpreterVersion;
    bool IsV3 = false;

    // Descriptive values, all mirrored in the property list.
    std::string GameDescription;
    std::string GameAuthor;
    std::string GameAbout;
    std::string GameVersion;
    DateTime LastEdit;
    std::int32_t PlatformType = 0;
    std::string Platform;
    std::string PlatformOpts;
    std::string DOSExec;
    bool UseLE = false;

    // The objects of the library; the long-lived references to them are here.
    AGIGame* GameObject = nullptr;
    std::shared_ptr<AGIGameEvents> Events;
    std::shared_ptr<AGILogics> Logics;
    std::shared_ptr<AGIPictures> Pictures;
    std::shared_ptr<AGISounds> Sounds;
    std::shared_ptr<AGIViews> Views;
    std::array<ResourceCollectionBase*, 4> Collections{};  // the same four by AGIResType
    std::shared_ptr<AGIInventoryObjects> InventoryObjects;
    std::shared_ptr<AGIWordList> VocabularyWords;
    std::shared_ptr<AGILogicSourceSettings> LogicSourceSettings;
    std::shared_ptr<AGICommands> Commands;
    std::shared_ptr<AGITestCommands> TestCommands;
    std::shared_ptr<StringList> PropertyList;     // line 0 is the file's path; none while no game is open
    std::shared_ptr<PropertyIndex> SectionIndex;  // of the list used last; saves time and holds nothing else

    // The tables and settings of the logic language that all its settings objects share.
    std::shared_ptr<CommandTables> CommandTable;    // see CommandCatalogue
    std::shared_ptr<ReservedTables> ReservedNames;  // see ReservedNames
    bool UseReservedNames = false;
    bool ReservedAsText = false;
    std::string SourceExt = ".lgc";
    std::array<bool, 107> IgnoreWarnings{};  // from 5001

    // Compile and error bookkeeping.
    bool CompileActive = false;
    bool CompileCanceled = false;
    bool VersionChanging = false;
    std::int32_t LastErrorNumber = 0;
    std::string LastErrorText;
    std::string LastErrorSource;

    // A rebuild of the game's volumes, used while CompileActive.
    std::string TargetDir;
    std::shared_ptr<HeldVolumes> Volumes;  // while all resources of a game are read one after the other
    std::int32_t CurrentVol = 0;
    std::int32_t CurrentLoc = 0;
    std::array<std::array<std::uint8_t, 768>, 4> NewDirData{};  // by AGIResType, three bytes an entry
    std::shared_ptr<NewVolume> NewVolFile;                      // the volume being written

    // What the compiler keeps across compiles.
    bool ResourceIDsValid = false;
    std::shared_ptr<const ResourceIDTable> ResourceIDs;
    std::shared_ptr<const GlobalDefineTable> GlobalDefines;  // see CurrentGlobalDefines
    std::int32_t GlobalsCRC = 0;
    std::int32_t CompileColumn = 0;  // where in its line the last warning or error lies, from 1; 0: unknown
    bool CompilingLogic = false;

    // Constants and tables.
    std::int32_t MaxVolSize = 1047552;
    std::int32_t MaxVol0Size = 1047552;  // kept across games
    std::array<std::int32_t, 16> EGAColor{};
    std::array<std::int32_t, 16> EGARevColor{};
    std::array<std::uint8_t, 16> ColorIndex{};

    // The pen that the runs of the drawing engine have kept last.
    std::shared_ptr<PenStatus> SavedPen;
};

/// The record of the workspace that is current in this thread; it exists from first use with its constants
/// and tables in place.
LibraryState& Library();

/// Makes the record a fresh one, with its constants and tables; a step of AGIGame's start-up.
void InitLibraryState();

/// Loads the two palette tables with the default colours.
void ResetDefaultPalette();

/// Stores one palette entry in both tables: red in the low byte of EGAColor, blue in that of EGARevColor.
void SetPaletteEntry(std::size_t index, std::int32_t color);

/// "Logic", "Picture", "Sound", "View".
inline constexpr std::array<std::string_view, 4> ResTypeNames{"Logic", "Picture", "Sound", "View"};
/// "LOG", "PIC", "SND", "VIEW".
inline constexpr std::array<std::string_view, 4> ResTypeAbbrev{"LOG", "PIC", "SND", "VIEW"};

/// The interpreter versions that the library knows: eleven of V2, then five of V3.
inline constexpr std::array<std::string_view, 16> KnownVersions{
    "2.089", "2.272", "2.411", "2.425",    "2.426",    "2.435",    "2.439",    "2.440",
    "2.915", "2.917", "2.936", "3.002086", "3.002098", "3.002102", "3.002107", "3.002149"};
inline constexpr std::string_view DefaultV2Version = "2.917";
inline constexpr std::string_view DefaultV3Version = "3.002149";

/// The version that is written into every property file.
inline constexpr std::string_view LibraryVersion = "2.1.1";

}  // namespace zorvex
