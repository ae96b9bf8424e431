#include "tests/support/ExpectError.h"
#include "tests/support/ExpectedGame.h"
#include "tests/view/ViewText.h"
#include "zorvex/game/Helpers.h"

namespace zorvex::test {
namespace {

/// The checksum that the expectations hold: each cel's size, transparent colour and pixels, as its loop shows
/// them.
std::string PixelsCrc(AGIView& view) {
    ByteArray bytes;
    for (const auto& loop : *view.Loops()) {
        const auto cels = loop->Cels();
        for (std::int32_t j = 0; j < cels->Count(); ++j) {
            const auto cel = cels->Item(j);
            bytes.insert(bytes.end(), {cel->Width(), cel->Height(), cel->TransColor()});
            const CelPixels pixels = cel->AllCelData();
            bytes.insert(bytes.end(), pixels.Flat().begin(), pixels.Flat().end());
        }
    }
    return HexPad(CRC32(bytes), 8);
}

nlohmann::json Summary(AGIView& view) {
    nlohmann::json cels = nlohmann::json::array();
    nlohmann::json mirrors = nlohmann::json::array();
    for (const auto& loop : *view.Loops()) {
        cels.push_back(loop->Cels()->Count());
        const bool isMirror = loop->Mirrored() && loop->MirrorLoop() < loop->Index();
        mirrors.push_back(isMirror ? nlohmann::json(loop->MirrorLoop()) : nlohmann::json());
    }
    return {{"cels", cels},
            {"mirrorOf", mirrors},
            {"description", view.ViewDescription()},
            {"pixelsCrc32", PixelsCrc(view)}};
}

TEST(RealViews, ShowTheExpectedLoopsAndPixels) {
    ForEachReal<AGIView>([](AGIView& view, const nlohmann::json& expected) {
        view.Load();
        const nlohmann::json summary = Summary(view);
        for (const auto& [key, value] : summary.items()) {
            EXPECT_EQ(value, expected.at(key)) << key;
        }
    });
}

TEST(RealViews, ComeBackFromBytesOfOurOwn) {
    ForEachReal<AGIView>([](AGIView& view, const nlohmann::json& expected) {
        view.Load();
        view.BuildViewData();
        const ByteArray first = view.AllData();
        EXPECT_EQ(Summary(view).at("pixelsCrc32"), expected.at("pixelsCrc32"));
        view.Load();
        const nlohmann::json summary = Summary(view);
        EXPECT_EQ(summary.at("pixelsCrc32"), expected.at("pixelsCrc32"));
        EXPECT_EQ(summary.at("mirrorOf"), expected.at("mirrorOf"));
        EXPECT_EQ(summary.at("description"), expected.at("description"));
        view.BuildViewData();
        EXPECT_EQ(view.AllData(), first);
    });
}

TEST(RealViews, EveryPrefixIsReadOrRefused) {
    std::size_t seen = 0;
    ForEachReal<AGIView>([&](AGIView& view, const nlohmann::json&) {
        if (++seen % 7 != 0) return;
        view.Resource().Load();
        const ByteArray bytes = view.AllData();
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            const auto error = RaisedBy([&] { EncodeView(DecodeView(ByteView(bytes).first(size))); });
            if (error) {
                ASSERT_TRUE(error->Is(595) || error->Is(548) || error->Is(553) || error->Is(539) ||
                            error->Is(513))
                    << size << ": " << error->Description();
            }
        }
    });
}

}  // namespace
}  // namespace zorvex::test
