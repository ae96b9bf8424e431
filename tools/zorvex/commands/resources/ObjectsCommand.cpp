// zorvex objects: the inventory of a game or of a file.
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/GameText.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/ListFiles.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct ObjectsOptions {
    std::string Source;
    std::string Output;
    bool Json = false;
};

void Declare(Declaration& command, ObjectsOptions& options) {
    command.Option("source", options.Source, "A game, or an inventory: OBJECT or a text form (.ago)")
        .Required();
    command.Option("-o,--output", options.Output,
                   "Write the items to this file instead: as text if it ends in .ago, else as OBJECT");
    DeclareJson(command, options.Json);
}

Json JsonOf(const AGIInventoryObjects& list) {
    Json items = Json::array();
    for (const auto& item : list) {
        items.push_back(
            {{"name", GameTextAsUtf8(item->ItemName())}, {"room", item->Room()}, {"unique", item->Unique()}});
    }
    return {{"items", std::move(items)},
            {"maxScreenObjects", list.MaxScreenObjects()},
            {"encrypted", list.Encrypted()},
            {"amiga", list.AmigaOBJ()},
            {"description", list.Description()}};
}

/// One line an item; "=" stands before a name that other items have as well.
void PrintItems(const AGIInventoryObjects& list) {
    std::printf("%3s %4s   %s\n", "no", "room", "name");
    for (std::int32_t i = 0; i < list.Count(); ++i) {
        const auto item = list.Item(i);
        std::printf("%3d %4d %s %s\n", i, item->Room(), item->Unique() ? " " : "=",
                    PrintableGameText(item->ItemName()).c_str());
    }
}

int Show(AGIInventoryObjects& list, const ObjectsOptions& options) {
    if (!options.Output.empty()) {
        list.IsDirty(true);  // written even onto the file that it came from
        NoteWriting(options.Output);
        list.Export(options.Output, LowerCase(options.Output).ends_with(".ago") ? 1 : 0);
    }
    if (options.Json) {
        PrintJson(JsonOf(list));
    } else if (options.Output.empty()) {
        PrintItems(list);
    }
    return exitDone;
}

int Run(const ObjectsOptions& options) {
    if (LowerCase(options.Output).ends_with(".agw")) throw UsageError(options.Output + " would hold words");
    if (!NamesGame(options.Source)) {
        AGIInventoryObjects list;
        LoadListFile(list, options.Source);
        return Show(list, options);
    }
    OpenedGame game(options.Source, Access::Look);
    const auto list = game.Game().InventoryObjects();
    if (!list->Loaded()) throw Error(ObjectErrorBase + 692, "zorvex", CatalogueText(692));
    return Show(*list, options);
}

}  // namespace

void AddObjectsCommand(CommandLine& line) {
    AddCommand<ObjectsOptions>(
        line,
        {"objects", "Lists the items of a game or of an inventory; \"=\" marks names that are not unique.",
         "  zorvex objects mygame                  number, room and name of each item\n"
         "  zorvex objects mygame --json           the same for a program\n"
         "  zorvex objects mygame -o items.ago     as a text to edit\n"
         "  zorvex objects items.ago -o OBJECT     from text to OBJECT"},
        Declare, Run);
}

}  // namespace zorvex::tool
