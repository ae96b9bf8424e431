// zorvex compile: diagnostics, exit statuses, and what it changes.
#include <nlohmann/json.hpp>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"

namespace zorvex::test {
namespace {

using nlohmann::json;

using CompileTool = ToolTest;

void WriteGame(const TempDir& dir) {
    GameBuilder game;
    for (const int number : {0, 1, 2})
        game.Add(rtLogic, number, SmallestLogic());
    game.WriteTo(dir);
    dir.Write("src/Logic0.lgc", "return();");
    dir.Write("src/Logic1.lgc", "set(f50);\r\n\tset(f0);\r\nreturn();");
    dir.Write("src/Logic2.lgc", "#include \"inc.txt\"\r\nreturn();");
    dir.Write("src/inc.txt", "[ remark\r\n  set(f51)\r\n");
}

TEST_F(CompileTool, CompilesWhatItCan) {
    WriteGame(game);
    const auto before = game.All();
    const ToolRun check = RunTool({"compile", game.Native(), "all", "--check"});
    EXPECT_EQ(check.Status, 1);
    EXPECT_EQ(game.All(), before);

    const ToolRun run = RunTool({"compile", game.Native()});
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Diagnostics, check.Diagnostics);
    EXPECT_EQ(run.Diagnostics,
              game.Native() +
                  "/src/Logic1.lgc:2: warning: 'onWater' is normally a read-only flag; changing it "
                  "could have unexpected results [5025]\n     set(f0);\n         ^\n" +
                  game.Native() +
                  "/src/inc.txt:2: error: 4007: ';' expected at end of statement\n"
                  "      set(f51)\n             ^\n"
                  "zorvex: 2 logics compiled, 1 failed: 1 error, 1 warning\n");
    EXPECT_NE(game.Read("VOL.0"), before.at("VOL.0"));

    const ToolRun one = RunTool({"compile", game.Native(), "logic1", "--ignore", "5025", "--json"});
    EXPECT_EQ(one.Status, 0);
    const json shown = json::parse(one.Output);
    EXPECT_EQ(shown["logics"].size(), 1U);
    EXPECT_EQ(shown["logics"][0]["compiled"], true);
    EXPECT_EQ(shown["warnings"], 0);
    EXPECT_EQ(StatusOf({"compile", game.Native(), "1", "--level", "low"}), 0);
    EXPECT_EQ(StatusOf({"compile", game.Native(), "9"}), 1);
    EXPECT_EQ(StatusOf({"compile", game.Native(), "1", "--ignore", "4007"}), 2);
    EXPECT_EQ(StatusOf({"compile", game.Native(), "1", "--level", "none"}), 2);
}

TEST_F(CompileTool, SaysWhichListIsMissing) {
    WriteGame(game);
    game.Write("src/Logic1.lgc", "if (said(1)) { set(f50); }\r\nreturn();");
    game.Write("WORDS.TOK", "x");
    game.Write("OBJECT", "x");
    for (const std::string command : {"compile", "build"}) {
        const std::string said = RunTool({command, game.Native()}).Diagnostics;
        EXPECT_TRUE(Has(said, "the vocabulary (WORDS.TOK) cannot be read: logics that use 'said'")) << said;
        EXPECT_TRUE(Has(said, "the inventory (OBJECT) cannot be read")) << said;
        EXPECT_TRUE(Has(said, "4162: The vocabulary (WORDS.TOK) is not available; argument 2")) << said;
    }
}

TEST_F(CompileTool, SaysOnceWhatAnIncludedFileGivesEveryLogic) {
    WriteGame(game);
    game.Write("src/Logic1.lgc", "#include \"inc.txt\"\r\nload.view(9);\r\nreturn();");
    game.Write("src/inc.txt", "#define here there\r\n");
    const ToolRun run = RunTool({"compile", game.Native(), "--check"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_TRUE(Has(run.Diagnostics, "[5022]"));
    EXPECT_EQ(run.Diagnostics.find("[5022]"), run.Diagnostics.rfind("[5022]"));
    EXPECT_TRUE(Has(run.Diagnostics, "1 message about included files came again"));
    EXPECT_EQ(
        RunTool({"verify", game.Native()}).Output,
        "logic 1: warning: source: line 2: Attempting to load a view that does not exist will cause AGI "
        "to crash\n0 errors, 1 warning\n");
}

TEST_F(CompileTool, CompilesTheTextItMadeOfALogicWithoutSource) {
    GameBuilder().Add(rtLogic, 0, ByteArray{5, 0, 105, 1, 2, 0, 0, 0, 2, 0}).WriteTo(game);
    EXPECT_EQ(RunTool({"verify", game.Native()}).Output, "0 errors, 0 warnings\n");
    EXPECT_EQ(RunTool({"compile", game.Native()}).Diagnostics,
              "zorvex: 1 logic compiled: 0 errors, 0 warnings\n");
    EXPECT_EQ(RunTool({"props", game.Native(), "useReservedNames"}).Output, "False\n");
}

TEST_F(CompileTool, CompilesASingleFile) {
    out.Write("room.txt", "#include \"inc.txt\"\nv50 = five;\nclear.lines(1, 2, RED);\nreturn();\n");
    out.Write("inc.txt", "#define five 5\n");
    const std::string source = Out("room.txt");
    const std::string output = Out("room.bin");
    for (const char* version : {"2.089", "3.002149"}) {
        const ToolRun run = RunTool({"compile", source, "--version", version, "--names", "-o", output});
        EXPECT_EQ(run.Status, 0) << run.Diagnostics;
        EXPECT_EQ(out.Read("room.bin"), (ByteArray{8, 0, 3, 50, 5, 105, 1, 2, 4, 0, 0, 2, 0}));
    }
    out.Remove("room.bin");
    const ToolRun failed = RunTool({"compile", source, "-o", output});
    EXPECT_EQ(failed.Status, 1);
    EXPECT_EQ(failed.Diagnostics.substr(0, source.size() + 15), source + ":3: error: 4063");
    EXPECT_TRUE(Has(failed.Diagnostics, "note: 'RED' is a reserved name"));
    EXPECT_FALSE(out.Exists("room.bin"));
    EXPECT_EQ(StatusOf({"compile", source}), 2);
    EXPECT_EQ(StatusOf({"compile", source, "--check", "--version", "2.5"}), 2);
    EXPECT_EQ(StatusOf({"compile", Out("none.txt"), "--check"}), 1);
}

}  // namespace
}  // namespace zorvex::test
