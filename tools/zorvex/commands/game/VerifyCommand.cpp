// zorvex verify: every fault of a game in one list.
#include <algorithm>
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Diagnostics.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/CompilerSettings.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/logic/LogCompile.h"

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

/// A fault is an error when a player would meet it, else a warning.
struct Fault {
    bool isError;
    std::string where;
    std::string text;
};

/// The compiler's warnings of what stops an interpreter: commands on resources that the game lacks, divisions
/// by zero and the like.
constexpr int stoppers[] = {5010, 5013, 5014, 5015, 5024, 5030, 5037, 5040, 5053, 5061,
                            5064, 5076, 5084, 5085, 5086, 5089, 5091, 5103, 5107};

class Verification {
  public:
    explicit Verification(OpenedGame& opened) : game_(opened.Game()), diagnostics_(opened.Game()) {
        ApplyCompiler(opened.Game(), CompilerSettings());
        for (const std::string& warning : opened.Warnings())
            faults_.push_back({true, "game", warning});
    }

    void Run() {
        if (!game_.Logics().Exists(0)) {
            faults_.push_back({true, "game", "there is no logic 0, which an interpreter runs first"});
        }
        std::size_t total = 0;
        for (const AGIResType type : listedTypes)
            total += static_cast<std::size_t>(CollectionOf(type)->Count());
        Progress progress("Verifying", total);
        std::size_t done = 0;
        for (const AGIResType type : listedTypes) {
            for (const auto& member : ByNumber(type)) {
                progress.Show(done++, NameOf(*member));
                Check(*member);
            }
        }
    }

    const std::vector<Fault>& Faults() const { return faults_; }

  private:
    static std::string NameOf(const GameResource& resource) {
        return TypeName(resource.ResType()) + " " + std::to_string(resource.Number());
    }

    void Add(bool isError, const GameResource& resource, const std::string& text) {
        faults_.push_back({isError, NameOf(resource), ShownText(text)});
    }

    void Check(GameResource& resource) {
        try {
            resource.Resource().Load();
            switch (resource.ResType()) {
                case rtLogic: CheckLogic(static_cast<AGILogic&>(resource)); break;
                case rtPicture: CheckPicture(static_cast<AGIPicture&>(resource)); break;
                case rtSound: static_cast<AGISound&>(resource).Load(); break;
                default: static_cast<AGIView&>(resource).Load(); break;
            }
        } catch (const Error& error) {
            Add(true, resource, "error " + std::to_string(ShownNumber(error)) + ": " + error.Description());
        }
        if (resource.Loaded()) resource.Unload();
    }

    void CheckPicture(AGIPicture& picture) {
        picture.Load();
        const std::int32_t level = picture.BMPErrLevel();
        if (level >= 8)
            Add(true, picture,
                "the picture cannot be drawn to its end (error level " + std::to_string(level) + ")");
        if (level > 0 && level < 8) {
            Add(false, picture,
                "the picture has anomalies but can be drawn (error level " + std::to_string(level) + ")");
        }
    }

    /// The bytes must decompile; the source, or what was decompiled, must compile.
    void CheckLogic(AGILogic& logic) {
        DecodeLogic(logic.Resource().View(), PresentDecodeSettings(), PresentDecodeNames());
        const NamesSwitch names(game_, HasNoSource(logic));
        logic.Load();
        const std::size_t before = diagnostics_.All().size();
        try {
            CompileLogic(logic);
        } catch (const Error& error) {
            diagnostics_.AddError(logic.Number(), error.Description());
        }
        for (std::size_t i = before; i < diagnostics_.All().size(); ++i)
            AddDiagnostic(logic, diagnostics_.All()[i]);
    }

    // A source that does not compile is the author's trouble: the player has the bytes. What may stop the
    // interpreter stands perhaps where no player gets to.
    void AddDiagnostic(const AGILogic& logic, const Diagnostic& diagnostic) {
        const std::string place = diagnostic.Line > 0 ? "line " + std::to_string(diagnostic.Line) + ": " : "";
        const bool told = diagnostic.IsError || std::find(std::begin(stoppers), std::end(stoppers),
                                                          diagnostic.Number) != std::end(stoppers);
        if (told) Add(false, logic, "source: " + place + diagnostic.Text);
    }

    AGIGame& game_;
    DiagnosticList diagnostics_;
    std::vector<Fault> faults_;
};

void Print(const std::vector<Fault>& faults) {
    for (const Fault& fault : faults) {
        std::printf("%s: %s: %s\n", fault.where.c_str(), fault.isError ? "error" : "warning",
                    fault.text.c_str());
    }
}

int Run(const VerifyOptions& options) {
    OpenedGame opened(options.Game, Access::Look);
    Verification verification(opened);
    verification.Run();
    const std::vector<Fault>& faults = verification.Faults();
    const auto errors =
        std::count_if(faults.begin(), faults.end(), [](const Fault& fault) { return fault.isError; });
    if (options.Json) {
        Json list = Json::array();
        for (const Fault& fault : faults) {
            list.push_back({{"severity", fault.isError ? "error" : "warning"},
                            {"where", fault.where},
                            {"text", fault.text}});
        }
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
