#include "zorvex/language/ReservedTables.h"

#include <memory>
#include <string>
#include <string_view>

#include "zorvex/language/ArgumentMarkers.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

constexpr auto variableNames = std::to_array<std::string_view>(
    {"currentRoom",    "previousRoom", "edgeEgoHit",  "currentScore",   "objHitEdge",        "edgeObjHit",
     "egoDir",         "maxScore",     "memoryLeft",  "unknownWordNum", "animationInterval", "elapsedSeconds",
     "elapsedMinutes", "elapsedHours", "elapsedDays", "dblClickDelay",  "currentEgoView",    "errorNumber",
     "errorParameter", "lastChar",     "machineType", "printTimeout",   "numberOfVoices",    "attenuation",
     "inputLength",    "selectedItem", "monitorType"});
constexpr auto flagNames = std::to_array<std::string_view>(
    {"onWater", "egoHidden", "haveInput", "egoHitSpecial", "haveMatch", "newRoom", "gameRestarted",
     "noScript", "enableDblClick", "soundOn", "enableTrace", "hasNoiseChannel", "gameRestored",
     "enableItemSelect", "enableMenu", "leaveWindow", "noPromptRestart", "forceAutoloop"});
constexpr auto edgeNames =
    std::to_array<std::string_view>({"NOT_HIT", "TOP_EDGE", "RIGHT_EDGE", "BOTTOM_EDGE", "LEFT_EDGE"});
constexpr auto directionNames = std::to_array<std::string_view>(
    {"STOPPED", "UP", "UP_RIGHT", "RIGHT", "DOWN_RIGHT", "DOWN", "DOWN_LEFT", "LEFT", "UP_LEFT"});
constexpr auto videoModeNames = std::to_array<std::string_view>({"CGA", "RGB", "MONO", "EGA", "VGA"});
constexpr auto computerNames = std::to_array<std::string_view>(
    {"PC", "PCJR", "TANDY", "APPLEII", "ATARI", "AMIGA", "MACINTOSH", "CORTLAND", "PS2"});
constexpr auto colorNames = std::to_array<std::string_view>(
    {"BLACK", "BLUE", "GREEN", "CYAN", "RED", "MAGENTA", "BROWN", "LT_GRAY", "DK_GRAY", "LT_BLUE", "LT_GREEN",
     "LT_CYAN", "LT_RED", "LT_MAGENTA", "YELLOW", "WHITE"});

/// Flag 20, the one reserved flag whose number is not its place in the table.
constexpr std::size_t autoloopEntry = 17;
constexpr std::size_t autoloopFlag = 20;

struct GameInfoEntry {
    std::string_view name;
    ArgTypeEnum type;
    bool fromGame;  // else the argument of that type and the number 0
};
constexpr auto gameInfo = std::to_array<GameInfoEntry>({{"ego", atSObj, false},
                                                        {"gameVersionMsg", atDefStr, true},
                                                        {"gameAboutMsg", atDefStr, true},
                                                        {"gameID", atDefStr, true},
                                                        {"numberOfItems", atNum, true},
                                                        {"inputPrompt", atStr, false}});

std::string NumberedArgument(ArgTypeEnum type, std::size_t number) {
    return std::string(ArgTypePrefixes[type]) + std::to_string(number);
}

TDefine Entry(std::string_view name, ArgTypeEnum type, std::string value) {
    return {std::string(name), std::string(name), std::move(value), type, {}};
}

template <std::size_t Count>
std::vector<TDefine> Numbered(const std::array<std::string_view, Count>& names, ArgTypeEnum type) {
    std::vector<TDefine> table;
    table.reserve(Count);
    for (const std::string_view name : names) {
        table.push_back(Entry(name, type, NumberedArgument(type, table.size())));
    }
    return table;
}

}  // namespace

void ReservedTables::Init() {
    Group(rgVariables) = Numbered(variableNames, atVar);
    Group(rgFlags) = Numbered(flagNames, atFlag);
    Group(rgFlags)[autoloopEntry].Value = NumberedArgument(atFlag, autoloopFlag);
    Group(rgEdgeCodes) = Numbered(edgeNames, atNum);
    Group(rgDirections) = Numbered(directionNames, atNum);
    Group(rgVideoModes) = Numbered(videoModeNames, atNum);
    Group(rgComputerTypes) = Numbered(computerNames, atNum);
    Group(rgColors) = Numbered(colorNames, atNum);

    std::vector<TDefine>& info = Group(rgGameInfo);
    info.resize(gameInfo.size());
    for (std::size_t i = 0; i < gameInfo.size(); ++i) {
        const auto& [name, type, fromGame] = gameInfo[i];
        info[i] = Entry(name, type, fromGame ? std::move(info[i].Value) : NumberedArgument(type, 0));
    }
}

ReservedTables& ReservedNames() {
    std::shared_ptr<ReservedTables>& tables = Library().ReservedNames;
    if (!tables) tables = std::make_shared<ReservedTables>();
    return *tables;
}

void InitReservedDefines() {
    ReservedNames().Init();
}

}  // namespace zorvex
