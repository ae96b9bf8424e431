// zorvex extract: the bytes of resources as files.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"

namespace zorvex::tool {

namespace {

struct ExtractOptions {
    std::string Game;
    std::vector<std::string> Selections;
    std::string Output;
};

void Declare(Declaration& command, ExtractOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("resources", options.Selections, "TYPE or TYPE:NUMBER; all resources when none is given");
    command.Option("-o,--output", options.Output, "The directory for the files").Required();
}

bool IsSelected(const std::vector<Selection>& selections, AGIResType type, std::uint8_t number) {
    return std::any_of(selections.begin(), selections.end(), [&](const Selection& selection) {
        return selection.Type == type && (!selection.Number || *selection.Number == number);
    });
}

/// Raises 617 for a selected number that the game does not have.
void RequireSelected(const std::vector<Selection>& selections) {
    for (const Selection& selection : selections) {
        if (!selection.Number || CollectionOf(selection.Type)->Exists(*selection.Number)) continue;
        const std::string what = TypeName(selection.Type) + " " + std::to_string(*selection.Number);
        throw Error(ObjectErrorBase + 617, "zorvex", CatalogueText(617) + " (the game has no " + what + ")");
    }
}

int Run(const ExtractOptions& options) {
    std::vector<Selection> selections;
    for (const std::string& text : options.Selections)
        selections.push_back(ParseSelection(text));
    if (selections.empty()) {
        for (const AGIResType type : listedTypes)
            selections.push_back({type, std::nullopt});
    }
    OpenedGame game(options.Game, Access::Look);
    RequireSelected(selections);
    MakeOutputDirectory(options.Output);
    int status = exitDone;
    for (const AGIResType type : listedTypes) {
        for (const auto& member : ByNumber(type)) {
            if (!IsSelected(selections, type, member->Number())) continue;
            const std::string name = ResourceFileName(type, member->Number());
            try {
                AGIResource& resource = member->Resource();
                resource.Load();
                WriteBytes(std::filesystem::path(options.Output) / name, resource.View());
                resource.Unload();
            } catch (const Error& error) {
                SayError(name, error);
                status = exitFailed;
            }
        }
    }
    return status;
}

}  // namespace

void AddExtractCommand(CommandLine& line) {
    AddCommand<ExtractOptions>(
        line,
        {"extract", "Writes the bytes of resources, expanded, to files such as logic.000.",
         "  zorvex extract mygame -o out                  all resources\n"
         "  zorvex extract mygame view picture:12 -o out  all views and one picture"},
        Declare, Run);
}

}  // namespace zorvex::tool
