// zorvex verify: every fault of a game in one list.
#include <algorithm>
#include <cstdio>
#include <optional>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

namespace {

struct VerifyOptions {
    std::string Game;
    bool Json = false;
};

void Declare(Declaration& command, VerifyOptions& options) {
    DeclareGame(command, options.Game);
    DeclareJson(command, options.Json);
}

void Print(const std::vector<GameFault>& faults) {
    for (const GameFault& fault : faults) {
        std::printf("%s: %s: %s\n", FaultPlace(fault.Type, fault.Number).c_str(),
                    fault.IsError ? "error" : "warning", ShownText(fault.Text).c_str());
    }
}

Json JsonOf(const GameFault& fault) {
    return {{"severity", fault.IsError ? "error" : "warning"},
            {"where", FaultPlace(fault.Type, fault.Number)},
            {"text", ShownText(fault.Text)}};
}

std::vector<GameFault> Verified(AGIGame& game) {
    std::optional<Progress> progress;
    return VerifyGame(game, {.Progress = [&](const BuildProgress& at) {
                          if (!progress) progress.emplace("Verifying", at.Total);
                          progress->Show(at.Done, FaultPlace(at.Type, at.Number));
                      }});
}

int Run(const VerifyOptions& options) {
    OpenedGame opened(options.Game, Access::Look);
    const std::vector<GameFault> faults = Verified(opened.Game());
    const auto errors =
        std::count_if(faults.begin(), faults.end(), [](const GameFault& fault) { return fault.IsError; });
    if (options.Json) {
        Json list = Json::array();
        for (const GameFault& fault : faults)
            list.push_back(JsonOf(fault));
        PrintJson(list);
    } else {
        Print(faults);
        const auto count = static_cast<std::size_t>(errors);
        std::printf("%s, %s\n", Counted(count, "error").c_str(),
                    Counted(faults.size() - count, "warning").c_str());
    }
    return errors == 0 ? exitDone : exitFailed;
}

}  // namespace

void AddVerifyCommand(CommandLine& line) {
    AddCommand<VerifyOptions>(line,
                              {"verify",
                               "Loads, draws, decodes and compiles all of a game and lists every fault. "
                               "The exit status is 1 if a player would meet one.",
                               "  zorvex verify mygame          the faults of a game\n"
                               "  zorvex verify mygame --json   the same for a program"},
                              Declare, Run);
}

}  // namespace zorvex::tool
