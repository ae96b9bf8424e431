// Compiling, in lines of source a second. The aim is over a million lines a second on source as games have
// it, at leMedium with warnings on. Beside it a walk over the same text that only counts its lines.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "tests/support/ScratchGame.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/LibraryState.h"

namespace {

using namespace zorvex;

/// Some lines of a room, as authors write them, that give a warning or two.
constexpr std::string_view roomPart =
    "// ******************************************************************\n"
    "// What happens when the player walks about\n"
    "if (isset(f5)) {\n"
    "  load.pic(v0);          // the room's own picture\n"
    "  draw.pic(v0);\n"
    "  discard.pic(v0);\n"
    "  set.horizon(60);\n"
    "  animate.obj(o1);\n"
    "  set.view(o1, lamp_view);\n"
    "  position(o1, 80, 120);\n"
    "  show.pic();\n"
    "}\n"
    "\n"
    "if (said(\"look\", \"rol\") && !isset(lamp_lit)) {\n"
    "  print(\"It is too dark to see anything here.\");\n"
    "}\n"
    "else {\n"
    "  if ((progress == 3 || progress > 7) && posn(o0, 10, 20, 30, 40)) {\n"
    "    progress += 1;   [ one step on\n"
    "    v20 = 5;\n"
    "    set(lamp_lit);\n"
    "  }\n"
    "}\n"
    "move.obj(o1, 80, 120, 1, done_flag);\n"
    "get(\"lamp\");\n";

std::string Room(std::int64_t lines) {
    std::string text =
        "#define lamp_view 1\n#define lamp_lit f60\n#define progress v60\n#define done_flag f61\n";
    std::int64_t count = 4;
    while (count < lines) {
        text += roomPart;
        count += std::count(roomPart.begin(), roomPart.end(), '\n');
    }
    return text + "return();\n";
}

std::int64_t LinesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

/// Compiles a text again and again.
void Run(benchmark::State& state, const std::string& text) {
    test::ScratchGame game;
    game.Settings().ErrorLevel(leMedium);
    std::size_t warnings = 0;
    const auto heard =
        Library().Events->LogCompWarning.Subscribe([&](const std::string&, std::uint8_t) { ++warnings; });
    const auto logic = game.Logic(1);
    logic->Load();
    logic->SourceText(text);
    for (auto _ : state)
        CompileLogic(*logic);
    state.SetItemsProcessed(state.iterations() * LinesOf(text));
    state.counters["warnings"] = static_cast<double>(warnings) / static_cast<double>(state.iterations());
}

void CountLines(benchmark::State& state) {
    const std::string text = Room(1000);
    for (auto _ : state) {
        std::int64_t lines = 0;
        for (const char c : text)
            lines += c == '\n' ? 1 : 0;
        benchmark::DoNotOptimize(lines);
    }
    state.SetItemsProcessed(state.iterations() * LinesOf(text));
}
BENCHMARK(CountLines);

void CompileRooms(benchmark::State& state) {
    Run(state, Room(state.range(0)));
}
BENCHMARK(CompileRooms)->ArgName("lines")->Arg(100)->Arg(1000)->Arg(4000);

void CompileDefines(benchmark::State& state) {
    std::string text;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        text += "#define name_" + std::to_string(i) + " v" + std::to_string(27 + i % 200) + "\n";
    Run(state, text + "name_5 = name_6;\nreturn();\n");
}
BENCHMARK(CompileDefines)->ArgName("defines")->Arg(1000);

}  // namespace
