// Cases of the compiler: sources in, code or diagnostics out, at each of the three levels.
//
// The section "expected" holds sources, each with its results: "source ==> result", and further results on
// lines that begin with "==> ". In a source "<nl>" ends a line and "<02>" is the byte of that hexadecimal
// value; "return();" is added on a line of its own unless the source ends in "<end>". A result begins with
// the levels that give it: "high", "medium", "low" or "all". A level without diagnostics gives nothing, and
// with the setting "show = code" the bytes of its code and its messages. Other settings: logic, names (on:
// reserved names count), version. The section "globals" is globals.txt, a section "file NAME" an include
// file.
//
// Whatever compiles is also decompiled and compiled again, and must decompile to the same text.
#include "tests/support/CaseFile.h"
#include "tests/support/ScratchGame.h"
#include "zorvex/game/Error.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/logic/LogDecode.h"
#include "zorvex/logic/StringList.h"

namespace zorvex::test {

namespace {

using Output = std::vector<std::string>;

/// A line of the input as the source that it stands for.
std::string SourceOf(std::string line) {
    constexpr std::string_view endMark = "<end>";
    const bool ends = line.ends_with(endMark);
    line = ends ? line.substr(0, line.size() - endMark.size()) : line + "<nl>return();";
    line = ReplaceAll(line, "<nl>", "\n");
    for (std::size_t at = line.find('<'); at != std::string::npos; at = line.find('<', at + 1)) {
        if (at + 3 >= line.size() || line[at + 3] != '>') continue;
        const auto byte = ParseLong("&H" + line.substr(at + 1, 2));
        if (byte) line.replace(at, 4, 1, static_cast<char>(*byte));
    }
    return line;
}

/// "" when the compiled logic, decompiled and compiled again, decompiles to the same text.
std::string RoundTrip(ScratchGame& game, std::uint8_t logic) {
    game.Settings().ErrorLevel(leLow);
    const bool names = std::exchange(Library().UseReservedNames, true);  // colours come out as names
    std::string fault;
    try {
        const std::string text = DecodeLogic(game.Logic(logic)->AllData())->Text("\r");
        const auto again = game.Compile(ConvertToCodePage(text), logic);
        const std::string secondText = DecodeLogic(game.Logic(logic)->AllData())->Text("\r");
        if (!again.error.empty()) {
            fault = "not compiled again: " + again.error;
        } else if (secondText != text) {
            fault = "decompiled again as " + ReplaceAll(secondText, "\r", "<0D>");
        }
    } catch (const Error& error) {
        fault = "not decompiled: " + error.Description();
    }
    Library().UseReservedNames = names;
    return fault;
}

Output CompileAt(LogicErrorLevel level, ScratchGame& game, const CaseFile& file, const std::string& source) {
    const auto logic = static_cast<std::uint8_t>(file.Number("logic", 1));
    game.Settings().ErrorLevel(level);
    const ScratchGame::Result result = game.Compile(source, logic);
    Output output = result.warnings;
    if (!result.error.empty()) {
        output.push_back(result.error);
        return output;
    }
    if (file.Setting("show") == "code") {
        output.push_back("code " + TextOfBytes(result.code));
        for (const std::string& message : result.messages)
            output.push_back("message " + message);
    }
    if (file.Setting("round-trip", "on") == "on") {
        const std::string fault = RoundTrip(game, logic);
        if (!fault.empty()) output.push_back(fault);
    }
    return output;
}

/// Each line with the levels that give it, in the order of the first that does.
std::string ShowLevels(std::string_view source, const std::array<Output, 3>& outputs) {
    constexpr std::array<std::string_view, 3> names{"high", "medium", "low"};
    struct Row {
        std::string line;
        std::vector<std::size_t> levels;
    };
    std::vector<Row> rows;
    for (std::size_t level = 0; level < outputs.size(); ++level) {
        for (const std::string& line : outputs[level]) {
            const auto known = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
                return row.line == line && row.levels.back() != level;
            });
            if (known == rows.end())
                rows.push_back({line, {level}});
            else
                known->levels.push_back(level);
        }
    }
    std::string text(source);
    std::size_t width = text.size();
    for (const Row& row : rows) {
        std::string levels(names[row.levels.front()]);
        for (std::size_t i = 1; i < row.levels.size(); ++i)
            levels += "+" + std::string(names[row.levels[i]]);
        if (row.levels.size() == outputs.size()) levels = "all";
        const std::string result = "==> " + levels + " " + ReplaceAll(row.line, "\r\n", "<0D><0A>");
        text += (width + result.size() < 160 ? " " : "\n") + result;
        width = 160;
    }
    return text + "\n";
}

void PrepareGame(ScratchGame& game, const CaseFile& file) {
    game.Version(file.Setting("version", "2.917"));
    Library().UseReservedNames = file.Setting("names") == "on";
    Library().GameAbout = "A test";
    game.Files().Write(std::string(ScratchGame::GameDir) + "globals.txt",
                       TextToBytes(file.Section("globals")));
    for (const std::string_view name : {"inc.txt", "inc2.txt"}) {
        const std::string section = "file " + std::string(name);
        if (file.Has(section)) game.Write(name, TextToGame(SourceOf(file.Section(section) + "<end>")));
    }
}

std::string RunSources(const CaseFile& file) {
    std::string output;
    for (const std::string& line : Split(file.Section("expected"), "\n")) {
        if (line.empty() || line.starts_with("==> ")) continue;
        const std::string text = line.substr(0, line.find(" ==> "));
        ScratchGame game;
        PrepareGame(game, file);
        const std::string source = SourceOf(text);
        std::array<Output, 3> outputs;
        for (const LogicErrorLevel level : {leHigh, leMedium, leLow})
            outputs[level] = CompileAt(level, game, file, source);
        output += ShowLevels(text, outputs);
    }
    return output;
}

}  // namespace

TEST(CompileCases, AllLevels) {
    RunCases("compile", RunSources);
}

}  // namespace zorvex::test
