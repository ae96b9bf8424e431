// zorvex build: a game's files made anew.
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Diagnostics.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/CompilerSettings.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/storage/GameFileNames.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

struct BuildOptions {
    std::string Game;
    std::string Output;
    std::int32_t MaxVol0 = 0;
    bool RebuildOnly = false;
    bool KeepGoing = false;
    CompilerSettings Compiler;
    bool Json = false;
};

void Declare(Declaration& command, BuildOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("-o,--output", options.Output,
                   "A directory for the new game; without it the game itself is built and its former files "
                   "stay as .OLD");
    command.Flag("--rebuild-only", options.RebuildOnly, "Only pack the resources; compile nothing");
    command.Flag("-k,--keep-going", options.KeepGoing,
                 "Write the game without the resources that fail; otherwise nothing is written then");
    command.Option("--max-vol0", options.MaxVol0,
                   "Fill volume 0 no further than this many bytes (32768 or more)");
    DeclareCompiler(command, options.Compiler);
    DeclareJson(command, options.Json);
}

std::atomic<bool> interrupted = false;

/// While it lives, an interrupt from the keyboard asks the build to stop instead of ending the program.
class InterruptGuard {
  public:
    InterruptGuard() {
        interrupted = false;
        before_ = std::signal(SIGINT, [](int) { interrupted = true; });
    }
    ~InterruptGuard() { std::signal(SIGINT, before_); }
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

  private:
    void (*before_)(int);
};

std::size_t ResourceCount() {
    std::size_t count = 0;
    for (const AGIResType type : listedTypes)
        count += static_cast<std::size_t>(CollectionOf(type)->Count());
    return count;
}

/// Follows a build through its events.
class BuildReport {
  public:
    BuildReport(AGIGame& game, const BuildOptions& options)
        : game_(game),
          options_(options),
          diagnostics_(game),
          progress_("Building", ResourceCount()),
          subscription_(game.GameEvents().CompileGameStatus.Subscribe(
              [this](ECStatus status, AGIResType type, std::uint8_t number, const std::string& text) {
                  Take(status, type, number, text);
              })) {}

    bool Canceled() const { return canceled_; }
    /// Whether it was canceled because something had failed.
    bool Refused() const { return refused_; }
    std::size_t Added() const { return started_ - failed_; }
    std::size_t Failed() const { return failed_; }
    const DiagnosticList& Diagnostics() const { return diagnostics_; }
    const std::vector<std::string>& Problems() const { return problems_; }

    void Say() {
        diagnostics_.Say();
        diagnostics_.SayRepeated();
        for (const std::string& problem : problems_)
            SayError(problem);
        for (const std::string& warning : warnings_)
            SayWarning(warning);
    }

  private:
    void Take(ECStatus status, AGIResType type, std::uint8_t number, const std::string& text) {
        const std::string name = TypeName(type) + " " + std::to_string(number);
        switch (status) {
            case csAddResource:
                progress_.Show(started_++, name);
                SwitchNames(type, number);
                break;
            case csLogicError:
                diagnostics_.AddError(number, text);
                ++failed_;
                break;
            case csResError:
                problems_.push_back(text.starts_with("Error") ? text : name + ": " + text);
                if (!text.starts_with("Error")) ++failed_;
                break;
            case csWarning: warnings_.push_back(name + ": " + Split(text, "|")[1]); break;
            // The last moment at which the former game can stay as it is.
            case csDoneAdding: refused_ = !options_.KeepGoing && (failed_ > 0 || !problems_.empty()); break;
            case csCanceled: canceled_ = true; break;
            default: break;
        }
        if (interrupted || refused_) game_.CancelCompile();
    }

    void SwitchNames(AGIResType type, std::uint8_t number) {
        names_.reset();
        const bool isNew = type == rtLogic && HasNoSource(*game_.Logics().Item(number));
        names_.emplace(game_, !options_.RebuildOnly && (options_.Compiler.Names || isNew));
    }

    AGIGame& game_;
    const BuildOptions& options_;
    std::optional<NamesSwitch> names_;
    DiagnosticList diagnostics_;
    Progress progress_;
    std::vector<std::string> problems_;
    std::vector<std::string> warnings_;
    std::size_t started_ = 0;
    std::size_t failed_ = 0;
    bool canceled_ = false;
    bool refused_ = false;
    Subscription subscription_;
};

/// What a build into another directory does not write there by itself.
void CopyCompanions(const OpenedGame& opened, const fs::path& target, bool rebuildOnly) {
    std::vector<std::string> names{JustFileName(opened.Game().GameFile())};
    if (rebuildOnly) names.insert(names.end(), {"WORDS.TOK", "OBJECT"});
    const std::string from = InnerPath(opened.Directory().string()) + "\\";
    const std::string to = InnerPath(target.string()) + "\\";
    for (const std::string& name : names) {
        if (Files().Kind(from + name) == FileKind::File) Files().Copy(from + name, to + name);
    }
}

/// Volumes and bytes of the game in a directory.
Json VolumesIn(const fs::path& directory, const OpenedGame& opened) {
    std::uint64_t bytes = 0;
    int volumes = 0;
    for (std::int32_t n = 0; n <= HighestVolume(opened.IsV3()); ++n) {
        const std::string path =
            InnerPath(directory.string()) + "\\" + VolumeName(n, opened.IsV3(), opened.Game().GameID());
        if (Files().Kind(path) != FileKind::File) continue;
        ++volumes;
        bytes += Files().Size(path);
    }
    return {{"volumes", volumes}, {"bytes", bytes}};
}

/// A canceled build leaves the volumes it had begun.
void RemoveBegunVolumes(const fs::path& directory) {
    for (int n = 0; n < 16; ++n) {
        std::error_code ignored;
        fs::remove(directory / ("NEW_VOL." + std::to_string(n)), ignored);
    }
}

Json Summary(const BuildReport& report, Json volumes, double seconds) {
    Json summary{{"resources", report.Added()}, {"failed", report.Failed()}, {"canceled", report.Canceled()}};
    summary.update(volumes);
    summary["seconds"] = seconds;
    summary["problems"] = report.Problems();
    summary["diagnostics"] = Json::array();
    for (const Diagnostic& diagnostic : report.Diagnostics().All())
        summary["diagnostics"].push_back(JsonOf(diagnostic));
    return summary;
}

void PrintSummary(const Json& summary) {
    ClearProgressLine();
    std::printf("%s in %s, %zu bytes, %.2f s\n",
                Counted(summary["resources"].get<std::size_t>(), "resource").c_str(),
                Counted(summary["volumes"].get<std::size_t>(), "volume").c_str(),
                summary["bytes"].get<std::size_t>(), summary["seconds"].get<double>());
    const auto failed = summary["failed"].get<std::size_t>();
    if (failed != 0) std::printf("%s failed\n", Counted(failed, "resource").c_str());
}

int Run(const BuildOptions& options) {
    const bool elsewhere = !options.Output.empty();
    if (options.MaxVol0 != 0 && options.MaxVol0 < 32768) throw UsageError("--max-vol0 takes 32768 or more");
    OpenedGame opened(options.Game, elsewhere ? Access::Look : Access::Change);
    AGIGame& game = opened.Game();
    if (options.MaxVol0 > 0) game.MaxVol0Size(options.MaxVol0);
    fs::path target = opened.Directory();
    if (elsewhere) {
        MakeOutputDirectory(options.Output);
        target = fs::absolute(options.Output);
    }

    const InterruptGuard guard;
    BuildReport report(game, options);
    ApplyCompiler(game, options.Compiler);
    if (!options.RebuildOnly) SayMissingLists(opened.Game());
    const auto start = std::chrono::steady_clock::now();
    game.CompileGame(options.RebuildOnly, elsewhere ? target.string() : "");
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    if (elsewhere && !report.Canceled()) CopyCompanions(opened, target, options.RebuildOnly);

    report.Say();
    const Json summary = Summary(report, VolumesIn(target, opened), seconds.count());
    if (options.Json) PrintJson(summary);
    if (report.Canceled()) {
        RemoveBegunVolumes(target);
        SayNote(report.Refused()
                    ? Counted(report.Failed(), "resource") +
                          " failed and nothing was written; --keep-going writes the game without what fails"
                    : "canceled; the game is as it was");
        return exitFailed;
    }
    if (!options.Json) PrintSummary(summary);
    return report.Failed() == 0 && report.Problems().empty() ? exitDone : exitFailed;
}

}  // namespace

void AddBuildCommand(CommandLine& line) {
    AddCommand<BuildOptions>(line,
                             {"build", "Compiles a game and writes all its files anew, packed without gaps.",
                              "  zorvex build mygame                      compile and pack the game itself\n"
                              "  zorvex build mygame -o release           the same into another directory\n"
                              "  zorvex build mygame --rebuild-only       only pack the volumes\n"
                              "  zorvex build mygame -o release -k        leave out what does not compile"},
                             Declare, Run);
}

}  // namespace zorvex::tool
