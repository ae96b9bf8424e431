// zorvex new: a new game.
#include <cstdio>
#include <filesystem>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/GameCopy.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct NewOptions {
    std::string Directory;
    std::string ID;
    std::string Version = "2.936";
    std::string ResDir = "src";
    std::string Template;
};

void Declare(Declaration& command, NewOptions& options) {
    command.Option("directory", options.Directory, "The directory for the game; it is made if need be")
        .Required();
    command.Option("--id", options.ID, "The game's ID: at most 6 characters, 5 for a V3 game").Required();
    command
        .Option("--version", options.Version,
                "The interpreter version; with a template the template's counts")
        .ShowDefault();
    command.Option("--res-dir", options.ResDir, "The name of the directory for sources").ShowDefault();
    command.Option("--template", options.Template, "The directory of a game to start from");
}

/// The template as the library wants it, with a property file. A plain game directory gets one in a scratch
/// copy.
std::string PreparedTemplate(const std::string& directory, const ScratchDirectory& scratch) {
    if (directory.empty()) return {};
    const std::string path = std::filesystem::absolute(directory).string();
    if (!std::filesystem::is_directory(path) || !FilesMatching(InnerPath(path), "*.zvg").empty()) return path;
    const std::string copy = CopyGame(path, scratch.Path().string());
    const OpenedGame opened(copy, Access::Change);
    return copy;
}

int Run(const NewOptions& options) {
    const ScratchDirectory scratch;
    const std::string templateDir = PreparedTemplate(options.Template, scratch);
    MakeOutputDirectory(options.Directory);
    AGIGame game;
    std::string resDir = options.ResDir;
    try {
        game.NewGame(options.ID, options.Version, std::filesystem::absolute(options.Directory).string(),
                     resDir, templateDir);
    } catch (const Error& error) {
        if (!error.Is(637)) throw;
        SayWarning(error.Description() + "; see errlog.txt in " + options.Directory);
    }
    const std::string id = game.GameID();
    game.CloseGame();
    if (!EqualNoCase(id, options.ID)) SayWarning("the ID is cut to " + id);
    std::printf("%s\n", (std::filesystem::path(options.Directory) / (id + ".zvg")).string().c_str());
    return exitDone;
}

}  // namespace

void AddNewCommand(CommandLine& line) {
    AddCommand<NewOptions>(
        line,
        {"new", "Makes a new game, empty or from a template, and prints its property file.",
         "  zorvex new mygame --id MINE                          a V2 game with an empty logic 0\n"
         "  zorvex new mygame --id MINE --template othergame     a copy of another game"},
        Declare, Run);
}

}  // namespace zorvex::tool
