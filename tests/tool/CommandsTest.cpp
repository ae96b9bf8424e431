// What all commands of the tool have in common, and the commands that show and edit a game as a whole.
#include <sys/stat.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"

namespace zorvex::test {
namespace {

using nlohmann::json;

/// A game of a few resources of each kind.
GameBuilder SmallGame(const std::string& v3ID = {}) {
    GameBuilder game(v3ID);
    game.Add(rtLogic, 0, SmallestLogic());
    game.Add(rtPicture, 5, {0xF0, 4, 0xF8, 10, 10, 0xFF});
    game.Add(rtView, 2, SmallestView());
    game.Add(rtSound, 1, SilentSound());
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

TEST_F(ToolTest, HelpsWithEveryCommandAndRefusesWrongUse) {
    const std::vector<std::string> names = CommandNames();
    ASSERT_GE(names.size(), 14U);
    for (const std::string& name : names) {
        const ToolRun help = RunTool({name, "--help"});
        EXPECT_EQ(help.Status, 0) << name;
        const std::size_t examples = help.Output.find("Examples:");
        EXPECT_NE(examples, std::string::npos) << name;
        EXPECT_LT(examples, help.Output.find("Options:")) << name << ": examples stand before the options";
        EXPECT_TRUE(Has(help.Output, "zorvex " + name)) << name;
        EXPECT_EQ(help.Diagnostics, "") << name;
        EXPECT_EQ(StatusOf({name, "--no-such-option"}), 2) << name;
        EXPECT_EQ(StatusOf({name}), 2) << name << " without arguments";
    }
    EXPECT_EQ(StatusOf({}), 2);
    EXPECT_EQ(StatusOf({"no-such-command"}), 2);
    EXPECT_EQ(StatusOf({"info", "/no/such/game"}), 1);
    EXPECT_EQ(StatusOf({"list", "/tmp", "--type", "song"}), 2);
}

TEST_F(ToolTest, LooksWithoutTouching) {
    for (const char* id : {"", "TST"}) {
        const TempDir dir;
        SmallGame(id).Entry(rtLogic, 9, 0, 700).WriteTo(dir);
        const auto before = dir.All();
        const ToolRun info = RunTool({"info", dir.Native(), "--json"});
        ASSERT_EQ(info.Status, 0) << info.Diagnostics;
        EXPECT_TRUE(Has(info.Diagnostics, "warning: Logic9 was skipped because it's location (700)"));
        EXPECT_EQ(json::parse(info.Output)["resources"]["logic"], 1);
        const json list = ListOf(dir.Native());
        ASSERT_EQ(list.size(), 5U);
        EXPECT_EQ(list[1]["error"]["number"], 505) << "a resource that cannot be read has its row";
        EXPECT_EQ(StatusOf({"verify", dir.Native()}), 1);
        EXPECT_EQ(dir.All(), before);
    }
}

TEST_F(ToolTest, CopiesGamesMadeOfLinksAndIntoThemselves) {
    const TempDir files;
    SmallGame().WriteTo(files);
    const auto before = files.All();
    for (const auto& [name, bytes] : before)
        std::filesystem::create_symlink(files.Native() + "/" + name, game.Native() + "/" + name);
    std::filesystem::create_directory_symlink(game.Native(), game.Native() + "/loop");
    ASSERT_EQ(mkfifo((game.Native() + "/pipe").c_str(), 0600), 0);
    const auto sums = SumsOf(ListOf(files.Native()));
    EXPECT_EQ(SumsOf(ListOf(game.Native())), sums);
    const std::string inside = game.Native() + "/v3";
    const ToolRun converted = RunTool({"convert", game.Native(), "--to", "3.002149", "-o", inside});
    EXPECT_EQ(converted.Status, 0) << converted.Diagnostics;
    EXPECT_EQ(SumsOf(ListOf(inside)), sums);
    EXPECT_FALSE(game.Exists("v3/v3"));
    EXPECT_EQ(files.All(), before);
}

TEST_F(ToolTest, TakesAnEmptyDirectoryFileAsOneEmptyEntry) {
    SmallGame().WriteTo(game);
    game.Write("SNDDIR", ByteArray{});
    const ToolRun look = RunTool({"list", game.Native()});
    EXPECT_EQ(look.Status, 0);
    EXPECT_TRUE(Has(look.Diagnostics, "SNDDIR"));
    EXPECT_TRUE(game.Read("SNDDIR").empty());
    EXPECT_EQ(StatusOf({"props", game.Native(), "author=Me"}), 0);
    EXPECT_EQ(game.Read("SNDDIR"), (ByteArray{255, 255, 255}));
    EXPECT_TRUE(game.Exists("SNDDIR.OLD"));
    EXPECT_EQ(RunTool({"props", game.Native(), "author"}).Output, "Me\n");
}

TEST_F(ToolTest, ReplacesTheBytesOfAResource) {
    for (const char* id : {"", "TST"}) {
        const TempDir dir;
        SmallGame(id).WriteTo(dir);
        out.Write("new", CountingBytes(100));
        const auto before = SumsOf(ListOf(dir.Native()));
        ASSERT_EQ(StatusOf({"put", dir.Native(), "picture:5", Out("new")}), 0);
        auto after = SumsOf(ListOf(dir.Native()));
        EXPECT_NE(after["picture5"], before.at("picture5"));
        after["picture5"] = before.at("picture5");
        EXPECT_EQ(after, before) << "every other resource is unchanged";
        ASSERT_EQ(StatusOf({"extract", dir.Native(), "picture", "-o", Out("out")}), 0);
        EXPECT_EQ(out.Read("out/picture.005"), CountingBytes(100));
        EXPECT_EQ(RunTool({"extract", dir.Native(), "picture", "-o", Out("out")}).Diagnostics,
                  "zorvex: " + Out("out/picture.005") + " was there and is replaced\n");
        EXPECT_EQ(StatusOf({"put", dir.Native(), "picture:6", Out("new")}), 1);
        EXPECT_EQ(StatusOf({"put", dir.Native(), "picture", Out("new")}), 2);
    }
}

TEST_F(ToolTest, EditsTheSetOfResources) {
    const std::string made = Out("game");
    ASSERT_EQ(RunTool({"new", made, "--id", "test"}).Output, made + "/TEST.zvg\n");
    EXPECT_EQ(RunTool({"add", made, "view"}).Output, "view:0 View0\n");
    EXPECT_EQ(RunTool({"add", made, "picture:5", "--id", "Hall"}).Output, "picture:5 Hall\n");
    EXPECT_EQ(StatusOf({"add", made, "picture:5"}), 1);
    out.Write("room.lgc", std::string_view("if (isset(f5)) {\r\n  quit(1);\r\n}\r\nreturn();\r\n"));
    EXPECT_EQ(StatusOf({"add", made, "logic:3", Out("room.lgc")}), 0);
    EXPECT_EQ(StatusOf({"rename", made, "logic:3", "Room"}), 0);
    EXPECT_TRUE(out.Exists("game/src/Room.lgc"));
    EXPECT_EQ(StatusOf({"renumber", made, "picture:5", "200"}), 0);
    EXPECT_EQ(StatusOf({"remove", made, "view:0"}), 0);
    const json list = ListOf(made);
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[1]["id"], "Room");
    EXPECT_GT(list[1]["size"], 6);
    EXPECT_EQ(list[2]["number"], 200);
    EXPECT_EQ(StatusOf({"verify", made}), 0);
    EXPECT_EQ(StatusOf({"build", made}), 0);
    EXPECT_EQ(SumsOf(ListOf(made)), SumsOf(list));
    const ToolRun copy = RunTool({"new", Out("copy"), "--id", "OTHER", "--template", made});
    EXPECT_EQ(copy.Output, Out("copy/OTHER.zvg\n"));
    EXPECT_EQ(SumsOf(ListOf(Out("copy"))), SumsOf(list));
}

TEST_F(ToolTest, BuildsAndConvertsIntoOtherDirectories) {
    SmallGame().WriteTo(game);
    const auto before = game.All();
    const auto sums = SumsOf(ListOf(game.Native()));
    EXPECT_EQ(StatusOf({"build", game.Native(), "--rebuild-only", "-o", Out("v2")}), 0);
    EXPECT_EQ(SumsOf(ListOf(Out("v2"))), sums);
    EXPECT_EQ(out.Read("v2/WORDS.TOK"), game.Read("WORDS.TOK"));
    EXPECT_EQ(StatusOf({"convert", game.Native(), "--to", "3.002149", "-o", Out("v3")}), 0);
    EXPECT_TRUE(out.Exists("v3/AGIDIR"));
    EXPECT_FALSE(out.Exists("v3/LOGDIR"));
    EXPECT_EQ(SumsOf(ListOf(Out("v3"))), sums);
    EXPECT_EQ(StatusOf({"convert", Out("v3"), "--to", "2.936", "-o", Out("back")}), 0);
    EXPECT_EQ(SumsOf(ListOf(Out("back"))), sums);
    EXPECT_EQ(StatusOf({"convert", game.Native(), "--to", "2.5", "-o", Out("bad")}), 1);
    EXPECT_EQ(game.All(), before);
}

TEST_F(ToolTest, BuildsNothingWhenAResourceFails) {
    SmallGame().Add(rtLogic, 3, SmallestLogic()).WriteTo(game);
    game.Write("src/Logic0.lgc", std::string_view("return();\r\n"));
    game.Write("src/Logic3.lgc", std::string_view("set(f5)\r\nreturn();\r\n"));
    const auto sums = SumsOf(ListOf(game.Native()));
    const ToolRun refused = RunTool({"build", game.Native()});
    EXPECT_EQ(refused.Status, 1);
    EXPECT_TRUE(Has(refused.Diagnostics, "/src/Logic3.lgc:1: error: 4007"));
    EXPECT_EQ(SumsOf(ListOf(game.Native())), sums);
    EXPECT_FALSE(game.Exists("NEW_VOL.0"));
    EXPECT_EQ(StatusOf({"build", game.Native(), "--keep-going"}), 1);
    EXPECT_EQ(SumsOf(ListOf(game.Native())).size(), sums.size() - 1);

    game.Write("src/Logic0.lgc", std::string_view("get.string(s66, \"What?\", 22, 1, 5);\r\nreturn();\r\n"));
    EXPECT_EQ(StatusOf({"build", game.Native()}), 0) << "as compile does, at the medium level";
    EXPECT_EQ(StatusOf({"build", game.Native(), "--level", "high"}), 1);
}

TEST_F(ToolTest, RepairsWhatNeedsNoGuess) {
    GameBuilder builder = SmallGame();
    builder.Add(rtPicture, 6, {0xF0, 4, 0xF8, 10, 10});
    builder.Add(rtView, 3, {1, 1, 1, 13, 0, 7, 0, 1, 3, 0, 1, 1, 0, 0});
    builder.Entry(rtLogic, 7, 3, 0);
    builder.WriteTo(game);
    // Two words that share no letter: the first and the second entry both begin with a zero byte.
    ByteArray words(52);
    words[1] = 52;
    for (const int byte : {0, 0x9E, 0, 0, 0, 0x9D, 0, 2})
        words.push_back(static_cast<std::uint8_t>(byte));
    game.Write("WORDS.TOK", words);
    game.Write("SNDDIR", ByteArray{});
    EXPECT_EQ(StatusOf({"verify", game.Native()}), 1);
    // Logic 7 may lie on a disk that is not in the drive: its entry stays until told otherwise.
    const ToolRun kept = RunTool({"repair", game.Native(), "-o", Out("kept"), "--json"});
    EXPECT_EQ(kept.Status, 1);
    EXPECT_TRUE(Has(kept.Diagnostics, "--drop-missing")) << kept.Diagnostics;
    EXPECT_EQ(json::parse(kept.Output).size(), 4U) << kept.Output;
    EXPECT_EQ(out.Read("kept/LOGDIR"), game.Read("LOGDIR"));
    const ToolRun repair = RunTool({"repair", game.Native(), "-o", Out("fixed"), "--drop-missing", "--json"});
    EXPECT_EQ(repair.Status, 0) << repair.Diagnostics;
    EXPECT_EQ(json::parse(repair.Output).size(), 5U) << repair.Output;
    const ToolRun verified = RunTool({"verify", Out("fixed")});
    EXPECT_EQ(verified.Status, 0) << verified.Output << verified.Diagnostics;
    EXPECT_TRUE(out.Exists("fixed/VOL.0.OLD"));
    EXPECT_TRUE(out.Exists("fixed/LOGDIR.OLD"));
    out.Remove("fixed/LOGDIR");
    const ToolRun failed = RunTool({"repair", Out("fixed")});
    EXPECT_TRUE(Has(failed.Diagnostics, "(" + Out("fixed/LOGDIR") + ")"));
}

}  // namespace
}  // namespace zorvex::test
