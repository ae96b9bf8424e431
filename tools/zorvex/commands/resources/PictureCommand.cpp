// zorvex picture: pictures as images, bytes or JSON.
#include <filesystem>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/PictureListing.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/images/PngFile.h"

namespace zorvex::tool {

namespace {

namespace fs = std::filesystem;

struct PictureOptions {
    std::string Source;
    std::string Number;
    std::string Output;
    bool Native = false;
    std::size_t Scale = 1;
    bool Priority = false;
    bool Both = false;
    std::int32_t Until = -1;
    bool Raw = false;
    bool Json = false;
};

void Declare(Declaration& command, PictureOptions& options) {
    command.Option("source", options.Source, "A game, or a file with the bytes of one picture").Required();
    command.Option("number", options.Number, "The number of a picture of the game, or all (the default)");
    command.Option("-o,--output", options.Output,
                   "The file to write, or a directory for files such as picture.012.png");
    command.Flag("--native", options.Native, "One pixel a pixel, 160 by 168, instead of two side by side");
    command.Option("--scale", options.Scale, "Enlarge so many times").Between(1, 10);
    const DeclaredOption priority = command.Flag("--priority", options.Priority, "The priority screen");
    command.Flag("--both", options.Both, "Visual and priority screen side by side").Excludes(priority);
    command.Option("--until", options.Until, "Draw up to this position of the bytes only").NotNegative();
    const DeclaredOption raw =
        command.Flag("--raw", options.Raw, "Both screens as 26,880 bytes each, .visual and .priority");
    DeclareJson(command, options.Json);
    command.Named("--json").Description("Faults, pen and commands as JSON instead of an image").Excludes(raw);
}

// --- What a picture becomes ---
/// The screens asked for, side by side, as an image.
ByteArray PngOf(AGIPicture& picture, const PictureOptions& options) {
    std::vector<ByteArray> screens;
    if (!options.Priority) screens.push_back(picture.VisData());
    if (options.Priority || options.Both) screens.push_back(picture.PriData());
    const std::size_t across = options.Scale * (options.Native ? 1 : 2);
    const std::size_t width = PictureWidth * across;
    IndexedImage image(width * screens.size(), PictureHeight * options.Scale, GamePalette());
    for (std::size_t i = 0; i < screens.size(); ++i)
        image.Place(screens[i], PictureWidth, width * i, 0, across, options.Scale);
    return EncodePng(image);
}

/// What the bits of an error level say.
std::vector<std::string> FaultsOf(std::int32_t level) {
    std::vector<std::string> faults;
    if ((level & peDataEnds) != 0) faults.emplace_back("the data ends without 0xFF");
    if ((level & peColor) != 0) faults.emplace_back("a visual colour is above 15");
    if ((level & peCommand) != 0) faults.emplace_back("a byte stands where a command is expected");
    if ((level & peFailure) != 0) faults.emplace_back("an impossible operand stopped the drawing");
    return faults;
}

Json JsonOfColor(AGIColors color) {
    return color < agNone ? Json(int{color}) : Json(nullptr);
}

/// The pen at a picture's position; null when drawing breaks off before. A 0xFF behind the bytes lets the pen
/// be told at the end of bytes that lack it.
Json JsonOfPen(AGIPicture& picture) {
    ByteArray bytes = picture.AllData();
    bytes.push_back(dfEnd);
    AGIPicture ended;
    ended.SetPictureData(bytes);
    ended.DrawPos(picture.DrawPos());
    ended.StepDraw(true);
    ended.VisData();
    if ((ended.BMPErrLevel() & (peDataEnds | peFailure)) != 0) return nullptr;
    const PenStatus pen = ended.CurrentToolStatus();
    return {{"visualColor", JsonOfColor(pen.VisColor)},
            {"priorityColor", JsonOfColor(pen.PriColor)},
            {"shape", pen.PlotShape == psRectangle ? "rectangle" : "circle"},
            {"style", pen.PlotStyle == psSplatter ? "splatter" : "solid"},
            {"size", pen.PlotSize}};
}

Json JsonOfPicture(AGIPicture& picture) {
    const ByteArray bytes = picture.AllData();
    const std::int32_t last = picture.Size() - 1;
    const std::int32_t position = picture.DrawPos() < 0 ? last : picture.DrawPos();
    Json commands = Json::array();
    for (const PictureCommandBytes& command : ListPictureCommands(bytes)) {
        Json item{{"position", command.Position},
                  {"code", command.Code},
                  {"name", PictureCommandName(command.Code)},
                  {"operands", ByteArray(command.Operands.begin(), command.Operands.end())}};
        if (command.Cut) item["cut"] = true;
        commands.push_back(std::move(item));
    }
    Json json;
    if (picture.InGame()) json["number"] = picture.Number();
    json["id"] = picture.ID();
    json["size"] = bytes.size();
    json["errorLevel"] = picture.BMPErrLevel();
    json["faults"] = FaultsOf(picture.BMPErrLevel());
    json["position"] = position;
    json["pen"] = JsonOfPen(picture);
    json["commands"] = std::move(commands);
    return json;
}

// --- Where it goes ---
/// Writes what was asked for. `path` is the file to write or, with `addExtension`, its name without an
/// extension.
void WritePicture(AGIPicture& picture, const PictureOptions& options, const std::string& path,
                  bool addExtension) {
    if (options.Raw) {
        WriteBytes(path + ".visual", picture.VisData());
        WriteBytes(path + ".priority", picture.PriData());
    } else if (options.Json) {
        const std::string text = JsonText(JsonOfPicture(picture));
        WriteBytes(addExtension ? path + ".json" : path, ByteArray(text.begin(), text.end()));
    } else {
        WriteBytes(addExtension ? path + ".png" : path, PngOf(picture, options));
    }
}

void Draw(AGIPicture& picture, const PictureOptions& options, const std::string& name) {
    picture.Load();
    if (options.Until >= 0) {
        picture.DrawPos(options.Until);
        picture.StepDraw(true);
        picture.VisData();
    }
    for (const std::string& fault : FaultsOf(picture.BMPErrLevel()))
        SayWarning(name + ": " + fault + " (error level " + std::to_string(picture.BMPErrLevel()) + ")");
}

void WriteOne(AGIPicture& picture, const PictureOptions& options, const std::string& name) {
    Draw(picture, options, name);
    if (options.Output.empty()) return PrintJson(JsonOfPicture(picture));
    const bool inDirectory = fs::is_directory(options.Output);
    const std::string path = inDirectory ? (fs::path(options.Output) / name).string() : options.Output;
    WritePicture(picture, options, path, inDirectory);
}

/// Every picture of the game; those that fail are told, and the others written all the same.
int WriteAll(OpenedGame& game, const PictureOptions& options) {
    const char* extension = options.Raw ? ".visual" : options.Json ? ".json" : ".png";
    if (!options.Output.empty()) MakeDirectoryOfAll(options.Output, extension);
    int status = game.HasSkipped(rtPicture) ? exitFailed : exitDone;
    AGIPictures& pictures = game.Game().Pictures();
    Json list = Json::array();
    Progress progress("Drawing", static_cast<std::size_t>(pictures.Count()));
    std::size_t done = 0;
    for (const auto& member : ByNumber(rtPicture)) {
        const std::string name = ResourceFileName(rtPicture, member->Number());
        progress.Show(done++, name);
        try {
            const std::shared_ptr<AGIPicture> picture = pictures.Item(member->Number());
            Draw(*picture, options, name);
            if (options.Output.empty()) {
                list.push_back(JsonOfPicture(*picture));
            } else {
                WritePicture(*picture, options, (fs::path(options.Output) / name).string(), true);
            }
            picture->Unload();
        } catch (const Error& error) {
            SayError(name, error);
            status = exitFailed;
        }
    }
    if (options.Output.empty()) PrintJson(list);
    return status;
}

int RunFile(const PictureOptions& options) {
    if (!options.Number.empty()) throw UsageError("a file holds one picture; give no number");
    const ByteArray bytes = ReadBytes(options.Source);
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(MaxResourceSize)) {
        throw UsageError(options.Source + " has " + std::to_string(bytes.size()) +
                         " bytes; a picture has 1 to " + std::to_string(MaxResourceSize));
    }
    AGIPicture picture;
    picture.SetPictureData(bytes);
    const std::string name = fs::path(options.Source).filename().string();
    picture.ID(name);
    WriteOne(picture, options, name);
    return exitDone;
}

int Run(const PictureOptions& options) {
    if (options.Output.empty() && !options.Json)
        throw UsageError("name the output with -o, or ask for --json");
    if (!fs::exists(options.Source) || NamesGame(options.Source)) {
        const bool all = options.Number.empty() || options.Number == "all";
        const std::uint8_t number = all ? std::uint8_t{0} : ParseNumber255(options.Number);
        OpenedGame game(options.Source, Access::Look);
        if (all) return WriteAll(game, options);
        WriteOne(*game.Game().Pictures().Item(number), options, ResourceFileName(rtPicture, number));
        return exitDone;
    }
    return RunFile(options);
}

}  // namespace

void AddPictureCommand(CommandLine& line) {
    AddCommand<PictureOptions>(
        line,
        {"picture", "Draws pictures into PNG images with the palette of the game.",
         "  zorvex picture mygame 12 -o castle.png        as on the screen, 320 by 168\n"
         "  zorvex picture mygame all -o out --both       all, with their priority screens\n"
         "  zorvex picture picture.012 -o p.png --native  the bytes of a file, 160 by 168\n"
         "  zorvex picture mygame 12 -o p.png --until 90  as far as position 90\n"
         "  zorvex picture mygame 12 --json               its faults, pen and commands"},
        Declare, Run);
}

}  // namespace zorvex::tool
