// zorvex decompile: compiled logics as source text.
#include <cstdio>
#include <optional>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

struct DecompileOptions {
    std::string Game;
    std::string Number = "all";
    std::string Output;
    std::string Level = "medium";
    bool SpecialSyntax = false;
    bool ReservedNames = false;
    bool ElseAsGoto = false;
    bool AllMessages = false;
    bool Json = false;
};

void Declare(Declaration& command, DecompileOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("number", options.Number, "The number of a logic, or all").ShowDefault();
    command.Option("-o,--output", options.Output,
                   "Write files named by ID to this directory instead of standard output");
    command
        .Option("--level", options.Level,
                "high refuses what is not right, medium repairs it and says so, low repairs it silently")
        .OneOf({"high", "medium", "low"})
        .ShowDefault();
    command.Flag("--special-syntax", options.SpecialSyntax, "Write v1 = 2 in place of assignn(v1, 2)");
    command.Flag("--reserved-names", options.ReservedNames, "Write names of variables, flags and resources");
    command.Flag("--else-as-goto", options.ElseAsGoto, "Write else blocks as jumps");
    command.Flag("--all-messages", options.AllMessages, "List all messages, not only those not used");
    DeclareJson(command, options.Json);
}

void ApplySettings(AGILogicSourceSettings& settings, const DecompileOptions& options) {
    settings.ErrorLevel(options.Level == "high" ? leHigh : options.Level == "low" ? leLow : leMedium);
    settings.SpecialSyntax(options.SpecialSyntax);
    settings.ElseAsGoto(options.ElseAsGoto);
    settings.ShowAllMessages(options.AllMessages);
    settings.ReservedAsText(options.ReservedNames);
    settings.UseReservedNames(options.ReservedNames);
}

/// The text with one kind of line end throughout; the decompiler's lines may hold some of their own.
std::string SourceOf(const DecodedLogic& logic, std::string_view lineEnd) {
    const std::string text = ReplaceAll(Join(logic.Lines, "\n") + "\n", "\r\n", "\n");
    return ReplaceAll(text, "\n", lineEnd);
}

/// A file name for an ID that never leads out of the directory.
std::string FileNameOf(const GameResource& logic, std::string_view extension) {
    std::string name = logic.ID() + std::string(extension);
    for (char& character : name) {
        if (character == '/' || character == '\\' || character == ':' || character == '\0') character = '_';
    }
    return name;
}

Json JsonOfLogic(const GameResource& member, const DecodedLogic& logic) {
    Json messages = Json::array();
    for (const DecodedMessage& message : logic.Messages) {
        messages.push_back({{"number", message.Number},
                            {"text", ConvertToCodePage(TextOfLiteral(message.Literal))},
                            {"used", message.Used}});
    }
    Json warnings = Json::array();
    for (const std::string& warning : logic.Warnings)
        warnings.push_back(ConvertToCodePage(warning));
    const std::string source = SourceOf(logic, "\n");
    return {{"number", member.Number()},
            {"id", member.ID()},
            {"lines", std::count(source.begin(), source.end(), '\n')},
            {"labels", logic.Labels.size()},
            {"messages", std::move(messages)},
            {"warnings", std::move(warnings)}};
}

class Decompiler {
  public:
    explicit Decompiler(const DecompileOptions& options) : options_(options) {}

    int Run() {
        OpenedGame game(options_.Game, Access::Look);
        const auto settings = game.Game().LogicSourceSettings();
        ApplySettings(*settings, options_);
        extension_ = settings->SourceExt();
        const std::vector<std::shared_ptr<GameResource>> members = Chosen();
        if (!options_.Output.empty()) MakeOutputDirectory(options_.Output);
        for (const auto& member : members) {
            try {
                Decompile(*member, members.size() > 1);
                ++done_;
            } catch (const Error& error) {
                Fail(*member, error);
            }
        }
        if (options_.Json) PrintJson(report_);
        if (options_.Number == "all") {
            SayNote(std::to_string(done_) + " logics decompiled, " + std::to_string(failed_) + " failed");
        }
        const bool allThere = options_.Number != "all" || !game.HasSkipped(rtLogic);
        return failed_ == 0 && allThere ? exitDone : exitFailed;
    }

  private:
    std::vector<std::shared_ptr<GameResource>> Chosen() const {
        if (options_.Number == "all") return ByNumber(rtLogic);
        const std::uint8_t number = ParseNumber255(options_.Number);
        const auto member = CollectionOf(rtLogic)->Find(number);
        if (!member) {
            throw Error(ObjectErrorBase + 617, "zorvex",
                        CatalogueText(617) + " (the game has no logic " + options_.Number + ")");
        }
        return {member};
    }

    void Decompile(GameResource& member, bool oneOfMany) {
        member.Resource().Load();
        const DecodedLogic logic = Decoded(member.Resource().View());
        member.Resource().Unload();
        if (!options_.Output.empty()) {
            const std::string source = SourceOf(logic, "\r\n");
            WriteBytes(fs::path(options_.Output) / FileNameOf(member, extension_),
                       ByteArray(source.begin(), source.end()));
        }
        if (options_.Json) {
            report_.push_back(JsonOfLogic(member, logic));
            if (options_.Output.empty()) report_.back()["source"] = ConvertToCodePage(SourceOf(logic, "\n"));
        } else if (options_.Output.empty()) {
            Print(member, logic, oneOfMany);
        }
    }

    /// A text that the compiler takes back: long messages go on in the next line where that can be.
    static DecodedLogic Decoded(ByteView bytes) {
        DecodeSettings settings = PresentDecodeSettings();
        DecodedLogic logic = DecodeLogic(bytes, settings, PresentDecodeNames());
        if (!logic.CutsEscape) return logic;
        settings.WrapWidth = 0;
        return DecodeLogic(bytes, settings, PresentDecodeNames());
    }

    static void Print(const GameResource& member, const DecodedLogic& logic, bool withTitle) {
        std::string text = ConvertToCodePage(SourceOf(logic, "\n"));
        if (withTitle)
            text = "[ --- " + std::to_string(member.Number()) + ": " + member.ID() + "\n" + text + "\n";
        std::fwrite(text.data(), 1, text.size(), stdout);
    }

    void Fail(GameResource& member, const Error& error) {
        ++failed_;
        if (member.Resource().Loaded()) member.Resource().Unload();
        SayError(member.ID(), error);
        if (options_.Json) {
            report_.push_back({{"number", member.Number()}, {"id", member.ID()}, {"error", JsonOf(error)}});
        }
    }

    const DecompileOptions& options_;
    std::string extension_;
    Json report_ = Json::array();
    int done_ = 0;
    int failed_ = 0;
};

int RunDecompile(const DecompileOptions& options) {
    return Decompiler(options).Run();
}

}  // namespace

void AddDecompileCommand(CommandLine& line) {
    AddCommand<DecompileOptions>(
        line,
        {"decompile", "Writes compiled logics as source text.",
         "  zorvex decompile mygame 5                      logic 5 on standard output\n"
         "  zorvex decompile mygame all -o src             all logics as files such as src/Logic5.lgc\n"
         "  zorvex decompile mygame 5 --special-syntax --reserved-names\n"
         "  zorvex decompile mygame all -o src --json      and a report for a program"},
        Declare, RunDecompile);
}

}  // namespace zorvex::tool
