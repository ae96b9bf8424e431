// zorvex add: a new resource for a game.
#include <cstdio>
#include <filesystem>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/CompilerSettings.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct AddOptions {
    std::string Game;
    std::string Resource;
    std::string File;
    std::string ID;
};

void Declare(Declaration& command, AddOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("resource", options.Resource, "TYPE, which takes the lowest free number, or TYPE:NUMBER")
        .Required();
    command.Option(
        "file", options.File,
        "What to add: bytes of a resource, a logic's source (.lgc, .txt) or a sound script (.ass); "
        "without it the smallest resource of the type is made");
    command.Option("--id", options.ID, "The resource's name; by default its type and number");
}

std::uint8_t LowestFree(AGIResType type) {
    for (int number = 0; number < 256; ++number) {
        if (!CollectionOf(type)->Exists(static_cast<std::uint8_t>(number)))
            return static_cast<std::uint8_t>(number);
    }
    throw Error(ObjectErrorBase + 602, "zorvex", "all 256 numbers are in use");
}

bool HasExtension(const std::string& file, std::string_view extension) {
    return EqualNoCase(std::filesystem::path(file).extension().string(), extension);
}

std::string AbsoluteInner(const std::string& file) {
    return InnerPath(std::filesystem::absolute(file).string());
}

/// Adds a copy of a stand-alone object that has taken the file's contents.
template <class Resource, class Collection>
std::shared_ptr<Resource> AddCopy(Collection& collection, std::uint8_t number, const AddOptions& options,
                                  Resource& source) {
    source.ID(options.ID.empty() ? std::string(source.TypeWord()) + std::to_string(number) : options.ID);
    return collection.Add(number, &source);
}

void AddLogic(AGIGame& game, std::uint8_t number, const AddOptions& options) {
    AGILogic source;
    const bool isText = HasExtension(options.File, ".lgc") || HasExtension(options.File, ".txt");
    if (options.File.empty()) {
        source.Clear();
    } else {
        source.Import(AbsoluteInner(options.File), isText);
    }
    const auto logic = AddCopy(game.Logics(), number, options, source);
    logic->SaveSource();
    if (isText || options.File.empty()) logic->Compile();
}

template <class Resource, class Collection>
void AddOther(Collection& collection, std::uint8_t number, const AddOptions& options) {
    Resource source;
    if (!options.File.empty()) {
        // What cannot be read is refused here, since an import itself passes over some faults.
        if (ReadBytes(options.File).empty()) throw UsageError(options.File + " is empty");
        source.Import(AbsoluteInner(options.File));
    }
    AddCopy(collection, number, options, source);
}

int Run(const AddOptions& options) {
    const Selection selection = ParseSelection(options.Resource);
    if (!options.File.empty() && !std::filesystem::is_regular_file(options.File)) {
        throw Error(reFileNotFound, "zorvex", "no such file: " + options.File);
    }
    OpenedGame opened(options.Game, Access::Change);
    ApplyCompiler(opened.Game(), CompilerSettings());
    AGIGame& game = opened.Game();
    const std::uint8_t number = selection.Number ? *selection.Number : LowestFree(selection.Type);
    if (CollectionOf(selection.Type)->Exists(number)) {
        throw Error(ObjectErrorBase + 602, "zorvex", CatalogueText(602));
    }
    switch (selection.Type) {
        case rtLogic: AddLogic(game, number, options); break;
        case rtPicture: AddOther<AGIPicture>(game.Pictures(), number, options); break;
        case rtSound: AddOther<AGISound>(game.Sounds(), number, options); break;
        default: AddOther<AGIView>(game.Views(), number, options); break;
    }
    game.SaveProperties();
    std::printf("%s:%d %s\n", TypeName(selection.Type).c_str(), number,
                CollectionOf(selection.Type)->Find(number)->ID().c_str());
    return exitDone;
}

}  // namespace

void AddAddCommand(CommandLine& line) {
    AddCommand<AddOptions>(
        line,
        {"add", "Adds a resource to a game and prints its number and name.",
         "  zorvex add mygame picture                    an empty picture at the lowest free number\n"
         "  zorvex add mygame logic:12 room12.lgc        a logic from its source\n"
         "  zorvex add mygame view hero.view --id Hero   a view from its bytes"},
        Declare, Run);
}

}  // namespace zorvex::tool
