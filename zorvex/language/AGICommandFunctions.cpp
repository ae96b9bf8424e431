#include "zorvex/language/AGICommandFunctions.h"

#include <memory>
#include <string>
#include <unordered_map>

#include "zorvex/base/Text.h"
#include "zorvex/language/ArgumentMarkers.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

/// A command's name, and a letter for each argument: that of its markers, n for
/// a number.
struct CommandRow {
    std::string_view name;
    std::string_view types;
};

constexpr std::array<CommandRow, 20> testRows{{{"return.false", ""},
                                               {"equaln", "vn"},
                                               {"equalv", "vv"},
                                               {"lessn", "vn"},
                                               {"lessv", "vv"},
                                               {"greatern", "vn"},
                                               {"greaterv", "vv"},
                                               {"isset", "f"},
                                               {"issetv", "v"},
                                               {"has", "i"},
                                               {"obj.in.room", "iv"},
                                               {"posn", "onnnn"},
                                               {"controller", "c"},
                                               {"have.key", ""},
                                               {"said", ""},
                                               {"compare.strings", "ss"},
                                               {"obj.in.box", "onnnn"},
                                               {"center.posn", "onnnn"},
                                               {"right.posn", "onnnn"},
                                               {"unknowntest19", ""}}};

constexpr std::array<CommandRow, 183> actionRows{{{"return", ""},
                                                  {"increment", "v"},
                                                  {"decrement", "v"},
                                                  {"assignn", "vn"},
                                                  {"assignv", "vv"},
                                                  {"addn", "vn"},
                                                  {"addv", "vv"},
                                                  {"subn", "vn"},
                                                  {"subv", "vv"},
                                                  {"lindirectv", "vv"},
                                                  {"rindirect", "vv"},
                                                  {"lindirectn", "vn"},
                                                  {"set", "f"},
                                                  {"reset", "f"},
                                                  {"toggle", "f"},
                                                  {"set.v", "v"},
                                                  {"reset.v", "v"},
                                                  {"toggle.v", "v"},
                                                  {"new.room", "n"},
                                                  {"new.room.v", "v"},
                                                  {"load.logics", "n"},
                                                  {"load.logics.v", "v"},
                                                  {"call", "n"},
                                                  {"call.v", "v"},
                                                  {"load.pic", "v"},
                                                  {"draw.pic", "v"},
                                                  {"show.pic", ""},
                                                  {"discard.pic", "v"},
                                                  {"overlay.pic", "v"},
                                                  {"show.pri.screen", ""},
                                                  {"load.view", "n"},
                                                  {"load.view.v", "v"},
                                                  {"discard.view", "n"},
                                                  {"animate.obj", "o"},
                                                  {"unanimate.all", ""},
                                                  {"draw", "o"},
                                                  {"erase", "o"},
                                                  {"position", "onn"},
                                                  {"position.v", "ovv"},
                                                  {"get.posn", "ovv"},
                                                  {"reposition", "ovv"},
                                                  {"set.view", "on"},
                                                  {"set.view.v", "ov"},
                                                  {"set.loop", "on"},
                                                  {"set.loop.v", "ov"},
                                                  {"fix.loop", "o"},
                                                  {"release.loop", "o"},
                                                  {"set.cel", "on"},
                                                  {"set.cel.v", "ov"},
                                                  {"last.cel", "ov"},
                                                  {"current.cel", "ov"},
                                                  {"current.loop", "ov"},
                                                  {"current.view", "ov"},
                                                  {"number.of.loops", "ov"},
                                                  {"set.priority", "on"},
                                                  {"set.priority.v", "ov"},
                                                  {"release.priority", "o"},
                                                  {"get.priority", "ov"},
                                                  {"stop.update", "o"},
                                                  {"start.update", "o"},
                                                  {"force.update", "o"},
                                                  {"ignore.horizon", "o"},
                                                  {"observe.horizon", "o"},
                                                  {"set.horizon", "n"},
                                                  {"object.on.water", "o"},
                                                  {"object.on.land", "o"},
                                                  {"object.on.anything", "o"},
                                                  {"ignore.objs", "o"},
                                                  {"observe.objs", "o"},
                                                  {"distance", "oov"},
                                                  {"stop.cycling", "o"},
                                                  {"start.cycling", "o"},
                                                  {"normal.cycle", "o"},
                                                  {"end.of.loop", "of"},
                                                  {"reverse.cycle", "o"},
                                                  {"reverse.loop", "of"},
                                                  {"cycle.time", "ov"},
                                                  {"stop.motion", "o"},
                                                  {"start.motion", "o"},
                                                  {"step.size", "ov"},
                                                  {"step.time", "ov"},
                                                  {"move.obj", "onnnf"},
                                                  {"move.obj.v", "ovvvf"},
                                                  {"follow.ego", "onf"},
                                                  {"wander", "o"},
                                                  {"normal.motion", "o"},
                                                  {"set.dir", "ov"},
                                                  {"get.dir", "ov"},
                                                  {"ignore.blocks", "o"},
                                                  {"observe.blocks", "o"},
                                                  {"block", "nnnn"},
                                                  {"unblock", ""},
                                                  {"get", "i"},
                                                  {"get.v", "v"},
                                                  {"drop", "i"},
                                                  {"put", "iv"},
                                                  {"put.v", "vv"},
                                                  {"get.room.v", "vv"},
                                                  {"load.sound", "n"},
                                                  {"sound", "nf"},
                                                  {"stop.sound", ""},
                                                  {"print", "m"},
                                                  {"print.v", "v"},
                                                  {"display", "nnm"},
                                                  {"display.v", "vvv"},
                                                  {"clear.lines", "nnn"},
                                                  {"text.screen", ""},
                                                  {"graphics", ""},
                                                  {"set.cursor.char", "m"},
                                                  {"set.text.attribute", "nn"},
                                                  {"shake.screen", "n"},
                                                  {"configure.screen", "nnn"},
                                                  {"status.line.on", ""},
                                                  {"status.line.off", ""},
                                                  {"set.string", "sm"},
                                                  {"get.string", "smnnn"},
                                                  {"word.to.string", "sw"},
                                                  {"parse", "s"},
                                                  {"get.num", "mv"},
                                                  {"prevent.input", ""},
                                                  {"accept.input", ""},
                                                  {"set.key", "nnc"},
                                                  {"add.to.pic", "nnnnnnn"},
                                                  {"add.to.pic.v", "vvvvvvv"},
                                                  {"status", ""},
                                                  {"save.game", ""},
                                                  {"restore.game", ""},
                                                  {"init.disk", ""},
                                                  {"restart.game", ""},
                                                  {"show.obj", "n"},
                                                  {"random", "nnv"},
                                                  {"program.control", ""},
                                                  {"player.control", ""},
                                                  {"obj.status.v", "v"},
                                                  {"quit", "n"},
                                                  {"show.mem", ""},
                                                  {"pause", ""},
                                                  {"echo.line", ""},
                                                  {"cancel.line", ""},
                                                  {"init.joy", ""},
                                                  {"toggle.monitor", ""},
                                                  {"version", ""},
                                                  {"script.size", "n"},
                                                  {"set.game.id", "m"},
                                                  {"log", "m"},
                                                  {"set.scan.start", ""},
                                                  {"reset.scan.start", ""},
                                                  {"reposition.to", "onn"},
                                                  {"reposition.to.v", "ovv"},
                                                  {"trace.on", ""},
                                                  {"trace.info", "nnn"},
                                                  {"print.at", "mnnn"},
                                                  {"print.at.v", "vnnn"},
                                                  {"discard.view.v", "v"},
                                                  {"clear.text.rect", "nnnnn"},
                                                  {"set.upper.left", "nn"},
                                                  {"set.menu", "m"},
                                                  {"set.menu.item", "mc"},
                                                  {"submit.menu", ""},
                                                  {"enable.item", "c"},
                                                  {"disable.item", "c"},
                                                  {"menu.input", ""},
                                                  {"show.obj.v", "v"},
                                                  {"open.dialogue", ""},
                                                  {"close.dialogue", ""},
                                                  {"mul.n", "vn"},
                                                  {"mul.v", "vv"},
                                                  {"div.n", "vn"},
                                                  {"div.v", "vv"},
                                                  {"close.window", ""},
                                                  {"set.simple", "s"},
                                                  {"push.script", ""},
                                                  {"pop.script", ""},
                                                  {"hold.key", ""},
                                                  {"set.pri.base", "n"},
                                                  {"discard.sound", "n"},
                                                  {"hide.mouse", "n"},
                                                  {"allow.menu", "n"},
                                                  {"show.mouse", "n"},
                                                  {"fence.mouse", "nnnn"},
                                                  {"mouse.posn", "nn"},
                                                  {"release.key", ""},
                                                  {"adj.ego.move.to.x.y", "nn"}}};

enum VersionedCommand : std::uint8_t { quit = 134, printAt = 151, printAtV = 152 };

/// The highest command that interpreters up to a version know.
struct VersionLimit {
    double version;
    std::uint8_t actionCount;
};
constexpr std::array<VersionLimit, 6> versionLimits{
    {{2.089, 155}, {2.272, 161}, {2.44, 169}, {2.917, 173}, {2.936, 175}, {3.002086, 177}}};
constexpr std::uint8_t newestActionCount = 181;

template <std::size_t Count>
void FillTable(std::array<CommandStruct, Count>& table, const std::array<CommandRow, Count>& rows) {
    for (std::size_t i = 0; i < Count; ++i) {
        table[i] = {std::string(rows[i].name), static_cast<std::uint8_t>(rows[i].types.size()), {}};
        for (std::size_t arg = 0; arg < rows[i].types.size(); ++arg) {
            const ArgTypeEnum type = MarkerType(rows[i].types.substr(arg, 1));
            table[i].ArgType[arg] = type == atDefStr ? atNum : type;
        }
    }
}

void FillTables(CommandTables& tables) {
    FillTable(tables.TestCommandTable, testRows);
    FillTable(tables.ActionCommandTable, actionRows);
    tables.TestCount = TestCommandRows - 1;
    tables.ActionCount = ActionCommandRows - 1;
}

CommandTables& Tables() {
    std::shared_ptr<CommandTables>& tables = Library().CommandTable;
    if (!tables) {
        tables = std::make_shared<CommandTables>();
        FillTables(*tables);
    }
    return *tables;
}

/// Versions are held in single precision, so that equal texts compare equal
/// however they were reached.
bool UpTo(std::string_view version, double limit) {
    return static_cast<float>(Val(version)) <= static_cast<float>(limit);
}

void FitToVersion(CommandTables& tables, std::string_view version) {
    tables.ActionCommandTable[quit].ArgCount = UpTo(version, 2.089) ? 0 : 1;
    for (const auto command : {printAt, printAtV}) {
        tables.ActionCommandTable[command].ArgCount = UpTo(version, 2.4) ? 3 : 4;
    }
    tables.ActionCount = newestActionCount;
    for (const VersionLimit& limit : versionLimits) {
        if (UpTo(version, limit.version)) {
            tables.ActionCount = limit.actionCount;
            break;
        }
    }
}

using NumberByName = std::unordered_map<std::string_view, int>;

template <std::size_t Count>
NumberByName IndexOf(const std::array<CommandRow, Count>& rows) {
    NumberByName index;
    for (std::size_t i = 0; i < Count; ++i)
        index.emplace(rows[i].name, static_cast<int>(i));
    return index;
}

int NumberOf(const NumberByName& index, std::string_view name) {
    const auto found = index.find(LowerCase(name));
    return found == index.end() ? -1 : found->second;
}

}  // namespace

const CommandTables& CommandCatalogue() {
    return Tables();
}

void InitCommandTables() {
    FillTables(Tables());
}

void SetCommandsForVersion(std::string_view version) {
    FitToVersion(Tables(), version);
}

CommandTables CommandsOfVersion(std::string_view version) {
    CommandTables tables;
    FillTables(tables);
    FitToVersion(tables, version);
    return tables;
}

int ActionCommandNumber(std::string_view name) {
    static const NumberByName index = IndexOf(actionRows);
    return NumberOf(index, name);
}

int TestCommandNumber(std::string_view name) {
    static const NumberByName index = IndexOf(testRows);
    return NumberOf(index, name);
}

}  // namespace zorvex
