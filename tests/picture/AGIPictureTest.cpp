#include "zorvex/picture/AGIPicture.h"

#include <cstdlib>

#include "tests/support/CaseFile.h"

namespace zorvex::test {
namespace {

/// Priority lines 3, 1 and 9 at rows 10, 12 and 14 from column 150 on; a visual dot at (0, 0).
const ByteArray bands{0xF2, 3, 0xF6, 150, 10, 159, 10, 0xF2, 1,    0xF6, 150,  12, 159, 12,
                      0xF2, 9, 0xF6, 152, 12, 152, 14, 0xF3, 0xF0, 5,    0xF6, 0,  0,   0xFF};

TEST(AGIPicture, NewPictureIsLoadedAndEmpty) {
    AGIPicture picture;
    EXPECT_EQ(Face(picture), "NewPicture loaded clean");
    EXPECT_EQ(picture.AllData(), ByteArray{0xFF});
    EXPECT_EQ(picture.CurrentToolStatus(), PenStatus{});
    EXPECT_EQ(picture.PriBase(), 48);
    EXPECT_EQ(picture.VisPixel(0, 0), agWhite);
    EXPECT_EQ(picture.PriPixel(0, 0), agRed);
}

TEST(AGIPicture, PointsAndLoadingAreCheckedFirst) {
    AGIPicture picture;
    EXPECT_EQ(picture.VisPixel(159, 167), agWhite);
    for (const auto& [x, y] : {std::pair<std::uint8_t, std::uint8_t>{160, 0}, {0, 168}}) {
        const auto px = x, py = y;
        EXPECT_ERROR(621, picture.VisPixel(px, py));
        EXPECT_ERROR(621, picture.ObjOnWater(px, py, 1));
        EXPECT_ERROR(621, picture.PixelControl(px, py));
    }
    picture.Unload();
    EXPECT_ERROR(563, picture.PriPixel(200, 200));
    EXPECT_ERROR(563, picture.VisData());
    EXPECT_ERROR(563, picture.VisualBMP());
    EXPECT_ERROR(563, picture.DrawPos(1));
    EXPECT_ERROR(563, picture.BkgdImgFile("a.png"));
    EXPECT_ERROR(563, picture.PriBase(9));
    EXPECT_ERROR(563, picture.Export("a"));
    EXPECT_EQ(picture.BMPErrLevel(), 0);
}

TEST(AGIPicture, PriorityQueries) {
    AGIPicture picture;
    picture.SetPictureData(bands);
    EXPECT_TRUE(picture.ObjOnWater(150, 10, 200)) << "cut at the edge";
    EXPECT_FALSE(picture.ObjOnWater(149, 10, 2));
    EXPECT_TRUE(picture.ObjOnWater(0, 0, 0));
    EXPECT_EQ(picture.PixelControl(149, 12, 4), agBlue) << "the lowest of 4, 1, 1, 9";
    EXPECT_EQ(picture.PixelControl(152, 12), agLtBlue);
    EXPECT_EQ(picture.PixelControl(159, 13, 255), agRed);
    EXPECT_EQ(picture.PixelPriority(151, 12), agRed) << "the band below a control line";
    EXPECT_EQ(picture.PixelPriority(155, 10), agCyan);
    EXPECT_EQ(picture.PixelPriority(152, 12), agLtBlue);
    picture.SetPictureData(ByteArray{0xF2, 1, 0xF6, 0, 166, 0, 167, 0xFF});
    EXPECT_EQ(picture.PixelPriority(0, 166), agBlue) << "nothing but control lines down to the bottom";
}

TEST(AGIPicture, ScreensFollowTheBytes) {
    AGIPicture picture;
    picture.SetPictureData(bands);
    EXPECT_TRUE(picture.IsDirty());
    EXPECT_EQ(picture.VisPixel(0, 0), agMagenta);
    picture.Data(23, 6);
    EXPECT_EQ(picture.VisPixel(0, 0), agBrown);
    picture.SetData(ByteArray{0xF0, 1, 0xF8, 0, 200, 0xFF});
    EXPECT_EQ(picture.VisData(), ByteArray(26880, 15));
    EXPECT_EQ(picture.BMPErrLevel(), peFailure);
    picture.Load();
    EXPECT_TRUE(picture.IsDirty()) << "a damaged picture loads as well, and stays unsaved";
}

TEST(AGIPicture, StepByStep) {
    AGIPicture picture;
    picture.SetPictureData(ByteArray{0xF0, 1, 0xF9, 0x12, 0xFA, 50, 50, 60, 60, 0xF9, 0x25, 0xFF});
    picture.DrawPos(5);
    EXPECT_EQ(picture.VisPixel(50, 50), agBlue) << "without StepDraw all is drawn";
    EXPECT_EQ(picture.CurrentToolStatus().PlotSize, 2) << "and the pen is that of the position";
    picture.StepDraw(true);
    EXPECT_EQ(picture.CurrentToolStatus().PlotSize, 2);
    EXPECT_EQ(picture.VisPixel(50, 50), agWhite);
    picture.DrawPos(7);
    EXPECT_EQ(picture.VisPixel(50, 50), agBlue);
    EXPECT_EQ(picture.VisPixel(60, 60), agWhite);
    picture.StepDraw(false);
    EXPECT_EQ(picture.VisPixel(60, 60), agBlue);
    picture.DrawPos(100000);
    EXPECT_EQ(picture.DrawPos(), 11);
    picture.DrawPos(-7);
    EXPECT_EQ(picture.DrawPos(), -1);
    EXPECT_EQ(picture.VisPixel(60, 60), agBlue);
    EXPECT_EQ(picture.CurrentToolStatus().PlotSize, 5);
}

TEST(AGIPicture, ClearMakesItEmpty) {
    AGIPicture picture;
    picture.SetPictureData(bands);
    picture.Clear();
    EXPECT_EQ(picture.AllData(), ByteArray{0xFF});
    EXPECT_EQ(picture.DrawPos(), 1);
    EXPECT_TRUE(picture.IsDirty());
    EXPECT_EQ(picture.VisPixel(0, 0), agWhite);
    picture.Unload();
    EXPECT_FALSE(picture.IsDirty());
    EXPECT_ERROR(563, picture.Clear());
}

TEST(AGIPicture, ExportAndImport) {
    const TempDir dir;
    AGIPicture picture;
    picture.SetPictureData(bands);
    picture.Export(dir.Native() + "/castle.pic", false);
    EXPECT_EQ(Face(picture), "castle.pic loaded dirty");
    picture.Export(dir.File("castle.pic"));
    EXPECT_EQ(Face(picture), "castle.pic loaded clean");
    EXPECT_ERROR(599, picture.Export(""));

    AGIPicture other;
    EXPECT_ERROR(524, other.Import(dir.File("missing")));
    EXPECT_EQ(other.ID(), "NewPicture");
    EXPECT_EQ(other.AllData(), ByteArray{0xFF});
    other.Import(dir.Native() + "/castle.pic");
    EXPECT_EQ(Face(other), "castle.pic loaded clean");
    EXPECT_EQ(other.AllData(), bands);
    EXPECT_EQ(other.VisPixel(0, 0), agMagenta);
    EXPECT_ERROR(667, other.ID(""));
    other.DataDirty(true);
    EXPECT_ERROR(599, other.Save());
}

TEST(AGIPicture, CopyTakesEverything) {
    AGIPicture source;
    source.SetPictureData(bands);
    source.ID("Harbour");
    source.Description("By night");
    source.BkgdImgFile("harbour.png");
    source.BkgdTrans(40);
    AGIPicture copy;
    copy.SetPicture(source);
    EXPECT_EQ(Face(copy), "Harbour loaded dirty");
    EXPECT_EQ(copy.Description() + ", " + copy.BkgdImgFile(), "By night, harbour.png");
    EXPECT_EQ(copy.BkgdTrans(), 40);
    EXPECT_EQ(copy.VisData(), source.VisData());
    source.Unload();
    copy.SetPicture(source);
    EXPECT_FALSE(copy.Loaded());
}

// --- Bitmaps ---
TEST(AGIPicture, BitmapsHoldTheScreens) {
    AGIPicture picture;
    picture.SetPictureData(bands);
    const auto visual = Bitmaps().Look(picture.VisualBMP());
    const auto priority = Bitmaps().Look(picture.PriorityBMP());
    ASSERT_TRUE(visual && priority);
    EXPECT_EQ(visual->Header,
              (BitmapHeader{.Width = 160, .Height = -168, .ImageSize = 26880, .ColorsUsed = 16}));
    EXPECT_EQ(ByteArray(visual->Pixels.begin(), visual->Pixels.end()), picture.VisData());
    EXPECT_EQ(ByteArray(priority->Pixels.begin(), priority->Pixels.end()), picture.PriData());
    ASSERT_EQ(visual->Colors.size(), 16U);
    EXPECT_EQ(visual->Colors[agBrown], (BitmapColor{.Blue = 0, .Green = 0x50, .Red = 0xA0}));
    EXPECT_EQ(Bitmaps().BkColor(picture.VisualBMP()), 0xFFFFFFU);
}

/// Bitmap services that keep a list of what was asked of them and fail on demand.
struct RecordingBitmaps final : DeviceBitmaps {
    std::shared_ptr<DeviceBitmaps> memory = MakeMemoryBitmaps();
    std::vector<std::string> log;
    int failAt = 0;  // the step of making or selecting from here that returns 0

    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }
    bool Fails(const char* operation) {
        log.emplace_back(operation);
        return failAt > 0 && --failAt == 0;
    }
    std::int32_t CreateCompatibleDC(std::int32_t like) override {
        return Fails("CreateCompatibleDC") ? 0 : memory->CreateCompatibleDC(like);
    }
    std::int32_t CreateDIBSection(std::int32_t dc, const BitmapHeader& header,
                                  std::span<const BitmapColor> colors, std::uint8_t*& bits) override {
        return Fails("CreateDIBSection") ? 0 : memory->CreateDIBSection(dc, header, colors, bits);
    }
    std::int32_t SelectObject(std::int32_t dc, std::int32_t object) override {
        return Fails("SelectObject") ? 0 : memory->SelectObject(dc, object);
    }
    std::uint32_t SetBkColor(std::int32_t dc, std::uint32_t color) override {
        return Fails("SetBkColor") ? 0 : memory->SetBkColor(dc, color);
    }
    bool DeleteObject(std::int32_t object) override {
        log.emplace_back("DeleteObject");
        return memory->DeleteObject(object);
    }
    bool DeleteDC(std::int32_t dc) override {
        log.emplace_back("DeleteDC");
        return memory->DeleteDC(dc);
    }
    std::optional<BitmapView> Look(std::int32_t dc) const override { return memory->Look(dc); }
    std::optional<std::uint32_t> BkColor(std::int32_t dc) const override { return memory->BkColor(dc); }
    std::size_t LiveHandles() const override { return memory->LiveHandles(); }
};

TEST(AGIPicture, BitmapsAreReleasedInOrder) {
    using Log = std::vector<std::string>;
    const auto bitmaps = std::make_shared<RecordingBitmaps>();
    const auto before = UseBitmaps(bitmaps);
    const Log make{"CreateCompatibleDC", "CreateDIBSection", "SelectObject", "CreateCompatibleDC",
                   "CreateDIBSection",   "SelectObject",     "SetBkColor"};
    const Log release{"SelectObject", "SelectObject", "DeleteObject", "DeleteObject", "DeleteDC", "DeleteDC"};
    {
        AGIPicture picture;
        EXPECT_EQ(bitmaps->LiveHandles(), 0U);
        picture.Load();
        EXPECT_EQ(bitmaps->TakeLog(), make);
        picture.SetData(bands);
        EXPECT_TRUE(bitmaps->TakeLog().empty()) << "a change draws nothing by itself";
        Log again = release;
        again.insert(again.end(), make.begin(), make.end());
        picture.VisData();
        EXPECT_EQ(bitmaps->TakeLog(), again);
        EXPECT_EQ(bitmaps->LiveHandles(), 4U);
        picture.Unload();
        EXPECT_EQ(bitmaps->TakeLog(), release);
        picture.SetPictureData(bands);
        bitmaps->TakeLog();
    }
    EXPECT_EQ(bitmaps->TakeLog(), release);
    EXPECT_EQ(bitmaps->LiveHandles(), 0U);
    UseBitmaps(before);
}

TEST(AGIPicture, FailedBitmapsAreNotKept) {
    const auto bitmaps = std::make_shared<RecordingBitmaps>();
    const auto before = UseBitmaps(bitmaps);
    for (int step = 1; step <= 7; ++step) {
        SCOPED_TRACE(step);
        AGIPicture picture;
        picture.SetData(bands);
        bitmaps->failAt = step;
        EXPECT_ERROR(610, picture.VisualBMP());
        EXPECT_EQ(bitmaps->LiveHandles(), 0U);
        bitmaps->failAt = step;
        EXPECT_ERROR(610, picture.Load());
        bitmaps->failAt = step;
        EXPECT_ERROR(610, picture.ObjOnWater(0, 0, 1));
        bitmaps->failAt = step;
        EXPECT_EQ(picture.VisPixel(0, 0), agMagenta) << "pixels need no bitmap";
        bitmaps->failAt = step;
        EXPECT_NO_THROW(picture.Clear());
        EXPECT_EQ(bitmaps->LiveHandles(), 0U);
        bitmaps->failAt = 0;
        EXPECT_NE(picture.PriorityBMP(), 0);
    }
    UseBitmaps(before);
}

TEST(Bitmaps, ServeUntilTheProgramEnds) {
    const auto drawAndExit = [] {
        static AGIPicture picture;
        picture.VisualBMP();
        std::exit(0);
    };
    EXPECT_EXIT(drawAndExit(), testing::ExitedWithCode(0), "");
}

TEST(Bitmaps, RefuseWhatCannotBe) {
    const auto bitmaps = MakeMemoryBitmaps();
    const std::int32_t first = bitmaps->CreateCompatibleDC(0);
    const std::int32_t second = bitmaps->CreateCompatibleDC(first);
    std::uint8_t* bits = nullptr;
    for (const BitmapHeader& bad :
         {BitmapHeader{.Width = 0, .Height = 1}, BitmapHeader{.Width = 1, .Height = 0},
          BitmapHeader{.Width = 70000, .Height = 1}, BitmapHeader{.Width = 1, .Height = 1, .BitCount = 24},
          BitmapHeader{.Width = 60000, .Height = -60000, .BitCount = 32}}) {
        EXPECT_EQ(bitmaps->CreateDIBSection(first, bad, {}, bits), 0);
    }
    const std::int32_t bitmap = bitmaps->CreateDIBSection(first, {.Width = 3, .Height = -2}, {}, bits);
    const std::int32_t stock = bitmaps->SelectObject(first, bitmap);
    EXPECT_NE(stock, 0);
    EXPECT_EQ(bitmaps->SelectObject(second, bitmap), 0) << "it is in the first context";
    EXPECT_FALSE(bitmaps->DeleteObject(bitmap));
    bits[4] = 7;  // rows are padded to four bytes
    EXPECT_EQ(bitmaps->Look(first)->Stride, 4U);
    EXPECT_EQ(bitmaps->Look(first)->Pixels[4], 7);
    EXPECT_EQ(bitmaps->SelectObject(first, stock), bitmap);
    EXPECT_TRUE(bitmaps->DeleteObject(bitmap) && bitmaps->DeleteDC(first) && bitmaps->DeleteDC(second));
    EXPECT_FALSE(bitmaps->DeleteDC(first) || bitmaps->Look(first));
    EXPECT_EQ(bitmaps->LiveHandles(), 0U);
}

}  // namespace
}  // namespace zorvex::test
