// zorvex view-import: a view of a game from images or JSON.
#include <filesystem>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/games/ViewJson.h"

namespace zorvex::tool {

namespace {

namespace fs = std::filesystem;

struct ViewImportOptions {
    std::string Game;
    std::string Number;
    std::string Source;
    bool Native = false;
};

void Declare(Declaration& command, ViewImportOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("number", options.Number, "The number of the view; a new one is added to the game")
        .Required();
    command
        .Option("source", options.Source,
                "A directory of images as 'view --cels' writes them, or a file as 'view --json' writes it")
        .Required();
    command.Flag("--native", options.Native,
                 "Images without a view.json beside them have one column a pixel, not two");
}

Json ReadJson(const fs::path& file) {
    const ByteArray bytes = ReadBytes(file.string());
    try {
        return Json::parse(bytes.begin(), bytes.end());
    } catch (const Json::exception& error) {
        throw Error(321, "zorvex", file.string() + " is not JSON: " + error.what());
    }
}

/// What the source says, and the directory of its images.
struct Source {
    Json Content;
    fs::path Directory;
};

Source ReadSource(const ViewImportOptions& options) {
    const fs::path source = options.Source;
    if (!fs::is_directory(source)) return {ReadJson(source), source.parent_path()};
    if (fs::exists(source / celListName)) return {ReadJson(source / celListName), source};
    if (!fs::exists(source / CelFileName(0, 0))) {
        throw UsageError(options.Source + " holds neither " + celListName + " nor " + CelFileName(0, 0));
    }
    return {GuessedCelList(source, options.Native ? 1 : 2), source};
}

/// Puts the bytes of a view into the game, in place of those of the same number.
void Save(AGIViews& views, std::uint8_t number, AGIView& view) {
    view.BuildViewData();
    if (view.Size() > MaxResourceSize) {
        throw Error(ObjectErrorBase + 516, "zorvex",
                    CatalogueText(516) + " The view has " + std::to_string(view.Size()) +
                        " bytes, a resource at most " + std::to_string(MaxResourceSize) + ".");
    }
    if (!views.Exists(number)) {
        view.ID(std::string(view.TypeWord()) + std::to_string(number));
        views.Add(number, &view);
        return;
    }
    // The old bytes are not read: a view that is damaged can be replaced as well.
    AGIView& member = *views.Item(number);
    member.Resource().SetAllData(view.AllData());
    member.Save();
    member.Unload();
}

int Run(const ViewImportOptions& options) {
    const std::uint8_t number = ParseNumber255(options.Number);
    const Source source = ReadSource(options);
    OpenedGame game(options.Game, Access::Change);
    // Not before the game is open, since its colours count.
    const std::unique_ptr<AGIView> view = ViewFromJson(source.Content, source.Directory);
    Save(game.Game().Views(), number, *view);
    game.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddViewImportCommand(CommandLine& line) {
    AddCommand<ViewImportOptions>(
        line,
        {"view-import", "Makes a view of a game from images. The game is changed.",
         "  zorvex view mygame 0 --cels ego     writes the images of view 0\n"
         "  zorvex view-import mygame 0 ego     makes view 0 of them, when they have been edited\n"
         "  zorvex view-import mygame 7 a.json  makes view 7 of a file that 'view --json' wrote"},
        Declare, Run);
}

}  // namespace zorvex::tool
