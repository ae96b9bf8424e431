// zorvex objects-import: other items for a game.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/games/ListFiles.h"
#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

namespace {

struct ObjectsImportOptions {
    std::string Game;
    std::string File;
};

void Declare(Declaration& command, ObjectsImportOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("file", options.File, "An inventory: a text form (.ago) or OBJECT").Required();
}

/// Makes the items those of a stand-alone list. How the game stores them, scrambled or not, stays.
void Replace(AGIInventoryObjects& items, AGIInventoryObjects& source) {
    if (!items.Loaded()) items.SetObjects(source);
    while (items.Count() > source.Count())
        items.Remove(items.Count() - 1);
    for (std::int32_t i = 0; i < source.Count(); ++i) {
        const auto from = source.Item(i);
        if (i >= items.Count()) {
            items.Add(from->ItemName(), from->Room());
            continue;
        }
        items.Item(i)->ItemName(from->ItemName());
        items.Item(i)->Room(from->Room());
    }
    items.MaxScreenObjects(source.MaxScreenObjects());
    if (!source.Description().empty()) items.Description(source.Description());
    items.Save();
}

int Run(const ObjectsImportOptions& options) {
    AGIInventoryObjects source;
    LoadListFile(source, options.File);
    OpenedGame game(options.Game, Access::Change);
    Replace(*game.Game().InventoryObjects(), source);
    game.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddObjectsImportCommand(CommandLine& line) {
    AddCommand<ObjectsImportOptions>(
        line,
        {"objects-import",
         "Replaces the items of a game; whether its file is scrambled stays. The game is changed.",
         "  zorvex objects mygame -o items.ago       the items as a text to edit\n"
         "  zorvex objects-import mygame items.ago   the edited items become the game's"},
        Declare, Run);
}

}  // namespace zorvex::tool
