// zorvex compile: diagnostics, exit statuses, and what it changes.
#include <nlohmann/json.hpp>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"
#include "tests/support/TestFiles.h"

namespace zorvex {
namespace {

using nlohmann::json;
using test::RunTool;
using test::TempDir;
using test::ToolRun;

void WriteGame(const TempDir& dir) {
    test::GameBuilder game;
    for (const int number : {0, 1, 2})
        game.Add(rtLogic, number, test::SmallestLogic());
    game.WriteTo(dir);
    dir.Write("src/Logic0.lgc", "return();");
    dir.Write("src/Logic1.lgc", "set(f50);\r\n\tset(f0);\r\nreturn();");
    dir.Write("src/Logic2.lgc", "#include \"inc.txt\"\r\nreturn();");
    dir.Write("src/inc.txt", "[ remark\r\n  set(f51)\r\n");
}

TEST(CompileTool, CompilesWhatItCan) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    WriteGame(dir);
    const auto before = dir.All();
    const ToolRun check = RunTool({"compile", dir.Native(), "all", "--check"});
    EXPECT_EQ(check.Status, 1);
    EXPECT_EQ(dir.All(), before);

    const ToolRun run = RunTool({"compile", dir.Native()});
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Diagnostics, check.Diagnostics);
    EXPECT_EQ(run.Diagnostics,
              dir.Native() +
                  "/src/Logic1.lgc:2: warning: 'onWater' is normally a read-only flag; changing it "
                  "could have unexpected results [5025]\n     set(f0);\n         ^\n" +
                  dir.Native() +
                  "/src/inc.txt:2: error: 4007: ';' expected at end of statement\n"
                  "      set(f51)\n             ^\n"
                  "zorvex: 2 logics compiled, 1 failed: 1 error, 1 warning\n");
    EXPECT_NE(dir.Read("VOL.0"), before.at("VOL.0"));

    const ToolRun one = RunTool({"compile", dir.Native(), "logic1", "--ignore", "5025", "--json"});
    EXPECT_EQ(one.Status, 0);
    const json shown = json::parse(one.Output);
    EXPECT_EQ(shown["logics"].size(), 1U);
    EXPECT_EQ(shown["logics"][0]["compiled"], true);
    EXPECT_EQ(shown["warnings"], 0);
    EXPECT_EQ(RunTool({"compile", dir.Native(), "1", "--level", "low"}).Status, 0);
    EXPECT_EQ(RunTool({"compile", dir.Native(), "9"}).Status, 1);
    EXPECT_EQ(RunTool({"compile", dir.Native(), "1", "--ignore", "4007"}).Status, 2);
    EXPECT_EQ(RunTool({"compile", dir.Native(), "1", "--level", "none"}).Status, 2);
}

TEST(CompileTool, SaysOnceWhatAnIncludedFileGivesEveryLogic) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    WriteGame(dir);
    dir.Write("src/Logic1.lgc", "#include \"inc.txt\"\r\nload.view(9);\r\nreturn();");
    dir.Write("src/inc.txt", "#define here there\r\n");
    const ToolRun run = RunTool({"compile", dir.Native(), "--check"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_NE(run.Diagnostics.find("[5022]"), std::string::npos);
    EXPECT_EQ(run.Diagnostics.find("[5022]"), run.Diagnostics.rfind("[5022]"));
    EXPECT_NE(run.Diagnostics.find("1 message about included files came again"), std::string::npos);
    EXPECT_EQ(
        RunTool({"verify", dir.Native()}).Output,
        "logic 1: warning: source: line 2: Attempting to load a view that does not exist will cause AGI "
        "to crash\n0 errors, 1 warning\n");
}

TEST(CompileTool, CompilesTheTextItMadeOfALogicWithoutSource) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    test::GameBuilder game;
    game.Add(rtLogic, 0, ByteArray{5, 0, 105, 1, 2, 0, 0, 0, 2, 0});
    game.WriteTo(dir);
    EXPECT_EQ(RunTool({"verify", dir.Native()}).Output, "0 errors, 0 warnings\n");
    EXPECT_EQ(RunTool({"compile", dir.Native()}).Diagnostics,
              "zorvex: 1 logic compiled: 0 errors, 0 warnings\n");
    EXPECT_EQ(RunTool({"props", dir.Native(), "useReservedNames"}).Output, "False\n");
}

TEST(CompileTool, CompilesASingleFile) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    dir.Write("room.txt", "#include \"inc.txt\"\nv50 = five;\nclear.lines(1, 2, RED);\nreturn();\n");
    dir.Write("inc.txt", "#define five 5\n");
    const std::string source = dir.Native() + "/room.txt";
    const std::string output = dir.Native() + "/room.bin";
    for (const char* version : {"2.089", "3.002149"}) {
        const ToolRun run = RunTool({"compile", source, "--version", version, "--names", "-o", output});
        EXPECT_EQ(run.Status, 0) << run.Diagnostics;
        EXPECT_EQ(dir.Read("room.bin"), (ByteArray{8, 0, 3, 50, 5, 105, 1, 2, 4, 0, 0, 2, 0}));
    }
    dir.Remove("room.bin");
    const ToolRun failed = RunTool({"compile", source, "-o", output});
    EXPECT_EQ(failed.Status, 1);
    EXPECT_EQ(failed.Diagnostics.substr(0, source.size() + 15), source + ":3: error: 4063");
    EXPECT_NE(failed.Diagnostics.find("note: 'RED' is a reserved name"), std::string::npos);
    EXPECT_FALSE(dir.Exists("room.bin"));
    EXPECT_EQ(RunTool({"compile", source}).Status, 2);
    EXPECT_EQ(RunTool({"compile", source, "--check", "--version", "2.5"}).Status, 2);
    EXPECT_EQ(RunTool({"compile", dir.Native() + "/none.txt", "--check"}).Status, 1);
}

}  // namespace
}  // namespace zorvex
