// zorvex remove: a resource taken out of a game.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/games/Editing.h"
#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

namespace {

struct RemoveOptions {
    std::string Game;
    std::vector<std::string> Resources;
};

void Declare(Declaration& command, RemoveOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("resources", options.Resources, "TYPE:NUMBER of each resource to remove").Required();
}

int Run(const RemoveOptions& options) {
    std::vector<Selection> selections;
    for (const std::string& text : options.Resources)
        selections.push_back(ParseOneResource(text));
    OpenedGame opened(options.Game, Access::Change);
    for (const Selection& selection : selections)
        RequireResource(selection);
    for (const Selection& selection : selections)
        CollectionOf(selection.Type)->Remove(*selection.Number);
    opened.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddRemoveCommand(CommandLine& line) {
    AddCommand<RemoveOptions>(line,
                              {"remove", "Removes resources from a game. A logic's source file stays.",
                               "  zorvex remove mygame view:12 view:13   removes two views"},
                              Declare, Run);
}

}  // namespace zorvex::tool
