// zorvex compile: sources of logics become their bytes.

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Diagnostics.h"
#include "tools/zorvex/games/CompilerSettings.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/games/SingleLogic.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct CompileOptions {
    std::string Target;
    std::string Which = "all";
    CompilerSettings Compiler;
    bool Check = false;
    bool AsJson = false;
    std::string Output;
    SingleLogicSettings Single;
    std::string Number = "0";
};

void Declare(Declaration& command, CompileOptions& options) {
    command.Option("target", options.Target, "A game, or a single source file").Required();
    command.Option("logic", options.Which, "Of a game: the number or ID of a logic, or all").ShowDefault();
    DeclareCompiler(command, options.Compiler);
    command.Flag("--check", options.Check, "Only report; nothing is changed");
    DeclareJson(command, options.AsJson);
    const std::string single = "Single file";
    command.Option("-o,--output", options.Output, "The file for the compiled bytes").Group(single);
    command.Option("--version", options.Single.Version, "The interpreter version to compile for")
        .Group(single)
        .ShowDefault();
    command.Option("--words", options.Single.Words, "The vocabulary, a WORDS.TOK file").Group(single);
    command.Option("--objects", options.Single.Objects, "The inventory, an OBJECT file").Group(single);
    command.Option("--number", options.Number, "The number that the logic is to have")
        .Group(single)
        .ShowDefault();
}

std::vector<std::shared_ptr<AGILogic>> ChosenLogics(AGIGame& game, const std::string& which) {
    std::vector<std::shared_ptr<AGILogic>> chosen;
    const bool isNumber = !which.empty() && which.find_first_not_of("0123456789") == std::string::npos;
    for (const auto& member : ByNumber(rtLogic)) {
        const bool fits =
            isNumber ? std::to_string(member->Number()) == which : EqualNoCase(member->ID(), which);
        if (fits || EqualNoCase(which, "all")) chosen.push_back(game.Logics().Item(member->Number()));
    }
    if (chosen.empty()) throw Error(ObjectErrorBase + 617, "zorvex", "the game has no logic '" + which + "'");
    return chosen;
}

/// Compiles logics one by one and keeps count.
class CompileReport {
  public:
    CompileReport(AGIGame& game, bool asJson) : game_(game), diagnostics_(game), asJson_(asJson) {}

    /// Loads, compiles and, if asked, saves a logic.
    void Compile(AGILogic& logic, bool save);
    int Finish();
    bool AllCompiled() const { return failed_ == 0; }

  private:
    void AddJson(AGILogic& logic, bool compiled, std::size_t first);

    AGIGame& game_;
    DiagnosticList diagnostics_;
    bool asJson_;
    Json logics_ = Json::array();
    std::size_t compiled_ = 0;
    std::size_t failed_ = 0;
};

void CompileReport::Compile(AGILogic& logic, bool save) {
    const std::size_t first = diagnostics_.All().size();
    bool compiled = false;
    const NamesSwitch names(game_, logic.InGame() && HasNoSource(logic));
    try {
        logic.Load();
        if (save) {
            logic.Compile();
        } else {
            CompileLogic(logic);
        }
        compiled = true;
    } catch (const Error& error) {
        diagnostics_.AddError(logic.Number(), error.Description());
    }
    ++(compiled ? compiled_ : failed_);
    if (asJson_) {
        AddJson(logic, compiled, first);
    } else {
        diagnostics_.Say(first);
    }
}

void CompileReport::AddJson(AGILogic& logic, bool compiled, std::size_t first) {
    Json json;
    json["number"] = logic.Number();
    json["id"] = logic.ID();
    json["compiled"] = compiled;
    json["size"] = compiled ? Json(logic.Size()) : Json(nullptr);
    json["diagnostics"] = Json::array();
    for (std::size_t i = first; i < diagnostics_.All().size(); ++i)
        json["diagnostics"].push_back(JsonOf(diagnostics_.All()[i]));
    logics_.push_back(std::move(json));
}

int CompileReport::Finish() {
    if (asJson_) {
        Json json;
        json["logics"] = std::move(logics_);
        json["errors"] = diagnostics_.Errors();
        json["warnings"] = diagnostics_.Warnings();
        PrintJson(json);
    } else {
        diagnostics_.SayRepeated();
        const std::string failed = AllCompiled() ? "" : ", " + std::to_string(failed_) + " failed";
        SayNote(Counted(compiled_, "logic") + " compiled" + failed + ": " +
                Counted(diagnostics_.Errors(), "error") + ", " + Counted(diagnostics_.Warnings(), "warning"));
    }
    return AllCompiled() ? exitDone : exitFailed;
}

int CompileInGame(const CompileOptions& options) {
    OpenedGame opened(options.Target, options.Check ? Access::Look : Access::Change);
    AGIGame& game = opened.Game();
    ApplyCompiler(game, options.Compiler);
    SayMissingLists(game);
    const NamesSwitch names(game, options.Compiler.Names);
    CompileReport report(game, options.AsJson);
    const auto logics = ChosenLogics(game, options.Which);
    {
        Progress progress("compiling", logics.size());
        for (std::size_t i = 0; i < logics.size(); ++i) {
            progress.Show(i, logics[i]->ID());
            report.Compile(*logics[i], !options.Check);
            logics[i]->Unload();
        }
    }
    if (!options.Check) game.SaveProperties();
    return report.Finish();
}

int CompileSingle(const CompileOptions& options) {
    if (options.Output.empty() && !options.Check) {
        throw UsageError("a single file needs -o OUTPUT or --check; to compile a game, name its directory");
    }
    SingleLogicSettings settings = options.Single;
    settings.File = options.Target;
    settings.Number = ParseNumber255(options.Number);
    SingleLogic single(settings);
    ApplyCompiler(single.Game(), options.Compiler);
    const NamesSwitch names(single.Game(), options.Compiler.Names);
    CompileReport report(single.Game(), options.AsJson);
    report.Compile(single.Logic(), false);
    if (report.AllCompiled() && !options.Check) {
        WriteBytes(options.Output, single.Logic().Resource().View());
    }
    return report.Finish();
}

int Run(const CompileOptions& options) {
    if (NamesGame(options.Target)) return CompileInGame(options);
    return CompileSingle(options);
}

}  // namespace

void AddCompileCommand(CommandLine& line) {
    AddCommand<CompileOptions>(
        line,
        {"compile",
         "Compiles the sources of logics. The game is changed, unless --check is given; a logic that\n"
         "fails keeps its bytes, and the others are compiled all the same.",
         "  zorvex compile mygame                       all logics\n"
         "  zorvex compile mygame 12 --level high       logic 12, doubtful source being an error\n"
         "  zorvex compile mygame all --check --json    what would be said, as JSON\n"
         "  zorvex compile room.txt --version 2.917 -o room.bin   a file outside any game"},
        Declare, Run);
}

}  // namespace zorvex::tool
