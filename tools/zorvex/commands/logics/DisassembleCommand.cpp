// zorvex disassemble: the instructions of a logic with their bytes.
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct DisassembleOptions {
    std::string Game;
    std::string Number;
    bool Json = false;
};

void Declare(Declaration& command, DisassembleOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("number", options.Number, "The number of a logic").Required();
    DeclareJson(command, options.Json);
}

std::string HexOf(ByteView bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += (text.empty() ? "" : " ") + HexPad(byte, 2);
    return text;
}

int RunDisassemble(const DisassembleOptions& options) {
    const std::uint8_t number = ParseNumber255(options.Number);
    OpenedGame game(options.Game, Access::Look);
    const auto member = CollectionOf(rtLogic)->Find(number);
    if (!member) {
        throw Error(ObjectErrorBase + 617, "zorvex",
                    CatalogueText(617) + " (the game has no logic " + options.Number + ")");
    }
    member->Resource().Load();
    const ByteView data = member->Resource().View();
    Json rows = Json::array();
    for (const LogicInstruction& instruction : DisassembleLogic(data)) {
        const std::string bytes = HexOf(data.subspan(static_cast<std::size_t>(instruction.Position),
                                                     static_cast<std::size_t>(instruction.Length)));
        if (options.Json) {
            rows.push_back(
                {{"position", instruction.Position}, {"bytes", bytes}, {"text", instruction.Text}});
        } else {
            std::printf("%5d  %-24s %s\n", instruction.Position, bytes.c_str(), instruction.Text.c_str());
        }
    }
    if (options.Json) PrintJson(rows);
    return exitDone;
}

}  // namespace

void AddDisassembleCommand(CommandLine& line) {
    AddCommand<DisassembleOptions>(
        line,
        {"disassemble", "Lists the instructions of a logic: position, bytes, name and arguments.",
         "  zorvex disassemble mygame 5          one line an instruction\n"
         "  zorvex disassemble mygame 5 --json   the same for a program"},
        Declare, RunDisassemble);
}

}  // namespace zorvex::tool
