// zorvex view: views as images, animations or JSON.
#include <filesystem>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/games/ViewJson.h"
#include "tools/zorvex/images/ViewImages.h"

namespace zorvex::tool {

namespace {

namespace fs = std::filesystem;

struct ViewOptions {
    std::string Source;
    std::string Number;
    std::string Output;
    std::string Cels;
    bool Native = false;
    std::size_t Scale = 1;
    bool Gif = false;
    bool Json = false;

    /// How large a pixel of a cel is drawn.
    PixelSize Size() const { return {Scale * (Native ? 1 : 2), Scale}; }
};

void Declare(Declaration& command, ViewOptions& options) {
    command.Option("source", options.Source, "A game, or a file with the bytes of one view").Required();
    command.Option("number", options.Number, "The number of a view of the game, or all (the default)");
    command.Option("-o,--output", options.Output,
                   "The file to write, or a directory for files such as view.012.png");
    const DeclaredOption cels =
        command.Option("--cels", options.Cels,
                       "A directory for one indexed PNG a cel and the view.json that view-import reads");
    command.Flag("--native", options.Native, "One pixel a pixel instead of two side by side");
    command.Option("--scale", options.Scale, "Enlarge so many times").Between(1, 10).Excludes(cels);
    const DeclaredOption gif =
        command.Flag("--gif", options.Gif, "An animation of each loop: ego.gif, ego.loop1.gif ...");
    DeclareJson(command, options.Json);
    command.Named("--json")
        .Description("Description, loops and cels as JSON instead of a sheet")
        .Excludes(gif);
}

// --- What a view becomes ---

ByteArray BytesOf(const Json& json) {
    const std::string text = JsonText(json);
    return {text.begin(), text.end()};
}

void WriteCels(AGIView& view, const ViewOptions& options, const fs::path& directory) {
    MakeOutputDirectory(directory);
    WriteBytes(directory / celListName, BytesOf(CelListOf(view, options.Size().Across)));
    for (const auto& loop : *view.Loops()) {
        const std::shared_ptr<AGICels> cels = loop->Cels();
        for (std::int32_t i = 0; i < cels->Count(); ++i) {
            WriteBytes(directory / CelFileName(loop->Index(), i),
                       EncodePng(CelImage(*cels->Item(i), options.Size())));
        }
    }
}

void WriteAnimations(AGIView& view, const ViewOptions& options, const fs::path& path) {
    for (const auto& loop : *view.Loops()) {
        if (loop->Cels()->Count() == 0) continue;
        fs::path file = path;
        if (loop->Index() > 0) {
            file.replace_filename(path.stem().string() + ".loop" + std::to_string(loop->Index()) +
                                  path.extension().string());
        }
        WriteBytes(file, EncodeGif(LoopAnimation(*loop, options.Size())));
    }
}

std::string Extension(const ViewOptions& options) {
    return options.Json ? ".json" : options.Gif ? ".gif" : ".png";
}

void WriteView(AGIView& view, const ViewOptions& options, const fs::path& path) {
    if (options.Json) return WriteBytes(path, BytesOf(JsonOfView(view)));
    if (options.Gif) return WriteAnimations(view, options, path);
    WriteBytes(path, EncodePng(SheetImage(view, options.Size())));
}

// --- Reading it ---

/// Tells in words what is wrong with a view whose description is not within its bytes.
[[noreturn]] void RaiseDescription(const Error& error, ByteView bytes) {
    const std::size_t place = bytes.size() < 5 ? 0 : bytes[3] + std::size_t{256} * bytes[4];
    const std::string where =
        place + 1 == bytes.size() ? "at the last byte of the view" : "beyond the end of the view";
    throw Error(error.Number(), error.Source(),
                error.Description() + " The description is said to begin at " + std::to_string(place) + ", " +
                    where + ", which has " + std::to_string(bytes.size()) + " bytes.");
}

/// Reads the loops of a view whose bytes are loaded.
void ReadLoops(AGIView& view) {
    const ByteArray bytes = view.AllData();
    try {
        view.Loops();
    } catch (const Error& error) {
        if (error.Is(513)) RaiseDescription(error, bytes);
        throw;
    }
}

void LoadView(AGIView& view) {
    view.Resource().Load();
    ReadLoops(view);
}

// --- The command ---

void WriteOne(AGIView& view, const ViewOptions& options, const std::string& name) {
    if (!options.Cels.empty()) WriteCels(view, options, options.Cels);
    if (options.Output.empty()) {
        if (options.Json) PrintJson(JsonOfView(view));
        return;
    }
    fs::path path = options.Output;
    if (fs::is_directory(path)) path /= name + Extension(options);
    WriteView(view, options, path);
}

void WriteOneOfAll(AGIView& view, const ViewOptions& options, Json& list) {
    const std::string name = ResourceFileName(rtView, view.Number());
    LoadView(view);
    if (!options.Cels.empty()) WriteCels(view, options, fs::path(options.Cels) / name);
    if (!options.Output.empty()) {
        WriteView(view, options, fs::path(options.Output) / (name + Extension(options)));
    } else if (options.Json) {
        Json item{{"number", view.Number()}};
        item.update(JsonOfView(view));
        list.push_back(std::move(item));
    }
    view.Unload();
}

/// Every view of the game; those that fail are told, and the others written all the same.
int WriteAll(OpenedGame& game, const ViewOptions& options) {
    if (!options.Output.empty()) MakeDirectoryOfAll(options.Output, Extension(options));
    int status = game.HasSkipped(rtView) ? exitFailed : exitDone;
    AGIViews& views = game.Game().Views();
    Json list = Json::array();
    Progress progress("Views", static_cast<std::size_t>(views.Count()));
    std::size_t done = 0;
    for (const auto& member : ByNumber(rtView)) {
        const std::string name = ResourceFileName(rtView, member->Number());
        progress.Show(done++, name);
        try {
            WriteOneOfAll(*views.Item(member->Number()), options, list);
        } catch (const Error& error) {
            SayError(name, error);
            status = exitFailed;
        }
    }
    if (options.Json && options.Output.empty()) PrintJson(list);
    return status;
}

int RunFile(const ViewOptions& options) {
    if (!options.Number.empty()) throw UsageError("a file holds one view; give no number");
    AGIView view;
    view.SetData(ReadBytes(options.Source));
    ReadLoops(view);
    WriteOne(view, options, fs::path(options.Source).filename().string());
    return exitDone;
}

void RequireView(const AGIViews& views, std::uint8_t number) {
    if (views.Exists(number)) return;
    throw Error(ObjectErrorBase + 617, "zorvex",
                CatalogueText(617) + " (the game has no view " + std::to_string(number) + ")");
}

int Run(const ViewOptions& options) {
    if (options.Output.empty() && options.Cels.empty() && !options.Json) {
        throw UsageError("name the output with -o or --cels, or ask for --json");
    }
    if (fs::exists(options.Source) && !NamesGame(options.Source)) return RunFile(options);
    const bool all = options.Number.empty() || options.Number == "all";
    const std::uint8_t number = all ? std::uint8_t{0} : ParseNumber255(options.Number);
    OpenedGame game(options.Source, Access::Look);
    if (all) return WriteAll(game, options);
    RequireView(game.Game().Views(), number);
    AGIView& view = *game.Game().Views().Item(number);
    LoadView(view);
    WriteOne(view, options, ResourceFileName(rtView, number));
    return exitDone;
}

}  // namespace

void AddViewCommand(CommandLine& line) {
    AddCommand<ViewOptions>(
        line,
        {"view", "Draws views into PNG images and GIF animations with the palette of the game.",
         "  zorvex view mygame 0 -o ego.png           a sheet, a row for each loop\n"
         "  zorvex view mygame all -o out --gif       animations of all views\n"
         "  zorvex view view.000 -o ego.png --native  the bytes of a file\n"
         "  zorvex view mygame 0 --cels ego           an image for each cel, to be edited\n"
         "  zorvex view mygame 0 --json               loops and cels for a program"},
        Declare, Run);
}

}  // namespace zorvex::tool
