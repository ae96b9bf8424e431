// zorvex list: one row a resource.
#include <cstdio>

#include "tools/zorvex/Commands.h"
#include "tools/zorvex/Console.h"
#include "tools/zorvex/Json.h"
#include "tools/zorvex/OpenedGame.h"
#include "tools/zorvex/Resources.h"
#include "zorvex/base/CheckSum.h"
#include "zorvex/base/Internal.h"
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

/// Loads a buffer and adds what it holds to its row, or the error that reading it gives.
void AddContents(Json& row, AGIResource& resource) {
    try {
        const bool wasLoaded = resource.Loaded();
        if (!wasLoaded) resource.Load();
        row["size"] = resource.View().size();
        row["sizeInVolume"] = resource.SizeInVol();
        row["crc32"] = HexPad(CRC32(resource.View()), 8);
        if (!wasLoaded) resource.Unload();
    } catch (const Error& error) {
        row["error"] = JsonOf(error);
    }
}

Json RowOf(const std::string& id, AGIResource& resource) {
    Json row{{"type", TypeName(resource.ResType())},
             {"number", resource.Number()},
             {"id", id},
             {"volume", resource.Volume()},
             {"location", resource.Loc()}};
    AddContents(row, resource);
    return row;
}

/// The row of a resource that the load has taken out of the directory.
Json RowOf(const SkippedResource& skipped) {
    AGIResource resource;
    resource.ResType(Internal(), skipped.Type);
    resource.Unload();
    resource.Init(Internal(), skipped.Number, skipped.Volume, skipped.Location);
    return RowOf("", resource);
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
