// The commands that show and replace the vocabulary and the inventory of a game.
#include <nlohmann/json.hpp>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"
#include "zorvex/vocab/ObjectFile.h"

namespace zorvex::test {
namespace {

using nlohmann::json;

class WordsAndItems : public ToolTest {
  protected:
    WordsAndItems() {
        GameBuilder().Add(rtLogic, 0, SmallestLogic()).WriteTo(game);
        InventoryData items;
        items.Items = {{"?", 0}, {"Key", 5}, {"key", 6}, {"caf\xE9", 255}};
        items.Encrypted = true;
        items.AmigaOBJ = true;
        game.Write("OBJECT", EncodeObjectFile(items));
        out.Write("words.agw", "2.1.1\r\n7\tlook\tlook at\r\n8\t\xE9t\xE9\r\n\xFF\xFF\r\nMine\r\n");
        out.Write("items.ago", "2.1.1\r\n20\r\n0\t?\r\n3\tlamp\r\n\xFF\xFF\r\nMine\r\n");
    }

    static json Shown(const std::string& command, const std::string& source) {
        const ToolRun run = RunTool({command, source, "--json"});
        EXPECT_EQ(run.Status, 0) << run.Diagnostics;
        return run.Status == 0 ? json::parse(run.Output) : json();
    }
};

TEST_F(WordsAndItems, AreShownWithoutTouchingTheGame) {
    const auto before = game.All();
    const json items = Shown("objects", game.Native());
    EXPECT_EQ(items["items"][1], json::parse(R"({"name": "Key", "room": 5, "unique": false})"));
    EXPECT_EQ(items["items"][3]["name"], "caf\u00E9");
    EXPECT_TRUE(items["encrypted"] == true && items["amiga"] == true && items["maxScreenObjects"] == 16);
    EXPECT_EQ(StatusOf({"objects", game.Native(), "-o", Out("OBJECT")}), 0);
    EXPECT_EQ(out.Read("OBJECT"), game.Read("OBJECT"));
    EXPECT_EQ(game.All(), before);
    EXPECT_EQ(Shown("words", Out("words.agw")), json::parse(R"({"words": [{"text": "look", "group": 7},
        {"text": "look at", "group": 7}, {"text": "\u00E9t\u00E9", "group": 8}], "description": "Mine"})"));
    EXPECT_EQ(RunTool({"words", Out("words.agw")}).Output, "7\tlook\tlook at\n8\t\u00E9t\u00E9\n");
}

TEST_F(WordsAndItems, OfAFileBecomeThoseOfTheGame) {
    out.Write("words.agw", "2.1.1\r\n7\tlook\tlook at\r\n\xFF\xFF\r\nMine\r\n");
    EXPECT_EQ(StatusOf({"words-import", game.Native(), Out("words.agw")}), 0);
    EXPECT_EQ(Shown("words", game.Native()), Shown("words", Out("words.agw")));
    EXPECT_EQ(StatusOf({"objects-import", game.Native(), Out("items.ago")}), 0);
    json expected = Shown("objects", Out("items.ago"));
    expected["encrypted"] = true;
    expected["amiga"] = true;
    EXPECT_EQ(Shown("objects", game.Native()), expected) << "the file's form stays";

    // Files that cannot be read are replaced, and a list without a description leaves the game its own.
    game.Write("WORDS.TOK", "");
    game.Write("OBJECT", "bad");
    EXPECT_EQ(StatusOf({"words", game.Native()}), 1);
    EXPECT_EQ(StatusOf({"objects", game.Native()}), 1);
    EXPECT_EQ(StatusOf({"words", Out("words.agw"), "-o", Out("w.tok")}), 0);
    EXPECT_EQ(StatusOf({"words-import", game.Native(), Out("w.tok")}), 0);
    EXPECT_EQ(Shown("words", game.Native()), Shown("words", Out("words.agw")));
    EXPECT_EQ(StatusOf({"objects-import", game.Native(), Out("items.ago")}), 0);
    EXPECT_EQ(Shown("objects", game.Native())["items"].size(), 2U);
}

TEST_F(WordsAndItems, OfABadFileLeaveTheGameAsItIs) {
    const auto before = game.All();
    EXPECT_EQ(StatusOf({"words-import", game.Native(), Out("items.ago")}), 2) << "items are no words";
    EXPECT_EQ(StatusOf({"objects-import", game.Native(), Out("words.agw")}), 2);
    out.Write("bad", "nothing that it knows");
    EXPECT_EQ(StatusOf({"words-import", game.Native(), Out("bad")}), 1);
    out.Write("twice.agw", "2.1.1\r\n0\ta\r\n1\ta\r\n");
    out.Write("blanks.agw", "2.1.1\r\n0 a\r\n");
    for (const auto& [name, message] : {std::pair("twice.agw:3", ": Can't add word; it already exists"),
                                        {"blanks.agw:2", ": there is no tab"}}) {
        const ToolRun run =
            RunTool({"words-import", game.Native(), Out(std::string(name, 0, std::string(name).size() - 2))});
        EXPECT_EQ(run.Status, 1);
        EXPECT_TRUE(Has(run.Diagnostics, std::string(name) + message));
    }
    EXPECT_EQ(StatusOf({"words", game.Native(), "-o", Out("words.txt")}), 2);
    EXPECT_EQ(game.All(), before);
    const ToolRun run = RunTool({"words-import", game.Native(), Out("words.agw")});
    EXPECT_EQ(run.Status, 1);
    EXPECT_TRUE(
        Has(run.Diagnostics, "error 672: WORDS.TOK compile error(6:Overflow): \"\u00E9t\u00E9\" has"));
    EXPECT_EQ(game.Read("WORDS.TOK"), before.at("WORDS.TOK"));
}

}  // namespace
}  // namespace zorvex::test
