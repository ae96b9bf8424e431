#include "tests/support/RealGames.h"
#include "tests/view/ViewText.h"

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

TEST(RealViews, ShowTheExpectedLoopsAndPixelsAndComeBackFromBytesOfOurOwn) {
    ForEachReal<AGIView>([](AGIView& view, const nlohmann::json& expected) {
        const auto expectAll = [&] {
            const nlohmann::json summary = Summary(view);
            for (const auto& [key, value] : summary.items())
                EXPECT_EQ(value, expected.at(key)) << key;
        };
        view.Load();
        expectAll();
        view.BuildViewData();
        const ByteArray written = view.AllData();
        expectAll();
        view.Load();
        expectAll();
        view.BuildViewData();
        EXPECT_EQ(view.AllData(), written);
    });
}

}  // namespace
}  // namespace zorvex::test
