// zorvex rename: another name for a resource.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/Editing.h"
#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

namespace {

struct RenameOptions {
    std::string Game;
    std::string Resource;
    std::string ID;
};

void Declare(Declaration& command, RenameOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("resource", options.Resource, "TYPE:NUMBER").Required();
    command.Option("id", options.ID, "The new name, at most 64 characters").Required();
}

/// A logic's source file is found by the logic's name, so it goes along.
void RenameWithSource(AGILogic& logic, const std::string& id) {
    const std::string former = logic.SourceFile();
    logic.ID(id);
    const std::string file = logic.SourceFile();
    if (former == file || Files().Kind(former) != FileKind::File) return;
    if (Files().Kind(file) == FileKind::File) {
        SayWarning(file + " is there already and was left alone; the former source stays in " + former);
        return;
    }
    Files().Rename(former, file);
}

int Run(const RenameOptions& options) {
    const Selection selection = ParseOneResource(options.Resource);
    if (options.ID.find_first_of("/\\:") != std::string::npos) {
        throw UsageError("'" + options.ID + "' cannot be a name: it holds a separator");
    }
    OpenedGame opened(options.Game, Access::Change);
    const auto member = RequireResource(selection);
    if (selection.Type == rtLogic) {
        RenameWithSource(static_cast<AGILogic&>(*member), options.ID);
    } else {
        member->ID(options.ID);
    }
    opened.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddRenameCommand(CommandLine& line) {
    AddCommand<RenameOptions>(
        line,
        {"rename", "Gives a resource another name; a logic's source file goes along.",
         "  zorvex rename mygame logic:3 Garden   logic 3 is called Garden from now on"},
        Declare, Run);
}

}  // namespace zorvex::tool
