// zorvex sound-import: a script or a raw resource becomes a sound of the game.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/games/SoundFiles.h"

namespace zorvex::tool {

namespace {

struct ImportOptions {
    std::string Game;
    std::string Number;
    std::string File;
};

void Declare(Declaration& command, ImportOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("number", options.Number, "The number of a sound that the game has").Required();
    command.Option("file", options.File, "A script, or a raw resource").Required();
}

int Run(const ImportOptions& options) {
    const std::uint8_t number = ParseNumber255(options.Number);
    // The file is read by itself first: the game is not touched for a file that is no sound.
    const auto read = SoundOfFile(options.File);
    OpenedGame game(options.Game, Access::Change);
    const auto sound = game.Game().Sounds().Item(number);
    const std::string id = sound->ID();
    if (read->SndFormat() == 1) {
        sound->Import(options.File);
    } else {
        sound->Resource().SetAllData(read->AllData());
    }
    // The sound keeps its name: logic source may use it. All else comes from the file and is to be saved.
    sound->SetIDField(id);
    sound->DataDirty(true);
    sound->WritePropState(true);
    sound->Save();
    sound->Unload();
    game.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddSoundImportCommand(CommandLine& line) {
    AddCommand<ImportOptions>(
        line,
        {"sound-import",
         "Replaces a sound that the game has by a script or a raw resource. The game is changed.",
         "  zorvex sound-import mygame 12 tune.ass   the script becomes sound 12"},
        Declare, Run);
}

}  // namespace zorvex::tool
