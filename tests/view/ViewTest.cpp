#include "zorvex/view/AGIView.h"

#include "tests/view/ViewText.h"
#include "zorvex/platform/Bitmaps.h"

namespace zorvex::test {
namespace {

TEST(View, ANewOneIsLoadedCleanAndSmall) {
    AGIView view;
    ASSERT_EQ(view.Loops()->Count(), 1);
    EXPECT_EQ(Shown(view, 0), (Rows{"0"}));
    EXPECT_EQ(Face(view), "NewView loaded clean");
    EXPECT_EQ(view.AllData(), ByteArray(DefaultViewBytes().begin(), DefaultViewBytes().end()));
}

TEST(View, EveryEditReachesTheView) {
    const std::function<void(AGIView&)> edits[] = {
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Item(0)->CelData(0, 0, agRed); },
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Item(0)->TransColor(agRed); },
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Item(0)->Width(7); },
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Item(0)->CopyCel(AGICel()); },
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Item(0)->Clear(); },
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Add(); },
        [](AGIView& view) { view.Loops()->Item(0)->Cels()->Remove(0); },
        [](AGIView& view) { view.Loops()->Item(0)->CopyLoop(*view.Loops()->Item(1)); },
        [](AGIView& view) { view.Loops()->Item(2)->UnMirror(); },
        [](AGIView& view) { view.Loops()->Add(); },
        [](AGIView& view) { view.Loops()->Remove(1); },
        [](AGIView& view) { view.SetMirror(1, 0); },
        [](AGIView& view) { view.ViewDescription("a key"); },
        [](AGIView& view) { view.Data(2, 1); },
        [](AGIView& view) { view.Clear(); },
    };
    int number = 0;
    for (const auto& edit : edits) {
        const auto view = MakeView({{"12"}, {"3"}, {"4"}, {"5"}});
        AddCel(*view, 0, {"6"});
        view->SetMirror(2, 3);
        view->BuildViewData();
        view->DataDirty(false);
        view->Load();
        ASSERT_FALSE(view->IsDirty());
        edit(*view);
        EXPECT_TRUE(view->IsDirty()) << "edit " << number;
        ++number;
    }
}

TEST(View, ChangedBytesDropTheLoopsAndStayUnsaved) {
    AGIView view;
    const auto old = view.Loops();
    const auto two = MakeView({{"12"}, {"3"}});
    two->BuildViewData();
    view.SetData(two->AllData());
    EXPECT_EQ(view.Loops()->Count(), 2);
    EXPECT_TRUE(view.IsDirty()) << "to look at new bytes does not save them";
    view.Load();
    EXPECT_TRUE(view.IsDirty()) << "nor does a load";
    view.DataDirty(false);
    old->Add();
    EXPECT_FALSE(view.IsDirty()) << "loops that the view has dropped tell it nothing";
    EXPECT_EQ(view.Loops()->Count(), 2);
}

TEST(View, GoesToAFileAndBack) {
    TempDir dir;
    const auto view = MakeView({{"120"}, {"3"}, {"FF", "0F"}});
    view->SetMirror(1, 0);
    view->ViewDescription("A rusty key.");
    view->Export(dir.File("key.agv"), false);
    EXPECT_EQ(Face(*view), "key.agv loaded dirty");
    view->Export(dir.File("key.agv"));
    EXPECT_EQ(Face(*view), "key.agv loaded clean");

    AGIView read;
    read.Loops()->Add();
    read.Import(dir.File("key.agv"));
    EXPECT_EQ(read.ViewDescription(), "A rusty key.");
    EXPECT_EQ(Shown(read, 1), (Rows{"021"}));
    EXPECT_EQ(Shown(read, 2), (Rows{"FF", "0F"}));
    EXPECT_EQ(Face(read), "key.agv loaded clean");
    read.Export(dir.Native() + "/copy");
    EXPECT_EQ(read.ID(), "copy");
    EXPECT_EQ(dir.Read("copy"), dir.Read("key.agv"));

    EXPECT_EQ(RaisedId([&] { read.Import(dir.File("none")); }), 524);
    EXPECT_EQ(Shown(read, 1), (Rows{"021"})) << "it is as it was";
    read.Unload();
    EXPECT_EQ(RaisedId([&] { read.Export(dir.File("copy")); }), 563);
    EXPECT_EQ(RaisedId([&] { read.SetMirror(1, 0); }), 563);
    EXPECT_EQ(RaisedId([&] { read.Clear(); }), 563);
    EXPECT_EQ(RaisedId([&] { read.ViewDescription(); }), 563);
    EXPECT_EQ(RaisedId([&] { read.ViewDescription("a chest"); }), 0) << "to be told needs no load";
    EXPECT_TRUE(read.IsDirty());
}

TEST(View, ReadsWhatItWritesAndRefusesTheRest) {
    TempDir dir;
    const auto view = MakeView({{"12"}});
    view->Save(dir.File("small"));
    const ByteArray before = view->AllData();
    CelPixels busy(160, 168);
    for (std::int32_t x = 0; x < 160; ++x) {
        for (std::int32_t y = 0; y < 168; ++y)
            busy.Pixel(x, y, x % 2 == 0 ? agRed : agBlue);
    }
    for (int cel = 1; cel <= 3; ++cel) {
        view->Loops()->Item(0)->Cels()->Add();
        view->WriteCel(0, cel, busy);
        const bool fits = cel <= 2;
        EXPECT_EQ(RaisedId([&] { view->Export(dir.File("big" + std::to_string(cel))); }), fits ? 0 : 632);
        EXPECT_EQ(dir.Exists("big" + std::to_string(cel)), fits);
        if (!fits) continue;
        AGIView read;
        read.Import(dir.File("big" + std::to_string(cel)));
        EXPECT_EQ(read.ReadCel(0, cel), busy);
    }
    view->Loops()->Item(0)->Cels()->Remove(3);
    view->Loops()->Item(0)->Cels()->Remove(2);
    view->Loops()->Add();
    const ByteArray present = view->AllData();
    EXPECT_EQ(RaisedId([&] { view->Save(dir.File("small")); }), 632) << "a loop without cels";
    EXPECT_EQ(dir.Read("small"), before);
    EXPECT_EQ(view->AllData(), present);
    EXPECT_TRUE(view->IsDirty());
    view->Loops()->Remove(1);
    view->ViewDescription(std::string(300, 'x'));
    view->Save(dir.File("small"));
    AGIView read;
    read.Import(dir.File("small"));
    EXPECT_EQ(read.ViewDescription(), view->ViewDescription());
    EXPECT_EQ(read.ViewDescription().size(), 255U);
}

TEST(View, LeavesAloneWhatAHostHolds) {
    TempDir dir;
    const auto view = MakeView({{"12"}, {"5"}, {"34"}});
    view->SetMirror(1, 0);
    const auto held = view->Loops()->Item(1)->Cels()->Item(0);
    view->Save(dir.File("x"));
    EXPECT_EQ(RowsOf(held->AllCelData()), (Rows{"21"})) << "a save does not turn it";
    const auto removed = view->Loops()->Item(2);
    const auto cel = removed->Cels()->Item(0);
    view->Loops()->Remove(2);
    view->DataDirty(false);
    cel->CelData(0, 0, agWhite);
    removed->Cels()->Add();
    EXPECT_FALSE(view->IsDirty()) << "a removed loop is no part of it";
    const auto mirror = view->Loops()->Item(1);
    view->Unload();
    EXPECT_FALSE(mirror->Mirrored()) << "its partner has gone";
    EXPECT_EQ(RaisedId([&] { mirror->MirrorLoop(); }), 611);
    EXPECT_EQ(RowsOf(mirror->Cels()->Item(0)->AllCelData()), (Rows{"21"}));
}

TEST(View, ADescriptionOfDamagedBytesLeavesThem) {
    AGIView view;
    ByteArray bytes = view.AllData();
    bytes[3] = 13;
    view.SetData(bytes);
    EXPECT_EQ(RaisedId([&] { view.ViewDescription(); }), 513);
    EXPECT_EQ(RaisedId([&] { view.ViewDescription("key"); }), 513);
    EXPECT_EQ(view.AllData(), bytes);
    EXPECT_TRUE(view.IsDirty());
}

TEST(View, BadBytesUnloadIt) {
    AGIView view;
    ByteArray bytes = view.AllData();
    bytes[3] = 13;
    view.SetData(bytes);
    EXPECT_EQ(RaisedText([&] { view.Loops(); }), "Can't read past end of resource.");
    EXPECT_FALSE(view.Loaded());
    EXPECT_EQ(RaisedId([&] { view.Loops(); }), 563);
}

TEST(View, AColorAboveFifteenFailsWhenTheBytesAreBuilt) {
    TempDir dir;
    const auto view = MakeView({{"1"}});
    view->Loops()->Item(0)->Cels()->Item(0)->CelData(0, 0, agNone);
    const std::string inner = "Unhandled error in CompressCelData function(6:Overflow)";
    EXPECT_EQ(RaisedText([&] { view->Export(dir.File("x")); }),
              "Error in CompileView(" + std::to_string(ObjectErrorBase + 654) + ":" + inner + ")");
    EXPECT_FALSE(dir.Exists("x"));
    view->Loops()->Item(0)->Cels()->Item(0)->CelData(0, 0, agRed);
    view->Export(dir.File("x"));
}

TEST(View, ClearLeavesTheSmallestView) {
    const auto view = MakeView({{"12"}, {"3"}});
    AddCel(*view, 0, {"4"});
    view->SetMirror(1, 0);
    view->ViewDescription("gone");
    const auto held = view->Loops();
    view->Clear();
    EXPECT_EQ(held->Count(), 1);
    EXPECT_EQ(held->Item(0)->Cels()->Count(), 1);
    EXPECT_EQ(view->AllData(), AGIView().AllData());
    EXPECT_EQ(Shown(*view, 0), (Rows{"0"}));
    EXPECT_EQ(view->ViewDescription(), "");
    EXPECT_TRUE(view->IsDirty());
}

TEST(View, ACopyHasItsOwnPairs) {
    const auto view = MakeView({{"12"}, {"3"}, {"45"}});
    view->SetMirror(0, 2);
    view->ID("Ego");
    view->Description("The hero");
    AGIView copy;
    copy.SetView(*view);
    EXPECT_EQ(Face(copy), "Ego loaded dirty");
    EXPECT_EQ(copy.Description(), "The hero");
    EXPECT_EQ(copy.Loops()->Item(0)->MirrorPair(), -1);
    EXPECT_EQ(Shown(copy, 0), (Rows{"54"}));
    copy.Loops()->Item(0)->Cels()->Item(0)->CelData(0, 0, agWhite);
    EXPECT_EQ(Shown(copy, 2), (Rows{"4F"}));
    EXPECT_EQ(Shown(*view, 2), (Rows{"45"}));
    copy.BuildViewData();
    copy.DataDirty(false);
    copy.Load();
    EXPECT_EQ(copy.Loops()->Item(0)->MirrorPair(), 1) << "the bytes know only that loops are a pair";
    EXPECT_EQ(Shown(copy, 0), (Rows{"F4"}));

    AGIView bad;
    bad.SetData(ByteArray{1, 1, 0});
    const std::string cause = ":Unable to extract resource; invalid data found)";
    EXPECT_RAISED(raised->Is(643) && Has(raised->Description(), cause), copy.SetView(bad));
    EXPECT_EQ(copy.ID(), "Ego");
}

// --- The bitmap of a cel ---

std::vector<std::int32_t> Colors(std::int32_t context) {
    const auto look = Bitmaps().Look(context).value();
    std::vector<std::int32_t> colors;
    for (std::size_t i = 0; i + 3 < look.Pixels.size(); i += 4) {
        colors.push_back(look.Pixels[i] | look.Pixels[i + 1] << 8 | look.Pixels[i + 2] << 16);
    }
    return colors;
}

TEST(CelBitmap, ShowsThePaletteAndIsMadeAgainWhenNeeded) {
    const auto before = UseBitmaps(MakeMemoryBitmaps());
    {
        const auto view = MakeView({{"4F"}, {"0"}});
        view->SetMirror(1, 0);
        auto cel = view->Loops()->Item(0)->Cels()->Item(0);
        const std::int32_t context = cel->CelBMP();
        EXPECT_EQ(Colors(context), (std::vector<std::int32_t>{0xA00000, 0xFFFFFF}));
        EXPECT_EQ(Bitmaps().Look(context)->Header.Height, -1);
        cel->TransColor(agRed);
        EXPECT_EQ(cel->CelBMP(), context);
        cel->CelData(0, 0, agNone);
        EXPECT_EQ(Colors(cel->CelBMP()), (std::vector<std::int32_t>{0, 0xFFFFFF}));
        cel = view->Loops()->Item(1)->Cels()->Item(0);
        EXPECT_EQ(Colors(cel->CelBMP()), (std::vector<std::int32_t>{0xFFFFFF, 0}));
        EXPECT_EQ(Bitmaps().LiveHandles(), 2U);
        cel->Clear();
        EXPECT_EQ(Bitmaps().LiveHandles(), 0U);
        cel->CelBMP();
    }
    EXPECT_EQ(Bitmaps().LiveHandles(), 0U);
    UseBitmaps(before);
}

}  // namespace
}  // namespace zorvex::test
