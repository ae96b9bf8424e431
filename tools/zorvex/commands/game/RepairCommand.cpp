// zorvex repair: what can be mended in a game without guessing.
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/GameCopy.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

namespace {

struct RepairOptions {
    std::string Game;
    std::string Output;
    bool DropMissing = false;
    bool Json = false;
};

void Declare(Declaration& command, RepairOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("-o,--output", options.Output, "Mend a copy of the game in this new directory");
    command.Flag("--drop-missing", options.DropMissing,
                 "Take resources that cannot be read out of their directory");
    DeclareJson(command, options.Json);
}

/// What the load itself has mended, and what it could not read.
std::vector<std::string> StepsOfLoad(const OpenedGame& opened, bool dropped) {
    std::vector<std::string> steps;
    for (const LoadIssue& issue : opened.Game().LoadIssues()) {
        if (issue.Kind == LoadIssueKind::EmptyDirectory)
            steps.push_back(DirectoryFileName(issue.Type, false, "") +
                            ": had no bytes and was given one empty entry");
        if (issue.Kind == LoadIssueKind::Resource && dropped)
            steps.push_back(FaultPlace(issue.Type, issue.Number) +
                            ": its directory entry was blanked, since the resource cannot be read");
    }
    return steps;
}

bool HasList(const AGIGame& game, AGIResType type) {
    return type == rtWords ? game.VocabularyWords()->Loaded() : game.InventoryObjects()->Loaded();
}

/// Faults that are still there, with what helps against them.
std::vector<std::string> Remaining(AGIGame& game) {
    std::vector<std::string> remaining;
    for (const LoadIssue& issue : game.LoadIssues()) {
        if (issue.Kind == LoadIssueKind::Resource && issue.EntryKept) {
            remaining.push_back(issue.Text +
                                "; put the missing file there, or --drop-missing takes the "
                                "entry out of the directory");
        } else if (issue.Kind == LoadIssueKind::List && !HasList(game, issue.Type)) {
            remaining.push_back(issue.Text + "; 'zorvex " +
                                (issue.Type == rtWords ? "words-import" : "objects-import") +
                                "' puts a new one in its place");
        }
    }
    for (const GameFault& fault : VerifyGame(game)) {
        if (!fault.IsError || fault.Number < 0) continue;
        const std::string place = FaultPlace(fault.Type, fault.Number);
        remaining.push_back(place + ": " + fault.Text +
                            "; 'zorvex put' replaces the resource, 'zorvex remove' takes it out");
    }
    return remaining;
}

int Run(const RepairOptions& options) {
    const std::string path = options.Output.empty() ? options.Game : CopyGame(options.Game, options.Output);
    OpenedGame opened(path, Access::Change, options.DropMissing ? BadEntry::Blank : BadEntry::Leave);
    std::vector<std::string> steps = StepsOfLoad(opened, options.DropMissing);
    for (const RepairStep& step : RepairGame(opened.Game(), {.DropUnreadable = options.DropMissing}))
        steps.push_back(ShownText(step.Text));
    const std::vector<std::string> remaining = Remaining(opened.Game());
    if (options.Json) {
        PrintJson(Json(steps));
    } else {
        for (const std::string& step : steps)
            std::printf("%s\n", step.c_str());
        std::printf("%s\n", Counted(steps.size(), "repair").c_str());
    }
    for (const std::string& text : remaining)
        SayWarning("not mended: " + text);
    return remaining.empty() ? exitDone : exitFailed;
}

}  // namespace

void AddRepairCommand(CommandLine& line) {
    AddCommand<RepairOptions>(line,
                              {"repair",
                               "Mends what can be mended in a game without guessing, and tells each step. "
                               "Changed files are kept as .OLD. The exit status is 1 while faults remain.",
                               "  zorvex repair mygame            mends the game itself\n"
                               "  zorvex repair mygame -o fixed   mends a copy"},
                              Declare, Run);
}

}  // namespace zorvex::tool
