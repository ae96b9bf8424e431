// zorvex convert: a game for another interpreter version.
#include <filesystem>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/GameCopy.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/storage/GameFileNames.h"

namespace zorvex::tool {

namespace {

struct ConvertOptions {
    std::string Game;
    std::string Version;
    std::string Output;
};

void Declare(Declaration& command, ConvertOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("--to", options.Version, "The interpreter version, such as 2.936 or 3.002149").Required();
    command.Option("-o,--output", options.Output,
                   "A new directory for the converted game; without it the game "
                   "itself is converted");
}

/// Deletes the directory and volume files of a layout from a directory made by this command.
void RemoveLayout(const AGIGame& game, bool isV3, const std::string& gameID) {
    const std::string directory = game.GameDir();
    std::vector<std::string> names;
    for (const AGIResType type : listedTypes)
        names.push_back(DirectoryFileName(type, isV3, gameID));
    for (std::int32_t n = 0; n <= HighestVolume(isV3); ++n)
        names.push_back(VolumeName(n, isV3, gameID));
    for (const std::string& name : names) {
        if (Files().Kind(directory + name) == FileKind::File) Files().Remove(directory + name);
    }
}

int Run(const ConvertOptions& options) {
    const std::string path = options.Output.empty() ? options.Game : CopyGame(options.Game, options.Output);
    OpenedGame opened(path, Access::Change);
    const bool wasV3 = opened.IsV3();
    const std::string formerID = opened.Game().GameID();
    opened.Game().InterpreterVersion(options.Version);
    if (opened.IsV3() != wasV3) {
        if (!options.Output.empty()) {
            RemoveLayout(opened.Game(), wasV3, formerID);
        } else {
            SayNote("the files of the former layout stay beside the new ones");
        }
    }
    return exitDone;
}

}  // namespace

void AddConvertCommand(CommandLine& line) {
    AddCommand<ConvertOptions>(
        line,
        {"convert", "Makes a game fit another interpreter version, V2 or V3.",
         "  zorvex convert mygame --to 3.002149 -o mygame-v3   a V3 copy of the game\n"
         "  zorvex convert mygame --to 2.936                   another version for the game itself"},
        Declare, Run);
}

}  // namespace zorvex::tool
