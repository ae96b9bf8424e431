// zorvex renumber: another number for a resource.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/games/Editing.h"
#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

namespace {

struct RenumberOptions {
    std::string Game;
    std::string Resource;
    std::string Number;
};

void Declare(Declaration& command, RenumberOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("resource", options.Resource, "TYPE:NUMBER").Required();
    command.Option("number", options.Number, "The new number, 0 to 255").Required();
}

int Run(const RenumberOptions& options) {
    const Selection selection = ParseOneResource(options.Resource);
    const std::uint8_t number = ParseNumber255(options.Number);
    OpenedGame opened(options.Game, Access::Change);
    RequireResource(selection);
    CollectionOf(selection.Type)->Renumber(*selection.Number, number);
    opened.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddRenumberCommand(CommandLine& line) {
    AddCommand<RenumberOptions>(
        line,
        {"renumber", "Gives a resource another number; its name follows if it is the default one.",
         "  zorvex renumber mygame logic:3 9   logic 3 becomes logic 9"},
        Declare, Run);
}

}  // namespace zorvex::tool
