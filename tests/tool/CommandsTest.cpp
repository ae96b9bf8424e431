// What all commands of the tool have in common, and the commands that show and edit a game as a whole.
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"
#include "tests/support/TestFiles.h"

namespace zorvex {
namespace {

using nlohmann::json;
using test::GameBuilder;
using test::RunTool;
using test::TempDir;
using test::ToolRun;

/// A game of a few resources of each kind.
GameBuilder SmallGame(const std::string& v3ID = {}) {
    GameBuilder game(v3ID);
    game.Add(rtLogic, 0, test::SmallestLogic());
    game.Add(rtPicture, 5, {0xF0, 4, 0xF8, 10, 10, 0xFF});
    game.Add(rtView, 2, test::SmallestView());
    game.Add(rtSound, 1, test::SilentSound());
    return game;
}

json ListOf(const std::string& directory) {
    const ToolRun run = RunTool({"list", directory, "--json"});
    return run.Status == 0 ? json::parse(run.Output) : json();
}

/// The rows of a list without their places.
std::map<std::string, std::string> SumsOf(const json& list) {
    std::map<std::string, std::string> sums;
    for (const json& row : list) {
        sums[row["type"].get<std::string>() + row["number"].dump()] = row.value("crc32", "error");
    }
    return sums;
}

std::vector<std::string> CommandNames() {
    std::vector<std::string> names;
    std::istringstream help(RunTool({"--help"}).Output);
    bool inCommands = false;
    for (std::string line; std::getline(help, line);) {
        if (inCommands && line.starts_with("  ") && line.size() > 2 && line[2] != ' ') {
            names.push_back(line.substr(2, line.find(' ', 2) - 2));
        }
        if (line.starts_with("Subcommands:")) inCommands = true;
    }
    return names;
}

TEST(Tool, HelpsWithEveryCommandAndRefusesWrongUse) {
    SKIP_WITHOUT_TOOL();
    const std::vector<std::string> names = CommandNames();
    ASSERT_GE(names.size(), 14U);
    for (const std::string& name : names) {
        const ToolRun help = RunTool({name, "--help"});
        EXPECT_EQ(help.Status, 0) << name;
        const std::size_t examples = help.Output.find("Examples:");
        EXPECT_NE(examples, std::string::npos) << name;
        EXPECT_LT(examples, help.Output.find("Options:")) << name << ": examples stand before the options";
        EXPECT_NE(help.Output.find("zorvex " + name), std::string::npos) << name;
        EXPECT_EQ(help.Diagnostics, "") << name;
        EXPECT_EQ(RunTool({name, "--no-such-option"}).Status, 2) << name;
        EXPECT_EQ(RunTool({name}).Status, 2) << name << " without arguments";
    }
    EXPECT_EQ(RunTool({}).Status, 2);
    EXPECT_EQ(RunTool({"no-such-command"}).Status, 2);
    EXPECT_EQ(RunTool({"info", "/no/such/game"}).Status, 1);
    EXPECT_EQ(RunTool({"list", "/tmp", "--type", "song"}).Status, 2);
}

TEST(Tool, LooksWithoutTouching) {
    SKIP_WITHOUT_TOOL();
    for (const char* id : {"", "TST"}) {
        const TempDir dir;
        SmallGame(id).Entry(rtLogic, 9, 0, 700).WriteTo(dir);
        const auto before = dir.All();
        const ToolRun info = RunTool({"info", dir.Native(), "--json"});
        ASSERT_EQ(info.Status, 0) << info.Diagnostics;
        EXPECT_NE(info.Diagnostics.find("warning: Logic9 was skipped because it's location (700)"),
                  std::string::npos);
        EXPECT_EQ(json::parse(info.Output)["resources"]["logic"], 1);
        const json list = ListOf(dir.Native());
        ASSERT_EQ(list.size(), 5U);
        EXPECT_EQ(list[1]["error"]["number"], 505) << "a resource that cannot be read has its row";
        EXPECT_EQ(RunTool({"verify", dir.Native()}).Status, 1);
        EXPECT_EQ(dir.All(), before);
    }
}

TEST(Tool, TakesAnEmptyDirectoryFileAsOneEmptyEntry) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    SmallGame().WriteTo(dir);
    dir.Write("SNDDIR", ByteArray{});
    const ToolRun look = RunTool({"list", dir.Native()});
    EXPECT_EQ(look.Status, 0);
    EXPECT_NE(look.Diagnostics.find("SNDDIR"), std::string::npos);
    EXPECT_TRUE(dir.Read("SNDDIR").empty());
    EXPECT_EQ(RunTool({"props", dir.Native(), "author=Me"}).Status, 0);
    EXPECT_EQ(dir.Read("SNDDIR"), (ByteArray{255, 255, 255}));
    EXPECT_TRUE(dir.Exists("SNDDIR.OLD"));
    EXPECT_EQ(RunTool({"props", dir.Native(), "author"}).Output, "Me\n");
}

TEST(Tool, ReplacesTheBytesOfAResource) {
    SKIP_WITHOUT_TOOL();
    for (const char* id : {"", "TST"}) {
        const TempDir dir;
        SmallGame(id).WriteTo(dir);
        const TempDir files;
        files.Write("new", test::CountingBytes(100));
        const auto before = SumsOf(ListOf(dir.Native()));
        ASSERT_EQ(RunTool({"put", dir.Native(), "picture:5", files.Native() + "/new"}).Status, 0);
        auto after = SumsOf(ListOf(dir.Native()));
        EXPECT_NE(after["picture5"], before.at("picture5"));
        after["picture5"] = before.at("picture5");
        EXPECT_EQ(after, before) << "every other resource is unchanged";
        ASSERT_EQ(RunTool({"extract", dir.Native(), "picture", "-o", files.Native() + "/out"}).Status, 0);
        EXPECT_EQ(files.Read("out/picture.005"), test::CountingBytes(100));
        EXPECT_EQ(RunTool({"extract", dir.Native(), "picture", "-o", files.Native() + "/out"}).Diagnostics,
                  "zorvex: " + files.Native() + "/out/picture.005 was there and is replaced\n");
        EXPECT_EQ(RunTool({"put", dir.Native(), "picture:6", files.Native() + "/new"}).Status, 1);
        EXPECT_EQ(RunTool({"put", dir.Native(), "picture", files.Native() + "/new"}).Status, 2);
    }
}

TEST(Tool, EditsTheSetOfResources) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    const std::string game = dir.Native() + "/game";
    ASSERT_EQ(RunTool({"new", game, "--id", "test"}).Output, game + "/TEST.zvg\n");
    EXPECT_EQ(RunTool({"add", game, "view"}).Output, "view:0 View0\n");
    EXPECT_EQ(RunTool({"add", game, "picture:5", "--id", "Hall"}).Output, "picture:5 Hall\n");
    EXPECT_EQ(RunTool({"add", game, "picture:5"}).Status, 1);
    dir.Write("room.lgc", std::string_view("if (isset(f5)) {\r\n  quit(1);\r\n}\r\nreturn();\r\n"));
    EXPECT_EQ(RunTool({"add", game, "logic:3", dir.Native() + "/room.lgc"}).Status, 0);
    EXPECT_EQ(RunTool({"rename", game, "logic:3", "Room"}).Status, 0);
    EXPECT_TRUE(dir.Exists("game/src/Room.lgc"));
    EXPECT_EQ(RunTool({"renumber", game, "picture:5", "200"}).Status, 0);
    EXPECT_EQ(RunTool({"remove", game, "view:0"}).Status, 0);
    const json list = ListOf(game);
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[1]["id"], "Room");
    EXPECT_GT(list[1]["size"], 6);
    EXPECT_EQ(list[2]["number"], 200);
    EXPECT_EQ(RunTool({"verify", game}).Status, 0);
    EXPECT_EQ(RunTool({"build", game}).Status, 0);
    EXPECT_EQ(SumsOf(ListOf(game)), SumsOf(list));
    const ToolRun copy = RunTool({"new", dir.Native() + "/copy", "--id", "OTHER", "--template", game});
    EXPECT_EQ(copy.Output, dir.Native() + "/copy/OTHER.zvg\n");
    EXPECT_EQ(SumsOf(ListOf(dir.Native() + "/copy")), SumsOf(list));
}

TEST(Tool, BuildsAndConvertsIntoOtherDirectories) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    SmallGame().WriteTo(dir);
    const TempDir out;
    const auto before = dir.All();
    const auto sums = SumsOf(ListOf(dir.Native()));
    EXPECT_EQ(RunTool({"build", dir.Native(), "--rebuild-only", "-o", out.Native() + "/v2"}).Status, 0);
    EXPECT_EQ(SumsOf(ListOf(out.Native() + "/v2")), sums);
    EXPECT_EQ(out.Read("v2/WORDS.TOK"), dir.Read("WORDS.TOK"));
    EXPECT_EQ(RunTool({"convert", dir.Native(), "--to", "3.002149", "-o", out.Native() + "/v3"}).Status, 0);
    EXPECT_TRUE(out.Exists("v3/AGIDIR"));
    EXPECT_FALSE(out.Exists("v3/LOGDIR"));
    EXPECT_EQ(SumsOf(ListOf(out.Native() + "/v3")), sums);
    EXPECT_EQ(
        RunTool({"convert", out.Native() + "/v3", "--to", "2.936", "-o", out.Native() + "/back"}).Status, 0);
    EXPECT_EQ(SumsOf(ListOf(out.Native() + "/back")), sums);
    EXPECT_EQ(RunTool({"convert", dir.Native(), "--to", "2.5", "-o", out.Native() + "/bad"}).Status, 1);
    EXPECT_EQ(dir.All(), before);
}

TEST(Tool, BuildsNothingWhenAResourceFails) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    SmallGame().Add(rtLogic, 3, test::SmallestLogic()).WriteTo(dir);
    dir.Write("src/Logic0.lgc", std::string_view("return();\r\n"));
    dir.Write("src/Logic3.lgc", std::string_view("set(f5)\r\nreturn();\r\n"));
    const auto sums = SumsOf(ListOf(dir.Native()));
    const ToolRun refused = RunTool({"build", dir.Native()});
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Diagnostics.find("/src/Logic3.lgc:1: error: 4007"), std::string::npos);
    EXPECT_EQ(SumsOf(ListOf(dir.Native())), sums);
    EXPECT_FALSE(dir.Exists("NEW_VOL.0"));
    EXPECT_EQ(RunTool({"build", dir.Native(), "--keep-going"}).Status, 1);
    EXPECT_EQ(SumsOf(ListOf(dir.Native())).size(), sums.size() - 1);

    dir.Write("src/Logic0.lgc", std::string_view("get.string(s66, \"What?\", 22, 1, 5);\r\nreturn();\r\n"));
    EXPECT_EQ(RunTool({"build", dir.Native()}).Status, 0) << "as compile does, at the medium level";
    EXPECT_EQ(RunTool({"build", dir.Native(), "--level", "high"}).Status, 1);
}

TEST(Tool, RepairsWhatNeedsNoGuess) {
    SKIP_WITHOUT_TOOL();
    const TempDir dir;
    GameBuilder game = SmallGame();
    game.Add(rtPicture, 6, {0xF0, 4, 0xF8, 10, 10});
    game.Add(rtView, 3, {1, 1, 1, 13, 0, 7, 0, 1, 3, 0, 1, 1, 0, 0});
    game.Entry(rtLogic, 7, 3, 0);
    game.WriteTo(dir);
    // Two words that share no letter: the first and the second entry both begin with a zero byte.
    ByteArray words(52);
    words[1] = 52;
    for (const int byte : {0, 0x9E, 0, 0, 0, 0x9D, 0, 2})
        words.push_back(static_cast<std::uint8_t>(byte));
    dir.Write("WORDS.TOK", words);
    dir.Write("SNDDIR", ByteArray{});
    EXPECT_EQ(RunTool({"verify", dir.Native()}).Status, 1);
    const TempDir out;
    const ToolRun repair = RunTool({"repair", dir.Native(), "-o", out.Native() + "/fixed", "--json"});
    EXPECT_EQ(repair.Status, 0) << repair.Diagnostics;
    EXPECT_EQ(json::parse(repair.Output).size(), 5U) << repair.Output;
    const ToolRun verified = RunTool({"verify", out.Native() + "/fixed"});
    EXPECT_EQ(verified.Status, 0) << verified.Output << verified.Diagnostics;
    EXPECT_TRUE(out.Exists("fixed/VOL.0.OLD"));
    EXPECT_TRUE(out.Exists("fixed/LOGDIR.OLD"));
    out.Remove("fixed/LOGDIR");
    const ToolRun failed = RunTool({"repair", out.Native() + "/fixed"});
    EXPECT_NE(failed.Diagnostics.find("(" + out.Native() + "/fixed/LOGDIR)"), std::string::npos);
}

}  // namespace
}  // namespace zorvex
