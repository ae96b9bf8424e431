// zorvex info: what a game is.
#include <algorithm>
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/GameFileNames.h"

namespace zorvex::tool {

namespace {

struct InfoOptions {
    std::string Game;
    bool Json = false;
};

void Declare(Declaration& command, InfoOptions& options) {
    DeclareGame(command, options.Game);
    DeclareJson(command, options.Json);
}

struct Span {
    std::int64_t start;
    std::int64_t end;
};

/// The bytes of a volume that resources take; places that several of them share count once.
std::int64_t UsedBytes(std::int32_t volume, std::int64_t length, bool isV3) {
    std::vector<Span> spans;
    for (const AGIResType type : listedTypes) {
        for (const auto& member : CollectionOf(type)->Members()) {
            if (member->Volume() != volume) continue;
            try {
                const std::int64_t start = member->Loc();
                const std::int64_t end = start + member->SizeInVol() + HeaderLength(isV3);
                spans.push_back({start, std::min(end, length)});
            } catch (const Error&) {  // what has no header takes no place
            }
        }
    }
    std::sort(spans.begin(), spans.end(),
              [](const Span& left, const Span& right) { return left.start < right.start; });
    std::int64_t used = 0;
    std::int64_t reached = 0;
    for (const Span& span : spans) {
        used += std::max<std::int64_t>(0, span.end - std::max(span.start, reached));
        reached = std::max(reached, span.end);
    }
    return used;
}

Json Volumes(const OpenedGame& opened) {
    Json volumes = Json::array();
    for (std::int32_t volume = 0; volume <= HighestVolume(opened.IsV3()); ++volume) {
        const std::string path =
            opened.Game().GameDir() + VolumeName(volume, opened.IsV3(), opened.Game().GameID());
        if (Files().Kind(path) != FileKind::File) continue;
        const auto length = static_cast<std::int64_t>(Files().Size(path));
        const std::int64_t used = UsedBytes(volume, length, opened.IsV3());
        volumes.push_back({{"volume", volume}, {"size", length}, {"used", used}, {"free", length - used}});
    }
    return volumes;
}

Json InfoOf(OpenedGame& opened) {
    AGIGame& game = opened.Game();
    Json info{{"id", game.GameID()},
              {"interpreterVersion", game.InterpreterVersion()},
              {"generation", opened.IsV3() ? "V3" : "V2"}};
    Json counts;
    for (const AGIResType type : listedTypes)
        counts[TypeName(type)] = CollectionOf(type)->Count();
    info["resources"] = counts;
    info["volumes"] = Volumes(opened);
    info["properties"] = {{"description", game.GameDescription()},
                          {"author", game.GameAuthor()},
                          {"about", game.GameAbout()},
                          {"gameVersion", game.GameVersion()},
                          {"lastEdit", DateText(game.LastEdit())},
                          {"resourceDirectory", game.ResDirName()},
                          {"platformType", game.PlatformType()},
                          {"platform", game.Platform()},
                          {"platformOptions", game.PlatformOpts()},
                          {"dosExecutable", game.DOSExec()}};
    info["warnings"] = opened.Warnings();
    return info;
}

void PrintText(const Json& info) {
    const auto line = [](const char* name, const std::string& value) {
        if (!value.empty()) std::printf("%-14s %s\n", name, value.c_str());
    };
    line("ID", info["id"]);
    line("Interpreter",
         info["interpreterVersion"].get<std::string>() + " (" + info["generation"].get<std::string>() + ")");
    const Json& properties = info["properties"];
    line("Description", properties["description"]);
    line("Author", properties["author"]);
    line("Version", properties["gameVersion"]);
    line("About", properties["about"]);
    line("Last edit", properties["lastEdit"]);
    line("Resources in", properties["resourceDirectory"]);
    for (const auto& [type, count] : info["resources"].items()) {
        std::printf("%-14s %d\n", (type + "s").c_str(), count.get<int>());
    }
    for (const Json& volume : info["volumes"]) {
        std::printf("%-14s %lld bytes, %lld used, %lld free\n",
                    ("Volume " + std::to_string(volume["volume"].get<int>())).c_str(),
                    volume["size"].get<long long>(), volume["used"].get<long long>(),
                    volume["free"].get<long long>());
    }
    line("Warnings", std::to_string(info["warnings"].size()));
}

int Run(const InfoOptions& options) {
    OpenedGame opened(options.Game, Access::Look);
    const Json info = InfoOf(opened);
    if (options.Json) {
        PrintJson(info);
    } else {
        PrintText(info);
    }
    return exitDone;
}

}  // namespace

void AddInfoCommand(CommandLine& line) {
    AddCommand<InfoOptions>(
        line,
        {"info", "Tells what a game is: its ID, version, resources, volumes and properties.",
         "  zorvex info mygame             the game in the directory mygame\n"
         "  zorvex info mygame/MINE.zvg     the game of that property file\n"
         "  zorvex info mygame --json      the same for a program"},
        Declare, Run);
}

}  // namespace zorvex::tool
