// Cases of the compiler: sources in, code or diagnostics out, at each of the three levels.
//
// The section "expected" holds sources, each with its results: "source ==> result", and further results on
// lines that begin with "==> ". In a source "<nl>" ends a line and "<09>" is a tab; "return();" is added on a
// line of its own unless the source ends in "<end>". A result begins with the levels that give it: "high",
// "medium", "low" or "all". A level without diagnostics gives nothing, and with the setting "show = code" the
// bytes of its code and its messages. Other settings: logic, names (on: reserved names count), version. The
// section "globals" is globals.txt, a section "file NAME" an include file.
#include "tests/support/CaseFile.h"
#include "tests/support/ScratchGame.h"

namespace zorvex::test {

namespace {

using Output = std::vector<std::string>;

/// A line of the input as the source that it stands for.
std::string SourceOf(std::string line) {
    line = line.ends_with("<end>") ? line.substr(0, line.size() - 5) : line + "<nl>return();";
    return ReplaceAll(ReplaceAll(line, "<nl>", "\n"), "<09>", "\t");
}

Output CompileAt(LogicErrorLevel level, ScratchGame& game, const CaseFile& file, const std::string& source) {
    const auto logic = static_cast<std::uint8_t>(std::stoi(file.Setting("logic", "1")));
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
    return output;
}

/// Each line with the levels that give it, in the order of the first that does.
std::string ShowLevels(std::string_view source, const std::array<Output, 3>& outputs) {
    constexpr std::array<std::string_view, 3> names{"high", "medium", "low"};
    std::vector<std::pair<std::string, std::string>> rows;  // a line and its levels
    for (std::size_t level = 0; level < outputs.size(); ++level) {
        for (const std::string& line : outputs[level]) {
            const auto known = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
                return row.first == line && !row.second.ends_with(names[level]);
            });
            if (known == rows.end())
                rows.emplace_back(line, names[level]);
            else
                known->second.append("+").append(names[level]);
        }
    }
    std::string text(source);
    std::size_t width = text.size();
    for (const auto& [line, levels] : rows) {
        const std::string result = "==> " + (levels == "high+medium+low" ? "all" : levels) + " " +
                                   ReplaceAll(line, "\r\n", "<0D><0A>");
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
