// zorvex picture: sizes and palettes of images, raw screens, JSON, and files by number.
#include <nlohmann/json.hpp>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"
#include "tools/zorvex/images/PngFile.h"

namespace zorvex::test {
namespace {

using nlohmann::json;

/// A blue dot at (3, 2), a priority dot of 9 at (5, 2), then a green dot at (7, 2).
const ByteArray dots{0xF0, 1, 0xF6, 3, 2, 0xF1, 0xF2, 9, 0xF6, 5, 2, 0xF3, 0xF0, 2, 0xF6, 7, 2, 0xFF};

class PictureTool : public ToolTest {
  protected:
    PictureTool() {
        GameBuilder builder;
        builder.Add(rtLogic, 0, SmallestLogic()).Add(rtPicture, 5, dots).Add(rtPicture, 12, {0xF0, 1});
        builder.WriteTo(game);
        out.Write("one.pic", dots);
    }

    /// Draws picture 5 with these options and reads the image.
    tool::ReadImage Image(std::vector<std::string> options) {
        options.insert(options.begin(), {"picture", game.Native(), "5", "-o", Out("i.png")});
        const ToolRun run = RunTool(options);
        EXPECT_EQ(run.Status, 0) << run.Diagnostics;
        return tool::DecodePng(out.Read("i.png"));
    }
};

TEST_F(PictureTool, ImagesHoldTheColorNumbersAtTheSizeAsked) {
    const struct {
        std::vector<std::string> options;
        std::size_t width;
        std::size_t height;
        std::size_t dot;  // where the pixel at (3, 2) begins
        int color;
    } cases[] = {
        {{}, 320, 168, 2 * 320 + 6, 1},
        {{"--native"}, 160, 168, 2 * 160 + 3, 1},
        {{"--scale", "3"}, 960, 504, 6 * 960 + 18, 1},
        {{"--native", "--priority"}, 160, 168, 2 * 160 + 5, 9},
        {{"--native", "--both"}, 320, 168, 2 * 320 + 160 + 5, 9},
        {{"--native", "--until", "12"}, 160, 168, 2 * 160 + 7, 15},
    };
    for (const auto& item : cases) {
        const tool::ReadImage image = Image(item.options);
        ASSERT_TRUE(image.Indexed);
        EXPECT_EQ(image.Width, item.width);
        EXPECT_EQ(image.Height, item.height);
        EXPECT_EQ(image.Pixels[item.dot], item.color);
        EXPECT_EQ(image.Colors[item.dot], image.Palette[static_cast<std::size_t>(item.color)]);
    }
}

TEST_F(PictureTool, FilesOfAllAreNamedByNumber) {
    ByteArray directory = game.Read("PICDIR");
    directory.insert(directory.end(), {0x0F, 0xFF, 0xFF});  // picture 13 lies beyond its volume
    game.Write("PICDIR", directory);
    const auto before = game.All();
    for (const auto& [option, extension] :
         {std::pair("--scale=1", ".png"), std::pair("--raw", ".visual"), std::pair("--json", ".json")}) {
        const ToolRun run = RunTool({"picture", game.Native(), "all", "-o", Out("all"), option});
        EXPECT_EQ(run.Status, 1) << run.Diagnostics;
        EXPECT_TRUE(Has(run.Diagnostics, "Picture13 was skipped"));
        EXPECT_TRUE(Has(run.Diagnostics, "picture.012: the data ends without 0xFF"));
        EXPECT_TRUE(out.Exists("all/picture.005" + std::string(extension)));
    }
    const ByteArray priority = out.Read("all/picture.005.priority");
    ASSERT_EQ(priority.size(), 26880U);
    EXPECT_EQ(priority[2 * 160 + 5], 9);
    EXPECT_EQ(out.Read("all/picture.005.visual")[2 * 160 + 3], 1);
    const json endless = json::parse(out.ReadText("all/picture.012.json"));
    EXPECT_EQ(endless["errorLevel"], 1);
    EXPECT_EQ(endless["pen"]["visualColor"], 1);
    EXPECT_EQ(game.All(), before);
}

TEST_F(PictureTool, TellsOfOnePicture) {
    const ToolRun run = RunTool({"picture", Out("one.pic"), "--json", "--until", "12"});
    ASSERT_EQ(run.Status, 0) << run.Diagnostics;
    const json shown = json::parse(run.Output);
    EXPECT_EQ(shown["position"], 12);
    EXPECT_EQ(shown["pen"]["priorityColor"], nullptr);
    EXPECT_EQ(shown["commands"][1]["position"], 2);
    EXPECT_EQ(shown["commands"][1]["operands"], (json{3, 2}));
    EXPECT_EQ(StatusOf({"picture", game.Native(), "7", "--json"}), 1);
    EXPECT_EQ(StatusOf({"picture", game.Native(), "5", "--both", "--priority"}), 2);
    EXPECT_EQ(StatusOf({"picture", game.Native(), "all", "-o", Out("a.png")}), 2);
    EXPECT_EQ(StatusOf({"picture", game.Native(), "all", "-o", Out("v1.2")}), 0);
}

}  // namespace
}  // namespace zorvex::test
