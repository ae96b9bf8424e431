// zorvex view and zorvex view-import: what they write, and what comes back.
#include <gif_lib.h>

#include <nlohmann/json.hpp>

#include "tests/support/GameBuilder.h"
#include "tests/support/RunTool.h"
#include "tools/zorvex/images/PngFile.h"

namespace zorvex::test {
namespace {

using nlohmann::json;

/// Two loops, a pair, with one cel of 4 by 2, and a description of the bytes 'k', 0x9B and 0xFF.
const ByteArray pairView{1, 1,    2, 21,   0, 9,    0, 9, 0,   1,    3,    0, 4,
                         2, 0x80, 1, 0x12, 0, 0x11, 0, 0, 'k', 0x9B, 0xFF, 0};

class ViewTool : public ToolTest {
  protected:
    ViewTool() {
        ByteArray late = SmallestView();
        late[3] = 13;
        GameBuilder builder;
        builder.Add(rtLogic, 0, SmallestLogic()).Add(rtPicture, 0, {0xFF}).Add(rtSound, 0, SilentSound());
        builder.Add(rtView, 1, pairView).Add(rtView, 5, late).Add(rtView, 9, SmallestView());
        builder.WriteTo(game);
    }

    json ViewJson(const std::string& number) const {
        const ToolRun run = RunTool({"view", game.Native(), number, "--json"});
        EXPECT_EQ(run.Status, 0) << run.Diagnostics;
        return json::parse(run.Output, nullptr, false);
    }
};

TEST_F(ViewTool, AllWritesWhatCanBeReadAndTellsTheRest) {
    const auto before = game.All();
    const ToolRun run = RunTool({"view", game.Native(), "all", "-o", out.Native()});
    EXPECT_EQ(run.Status, 1);
    EXPECT_TRUE(Has(run.Diagnostics, "view.005: error 513: Can't read past end of resource."));
    EXPECT_TRUE(Has(run.Diagnostics, "at the last byte of the view"));
    EXPECT_TRUE(out.Exists("view.001.png") && !out.Exists("view.005.png") && out.Exists("view.009.png"));
    EXPECT_EQ(game.All(), before);
    EXPECT_EQ(StatusOf({"view", game.Native(), "5", "--json"}), 1);
    EXPECT_EQ(StatusOf({"view", game.Native(), "7", "--json"}), 1);
    EXPECT_EQ(StatusOf({"view", game.Native(), "1"}), 2);
    EXPECT_EQ(StatusOf({"view", game.Native(), "-o", Out("ego.png")}), 2);

    const auto sheet = tool::DecodePng(out.Read("view.001.png"));
    ASSERT_EQ(sheet.Width, 2U * (2 + 4 + 2));
    ASSERT_EQ(sheet.Height, 2U + 2 + 2 + 2 + 2);
    const auto alpha = [&](std::size_t x, std::size_t y) { return sheet.Colors[y * sheet.Width + x].Alpha; };
    EXPECT_EQ(alpha(4, 2), 0) << "the first pixel of loop 0 is transparent";
    EXPECT_EQ(alpha(6, 2), 255);
    EXPECT_EQ(alpha(7, 2), 255) << "and each pixel is two columns wide";
    EXPECT_EQ(alpha(11, 7), 255) << "loop 1 shows the second row flipped";
}

TEST_F(ViewTool, JsonTellsLoopsAsTheyShow) {
    const json view = ViewJson("1");
    EXPECT_EQ(view["loops"][0], json::parse(R"({"mirrorOf": null, "cels": [{"width": 4, "height": 2,
        "transparentColor": 0, "rows": ["0110", "1000"]}]})"));
    EXPECT_EQ(view["loops"][1]["mirrorOf"], 0);
    EXPECT_EQ(view["loops"][1]["cels"][0]["rows"], json({"0110", "0001"}));
    EXPECT_EQ(view["description"], "k\xC2\xA2\xC2\xA0");
}

TEST_F(ViewTool, WhatIsWrittenComesBackAsTheSameView) {
    const json expected = ViewJson("1");
    out.Write("sheet.json", expected.dump());
    for (const char* pixels : {"", "--native"}) {
        std::vector<std::string> arguments{"view", game.Native(), "1", "--cels", Out("cels")};
        if (*pixels != '\0') arguments.emplace_back(pixels);
        ASSERT_EQ(RunTool(arguments).Status, 0);
        const ToolRun import = RunTool({"view-import", game.Native(), "1", Out("cels")});
        EXPECT_EQ(import.Diagnostics, "");
        EXPECT_EQ(ViewJson("1"), expected);
    }
    EXPECT_EQ(StatusOf({"view-import", game.Native(), "200", Out("sheet.json")}), 0);
    EXPECT_EQ(ViewJson("200"), expected);
    EXPECT_TRUE(Has(RunTool({"list", game.Native()}).Output, " View200 "));
    EXPECT_EQ(StatusOf({"view-import", game.Native(), "5", Out("cels")}), 0);
    EXPECT_EQ(ViewJson("5"), expected) << "a damaged view can be replaced";
}

TEST_F(ViewTool, DrawnImagesTakeTheNearestColors) {
    // Nearly white, nearly black, clear, nearly light red: as a paint program saves them, with a palette of
    // its own.
    out.Write("loop.000.cel.000.png", tool::EncodePng([] {
                  tool::IndexedImage image(
                      4, 1, {{250, 250, 250, 255}, {9, 0, 0, 255}, {1, 2, 3, 0}, {255, 90, 70, 255}});
                  image.Pixels = {0, 1, 2, 3};
                  return image;
              }()));
    EXPECT_EQ(StatusOf({"view-import", game.Native(), "9", out.Native(), "--native"}), 0);
    const json cel = ViewJson("9")["loops"][0]["cels"][0];
    EXPECT_EQ(cel["rows"], json({"F01C"}))
        << "black is in use, so the next free colour is the transparent one";
    EXPECT_EQ(cel["transparentColor"], 1);
}

TEST_F(ViewTool, BadSourcesSayWhere) {
    const struct {
        const char* text;
        const char* said;
    } cases[] = {
        {"{", "is not JSON"},
        {"[]", "\"loops\" must be there"},
        {R"({"loops": []})", "1 to 255 loops"},
        {R"({"loops": [{"cels": [{"rows": ["01", "0"]}]}]})", "loop 0, cel 0: row 1"},
        {R"({"loops": [{"cels": [{"rows": ["0g"]}]}]})", "hexadecimal"},
        {R"({"loops": [{"cels": [{"rows": ["0"], "transparentColor": 16}]}]})", "0 to 15"},
        {R"({"loops": [{"cels": []}, {"mirrorOf": 1}]})", "loop 1: A loop can't mirror itself."},
        {R"({"loops": [{"cels": [{"file": "none.png"}]}]})", "none.png"},
    };
    for (const auto& c : cases) {
        out.Write("view.json", c.text);
        const ToolRun run = RunTool({"view-import", game.Native(), "1", out.Native()});
        EXPECT_EQ(run.Status, 1) << c.text;
        EXPECT_TRUE(Has(run.Diagnostics, c.said));
    }
}

TEST_F(ViewTool, EachLoopIsAnAnimation) {
    EXPECT_EQ(StatusOf({"view", game.Native(), "1", "-o", Out("a.gif"), "--gif", "--native"}), 0);
    EXPECT_TRUE(out.Exists("a.gif"));
    const std::string path = Out("a.loop1.gif");
    int code = 0;
    GifFileType* gif = DGifOpenFileName(path.c_str(), &code);
    ASSERT_NE(gif, nullptr) << GifErrorString(code);
    ASSERT_EQ(DGifSlurp(gif), GIF_OK);
    ASSERT_EQ(gif->ImageCount, 1);
    const SavedImage& image = gif->SavedImages[0];
    const std::size_t size = static_cast<std::size_t>(gif->SWidth * gif->SHeight);
    EXPECT_EQ(ByteArray(image.RasterBits, image.RasterBits + size), (ByteArray{0, 1, 1, 0, 0, 0, 0, 1}));
    GraphicsControlBlock control{};
    ASSERT_EQ(DGifSavedExtensionToGCB(gif, 0, &control), GIF_OK);
    EXPECT_EQ(control.TransparentColor, 0);
    EXPECT_EQ(control.DisposalMode, DISPOSE_BACKGROUND);
    DGifCloseFile(gif, &code);
}

}  // namespace
}  // namespace zorvex::test
