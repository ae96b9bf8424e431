// zorvex list: one row a resource.
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/analysis/EntryContents.h"
#include "zorvex/base/CheckSum.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct ListOptions {
    std::string Game;
    std::string Type;
    bool Json = false;
};

void Declare(Declaration& command, ListOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("--type", options.Type, "Only resources of this type: logic, picture, sound or view");
    DeclareJson(command, options.Json);
}

void AddContents(Json& row, ByteView bytes, std::int32_t sizeInVolume) {
    row["size"] = bytes.size();
    row["sizeInVolume"] = sizeInVolume;
    row["crc32"] = HexPad(CRC32(bytes), 8);
}

/// What every row begins with.
Json Place(AGIResType type, std::uint8_t number, std::int32_t volume, std::int32_t location) {
    return {{"type", TypeName(type)}, {"number", number}, {"volume", volume}, {"location", location}};
}

/// Fills a row by a step, or with the error that the step raises.
template <class Step>
Json Filled(Json row, Step&& step) {
    try {
        step(row);
    } catch (const Error& error) {
        row["error"] = JsonOf(error);
    }
    return row;
}

Json RowOf(const std::string& id, AGIResource& resource) {
    Json row = Place(resource.ResType(), resource.Number(), resource.Volume(), resource.Loc());
    row["id"] = id;
    return Filled(std::move(row), [&](Json& filled) {
        const bool wasLoaded = resource.Loaded();
        if (!wasLoaded) resource.Load();
        AddContents(filled, resource.View(), resource.SizeInVol());
        if (!wasLoaded) resource.Unload();
    });
}

/// The row of a resource that the load has taken out of the directory.
Json RowOf(const SkippedResource& skipped) {
    Json row = Place(skipped.Type, skipped.Number, skipped.Volume, skipped.Location);
    row["id"] = "";
    return Filled(std::move(row), [&](Json& filled) {
        const EntryContents contents =
            ReadEntry(skipped.Type, skipped.Number, skipped.Volume, skipped.Location);
        AddContents(filled, contents.Bytes, contents.SizeInVolume);
    });
}

Json Rows(const OpenedGame& game, AGIResType type) {
    Json rows = Json::array();
    for (const auto& member : ByNumber(type))
        rows.push_back(RowOf(member->ID(), member->Resource()));
    for (const SkippedResource& skipped : game.Skipped()) {
        if (skipped.Type == type) rows.push_back(RowOf(skipped));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Json& left, const Json& right) { return left["number"] < right["number"]; });
    return rows;
}

void PrintRow(const Json& row) {
    const std::string type = row["type"];
    const std::string id = row["id"];
    std::printf("%-8s %3d  %-20s %3d %8d  ", type.c_str(), row["number"].get<int>(), id.c_str(),
                row["volume"].get<int>(), row["location"].get<int>());
    if (row.contains("error")) {
        std::printf("error %d: %s\n", row["error"]["number"].get<int>(),
                    row["error"]["description"].get<std::string>().c_str());
    } else {
        std::printf("%6d %6d  %s\n", row["size"].get<int>(), row["sizeInVolume"].get<int>(),
                    row["crc32"].get<std::string>().c_str());
    }
}

int Run(const ListOptions& options) {
    std::vector<AGIResType> types(listedTypes.begin(), listedTypes.end());
    if (!options.Type.empty()) types = {ParseType(options.Type)};
    OpenedGame game(options.Game, Access::Look);
    Json rows = Json::array();
    for (const AGIResType type : types) {
        for (Json& row : Rows(game, type))
            rows.push_back(std::move(row));
    }
    if (options.Json) {
        PrintJson(rows);
    } else {
        std::printf("%-8s %3s  %-20s %3s %8s  %6s %6s  %s\n", "type", "no", "id", "vol", "location", "size",
                    "in vol", "crc32");
        for (const Json& row : rows)
            PrintRow(row);
    }
    return exitDone;
}

}  // namespace

void AddListCommand(CommandLine& line) {
    AddCommand<ListOptions>(line,
                            {"list", "Lists the resources of a game.",
                             "  zorvex list mygame                  all resources\n"
                             "  zorvex list mygame --type picture   the pictures\n"
                             "  zorvex list mygame --json           the same for a program"},
                            Declare, Run);
}

}  // namespace zorvex::tool
