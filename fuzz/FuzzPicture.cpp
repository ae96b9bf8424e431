// Any bytes as a picture: it draws as pixel by pixel, stops where told, and answers every question.
#include <algorithm>
#include <random>

#include "fuzz/Check.h"
#include "fuzz/PlainPicture.h"
#include "zorvex/picture/AGIPicture.h"
#include "zorvex/picture/PictureFunctions.h"

namespace {

using namespace zorvex;

bool AreColors(const ByteArray& screen) {
    return screen.size() == PictureSize &&
           std::all_of(screen.begin(), screen.end(), [](int p) { return p < 16; });
}

void CheckWhole(ByteView stream) {
    ByteArray vis;
    ByteArray pri;
    const std::int32_t level = DrawPicture(vis, pri, stream);
    const fuzz::PlainPicture plain(stream);
    FUZZ_CHECK(level == plain.Level);
    FUZZ_CHECK(vis == plain.Vis);
    FUZZ_CHECK(pri == plain.Pri);
}

void CheckSteps(ByteView stream) {
    AGIPicture picture;
    picture.SetPictureData(stream);
    picture.StepDraw(true);
    for (const std::size_t part : {std::size_t{1}, stream.size() / 2, stream.size()}) {
        picture.DrawPos(static_cast<std::int32_t>(part));
        FUZZ_CHECK(AreColors(picture.VisData()));
        FUZZ_CHECK(AreColors(picture.PriData()));
        FUZZ_CHECK(picture.BMPErrLevel() >= 0 && picture.BMPErrLevel() < 16);
    }
    const auto x = static_cast<std::uint8_t>(stream.size() % PictureWidth);
    const auto y = static_cast<std::uint8_t>(stream.size() % PictureHeight);
    FUZZ_CHECK(picture.PixelControl(x, y, 255) <= picture.PriPixel(x, y));
    FUZZ_CHECK(!picture.ObjOnWater(x, y, 9) || picture.PriPixel(x, y) == agCyan);
    FUZZ_CHECK(picture.PixelPriority(x, y) >= agCyan || y + 1 == PictureHeight ||
               picture.PriPixel(x, PictureHeight - 1) < agCyan);
}

/// Streams that are mostly sense: colours, lines and pens over the whole screen, and fills among them.
ByteArray RandomStream(std::mt19937& random) {
    ByteArray stream;
    const auto byte = [&](unsigned below) { stream.push_back(static_cast<std::uint8_t>(random() % below)); };
    for (auto commands = random() % 40; commands > 0; --commands) {
        stream.push_back(static_cast<std::uint8_t>(0xF0 + random() % 11));
        const std::uint8_t code = stream.back();
        if (code == dfEnableVis || code == dfEnablePri) byte(random() % 20 == 0 ? 256 : 16);
        if (code == dfChangePen) byte(64);
        if (code < dfYCorner || code == dfChangePen) continue;
        for (auto operands = 2 + random() % 12; operands > 0; --operands)
            byte(random() % 30 == 0 ? 240 : 165);
    }
    stream.push_back(dfEnd);
    return stream;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckWhole({data, size});
    // Bytes as they come seldom are long commands; the same bytes choose a picture that is made of these.
    if (size % 3 == 0) {
        std::seed_seq seed(data, data + size);
        std::mt19937 random(seed);
        CheckWhole(RandomStream(random));
    }
    if (size % 4 == 0) CheckSteps({data, size});  // these draw many times
    return 0;
}
