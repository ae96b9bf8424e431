// zorvex put: new bytes for a resource.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/Editing.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/game/AGIGame.h"

namespace zorvex::tool {

namespace {

struct PutOptions {
    std::string Game;
    std::string Resource;
    std::string File;
};

void Declare(Declaration& command, PutOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("resource", options.Resource, "TYPE:NUMBER of a resource that the game has").Required();
    command.Option("file", options.File, "The file with the new bytes").Required();
}

int Run(const PutOptions& options) {
    const Selection selection = ParseSelection(options.Resource);
    if (!selection.Number)
        throw UsageError("'" + options.Resource + "' names no single resource; give TYPE:NUMBER");
    const ByteArray bytes = ReadBytes(options.File);
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(MaxResourceSize)) {
        throw UsageError(options.File + " has " + std::to_string(bytes.size()) +
                         " bytes; a resource has 1 to " + std::to_string(MaxResourceSize));
    }
    OpenedGame game(options.Game, Access::Change);
    const auto member = RequireResource(selection);
    AGIResource& resource = member->Resource();
    // The old bytes are not read: a resource that is damaged can be replaced as well.
    resource.SetAllData(bytes);
    resource.Save();
    member->WriteSize();
    resource.Unload();
    game.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddPutCommand(CommandLine& line) {
    AddCommand<PutOptions>(line,
                           {"put", "Replaces the bytes of a resource that the game has. The game is changed.",
                            "  zorvex put mygame picture:12 new.pic   the file becomes picture 12"},
                           Declare, Run);
}

}  // namespace zorvex::tool
