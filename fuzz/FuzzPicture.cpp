// Any bytes as a picture: it draws as pixel by pixel, stops where told, and answers every question.
#include <algorithm>

#include "fuzz/Check.h"
#include "tests/support/PlainPicture.h"
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
    const test::PlainPicture plain(stream);
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckWhole({data, size});
    if (size % 4 == 0) CheckSteps({data, size});  // these draw many times
    return 0;
}
