#include "tests/view/ViewText.h"

namespace zorvex::test {

TEST(Cel, SizeAndColorsKeepTheirLimits) {
    AGICel cel;
    cel.Width(160);
    cel.Height(168);
    EXPECT_EQ(RaisedId([&] { cel.Width(161); }), 533);
    EXPECT_EQ(RaisedId([&] { cel.Width(0); }), 533);
    EXPECT_EQ(RaisedId([&] { cel.Height(169); }), 532);
    EXPECT_EQ(RaisedId([&] { cel.TransColor(agNone); }), 556);
    EXPECT_EQ(RaisedId([&] { cel.CelData(160, 0); }), reSubscript);
    EXPECT_EQ(RaisedId([&] { cel.CelData(0, 168, agRed); }), reSubscript);
    EXPECT_EQ(RaisedId([&] { cel.AllCelData(CelPixels(160, 167)); }), 614);
    EXPECT_EQ(cel.Width(), 160);
}

TEST(Cel, NewPixelsAreTransparentAndOldOnesDoNotComeBack) {
    AGICel cel;
    cel.Width(3);
    cel.Height(2);
    cel.AllCelData(Pixels({"123", "456"}));
    cel.TransColor(agWhite);
    cel.Width(2);
    cel.Width(4);
    cel.Height(1);
    cel.Height(2);
    EXPECT_EQ(RowsOf(cel.AllCelData()), (Rows{"12FF", "FFFF"}));
    cel.Clear();
    EXPECT_EQ(RowsOf(cel.AllCelData()), (Rows{"0"}));
    EXPECT_EQ(cel.TransColor(), agWhite);
}

TEST(Cels, AddAndRemoveKeepOrderAndIndex) {
    AGICels cels;
    cels.Add(255, 1, 1, agRed);
    cels.Add(0, 2, 2, agBlue);
    cels.Add(1, 0, 200, agNone);
    ASSERT_EQ(cels.Count(), 3);
    EXPECT_EQ(cels.Item(0)->Width(), 2);
    EXPECT_EQ(cels.Item(1)->TransColor(), agBlack) << "what a cel cannot have is ignored";
    EXPECT_EQ(cels.Item(1)->Height(), 1);
    EXPECT_EQ(cels.Item(2)->Index(), 2);
    cels.Remove(0);
    EXPECT_EQ(cels.Item(1)->Index(), 1);
    EXPECT_EQ(RaisedText([&] { cels.Remove(2); }), "subscript out of range");
    EXPECT_EQ(RaisedText([&] { cels.Item(2); }), "Subscript out of range");
    cels.Remove(0);
    EXPECT_EQ(RaisedId([&] { cels.Remove(0); }), 612);
    while (cels.Count() < 255)
        cels.Add();
    EXPECT_EQ(RaisedText([&] { cels.Add(); }), "Maximum number of cels exceeded in loop .");
}

TEST(Mirror, TheTwoLoopsShareTheirPixels) {
    const auto view = MakeView({{"120", "340"}, {"5"}});
    view->SetMirror(1, 0);
    EXPECT_EQ(Shown(*view, 1), (Rows{"021", "043"}));
    view->Loops()->Item(1)->Cels()->Item(0)->CelData(0, 0, agYellow);
    EXPECT_EQ(Shown(*view, 0), (Rows{"12E", "340"}));
    view->Loops()->Item(1)->Cels()->Item(0)->Width(2);
    EXPECT_EQ(Shown(*view, 0), (Rows{"12", "34"}));
    const auto mirrored = view->Loops()->Item(1)->Cels()->Item(0);
    mirrored->AllCelData(mirrored->AllCelData());
    EXPECT_EQ(Shown(*view, 0), (Rows{"21", "43"})) << "pixels are stored as given";
    view->Loops()->Item(1)->Cels()->Add();
    EXPECT_EQ(view->Loops()->Item(0)->Cels()->Count(), 2);

    AGICel source;
    source.Width(3);
    source.AllCelData(Pixels({"789"}));
    view->Loops()->Item(1)->Cels()->Item(0)->CopyCel(source);
    EXPECT_EQ(Shown(*view, 1), (Rows{"789"}));
    EXPECT_EQ(Shown(*view, 0), (Rows{"987"}));
}

TEST(Mirror, UnMirrorLeavesBothPicturesFromEitherSide) {
    for (const std::int32_t side : {0, 1}) {
        const auto view = MakeView({{"12"}, {"5"}});
        view->SetMirror(1, 0);
        view->Loops()->Item(side)->UnMirror();
        EXPECT_EQ(Shown(*view, 0), (Rows{"12"}));
        EXPECT_EQ(Shown(*view, 1), (Rows{"21"}));
        EXPECT_FALSE(view->Loops()->Item(0)->Mirrored());
        view->Loops()->Item(0)->Cels()->Item(0)->CelData(0, 0, agYellow);
        EXPECT_EQ(Shown(*view, 1), (Rows{"21"}));
        EXPECT_EQ(RaisedId([&] { view->Loops()->Item(1)->MirrorLoop(); }), 611);
    }
}

TEST(Mirror, RemovingEitherPartnerLeavesTheOtherAsItLooked) {
    for (const std::int32_t removed : {0, 1}) {
        const auto view = MakeView({{"12"}, {"5"}});
        view->SetMirror(1, 0);
        const auto loop = view->Loops()->Item(removed);
        view->Loops()->Remove(removed);
        EXPECT_EQ(Shown(*view, 0), removed == 0 ? (Rows{"21"}) : (Rows{"12"}));
        EXPECT_FALSE(view->Loops()->Item(0)->Mirrored());
        EXPECT_EQ(RowsOf(loop->Cels()->Item(0)->AllCelData()), removed == 0 ? (Rows{"12"}) : (Rows{"21"}));
        view->Loops()->Add()->CopyLoop(*loop);
        EXPECT_EQ(Shown(*view, 1), removed == 0 ? (Rows{"12"}) : (Rows{"21"}));
        EXPECT_EQ(RaisedId([&] { view->Loops()->Remove(2); }), reSubscript);
    }
    const auto single = MakeView({{"1"}});
    EXPECT_EQ(RaisedId([&] { single->Loops()->Remove(0); }), 613);
}

TEST(Mirror, CopyLoopEndsThePairAndKeepsThePartner) {
    for (const std::int32_t copied : {0, 1}) {
        const auto view = MakeView({{"12"}, {"5"}, {"345"}});
        view->SetMirror(1, 0);
        view->Loops()->Item(copied)->CopyLoop(*view->Loops()->Item(2));
        EXPECT_EQ(Shown(*view, copied), (Rows{"345"}));
        EXPECT_EQ(Shown(*view, 1 - copied), copied == 0 ? (Rows{"21"}) : (Rows{"12"}));
        EXPECT_FALSE(view->Loops()->Item(0)->Mirrored() || view->Loops()->Item(1)->Mirrored());
        view->Loops()->Item(2)->Cels()->Item(0)->CelData(0, 0, agYellow);
        EXPECT_EQ(Shown(*view, copied), (Rows{"345"}));
    }
    const auto view = MakeView({{"12"}, {"5"}});
    view->SetMirror(1, 0);
    view->Loops()->Item(1)->CopyLoop(*view->Loops()->Item(1));
    EXPECT_EQ(Shown(*view, 1), (Rows{"21"})) << "a copy of itself looks the same";
}

TEST(Mirror, RefusalsComeInTheirOrder) {
    const auto view = MakeView(std::vector<Rows>(10, Rows{"12"}));
    view->SetMirror(1, 0);
    EXPECT_EQ(RaisedId([&] { view->SetMirror(2, 10); }), 539);
    EXPECT_EQ(RaisedId([&] { view->SetMirror(8, 2); }), 539);
    EXPECT_EQ(RaisedId([&] { view->SetMirror(1, 1); }), 540);
    EXPECT_EQ(RaisedText([&] { view->SetMirror(1, 0); }), "Loop 1 is already a mirror.");
    EXPECT_EQ(RaisedText([&] { view->SetMirror(2, 1); }), "Loop 1 already has a mirror.");
    view->SetMirror(7, 6);
    EXPECT_EQ(view->Loops()->Item(7)->MirrorPair(), -2);
    view->Loops()->Item(0)->UnMirror();
    view->SetMirror(3, 2);
    EXPECT_EQ(view->Loops()->Item(2)->MirrorPair(), 1) << "the lowest free number";
}

TEST(Loops, MovingLoopsKeepsPairsBelowEight) {
    const auto view = MakeView(std::vector<Rows>(8, Rows{"12"}));
    view->SetMirror(7, 2);
    view->Loops()->Add();
    EXPECT_TRUE(view->Loops()->Item(7)->Mirrored()) << "one at the end moves nothing";
    view->Loops()->Remove(0);
    EXPECT_EQ(view->Loops()->Item(1)->MirrorLoop(), 6);
    view->Loops()->Add(0);
    EXPECT_EQ(view->Loops()->Item(7)->MirrorLoop(), 2);
    view->Loops()->Add(3);
    EXPECT_FALSE(view->Loops()->Item(8)->Mirrored());
    EXPECT_EQ(Shown(*view, 8), (Rows{"21"}));
    EXPECT_EQ(view->Loops()->Item(9)->Index(), 9);
    while (view->Loops()->Count() < 255)
        view->Loops()->Add();
    EXPECT_EQ(RaisedId([&] { view->Loops()->Add(); }), 537);
    EXPECT_EQ(RaisedId([&] { view->Loops()->Item(255); }), reSubscript);
}

TEST(Loops, StandAlone) {
    AGILoops loops;
    loops.Add()->Cels()->Add();
    AGILoop loop;
    loop.CopyLoop(*loops.Item(0));
    EXPECT_EQ(loop.Cels()->Count(), 1);
    EXPECT_EQ(RaisedId([&] { loop.MirrorLoop(); }), 611);
}

/// The first rows of all loops, "|" between loops and "," between cels.
std::string Tree(AGIView& view) {
    std::string text;
    for (const auto& loop : *view.Loops()) {
        text += text.empty() ? "" : "|";
        const auto cels = loop->Cels();
        std::string row;
        for (const auto& cel : *cels)
            row += (row.empty() ? "" : ",") + RowsOf(cel->AllCelData()).front();
        text += row + (loop->Mirrored() ? "~" + std::to_string(loop->MirrorLoop()) : "");
    }
    return text;
}

TEST(Move, KeepsPairsAndWhatLoopsShow) {
    const auto view = MakeView({{"12"}, {"5"}, {"34"}});
    view->SetMirror(1, 0);
    AddCel(*view, 0, {"66"});
    view->DataDirty(false);
    view->MoveLoop(0, 2);
    EXPECT_EQ(Tree(*view), "21,66~2|34|12,66~0") << "the mirror now comes first";
    EXPECT_TRUE(view->IsDirty());
    view->MoveCel(0, 0, 1);
    EXPECT_EQ(Tree(*view), "66,21~2|34|66,12~0");
    EXPECT_EQ(view->Loops()->Item(2)->Cels()->Item(1)->Index(), 1);
    AGIView read;
    view->BuildViewData();
    read.SetData(view->AllData());
    EXPECT_EQ(Tree(read), Tree(*view)) << "and so it does in the bytes";
    EXPECT_EQ(RaisedId([&] { view->MoveLoop(0, 3); }), 9);
    EXPECT_EQ(RaisedId([&] { view->MoveLoop(-1, 0); }), 9);
    EXPECT_EQ(RaisedId([&] { view->MoveCel(1, 0, 1); }), 9);
    EXPECT_EQ(Tree(*view), "66,21~2|34|66,12~0");
}

TEST(Move, EndsPairsBehindLoopSeven) {
    for (const bool pushed : {false, true}) {
        const auto view = MakeView({{"12"}, {"0"}, {"1"}, {"2"}, {"3"}, {"4"}, {"5"}, {"6"}, {"7"}});
        view->SetMirror(7, 0);
        if (pushed) {
            view->MoveLoop(8, 1);
        } else {
            view->MoveLoop(7, 8);
        }
        EXPECT_EQ(Tree(*view), pushed ? "12|7|0|1|2|3|4|5|21" : "12|0|1|2|3|4|5|7|21");
    }
}

TEST(CelAccess, IsAsTheLoopShowsIt) {
    const auto view = MakeView({{"120", "340"}, {"5"}});
    view->SetMirror(1, 0);
    const auto held = view->Loops()->Item(0)->Cels()->Item(0);
    EXPECT_EQ(RowsOf(view->ReadCel(1, 0)), (Rows{"021", "043"}));
    EXPECT_EQ(RowsOf(held->AllCelData()), (Rows{"120", "340"})) << "a held cel is not turned";
    EXPECT_EQ(&held->Stored(), &view->Loops()->Item(1)->Cels()->Item(0)->Stored());
    view->DataDirty(false);
    view->WriteCel(1, 0, Pixels({"78"}), agGreen);
    EXPECT_TRUE(view->IsDirty());
    EXPECT_EQ(RowsOf(view->ReadCel(1, 0)), (Rows{"78"}));
    EXPECT_EQ(RowsOf(view->ReadCel(0, 0)), (Rows{"87"}));
    EXPECT_EQ(held->TransColor(), agGreen);
    CelPixels wrong(1, 1, agNone);
    EXPECT_EQ(RaisedId([&] { view->WriteCel(0, 0, wrong); }), 556);
    EXPECT_EQ(RaisedId([&] { view->WriteCel(0, 0, CelPixels(161, 1), agRed); }), 533);
    EXPECT_EQ(RaisedId([&] { view->WriteCel(0, 0, CelPixels(1, 0)); }), 532);
    EXPECT_EQ(RaisedId([&] { view->WriteCel(0, 1, CelPixels(1, 1)); }), 9);
    EXPECT_EQ(RaisedId([&] { view->ReadCel(2, 0); }), 9);
    EXPECT_EQ(RowsOf(view->ReadCel(0, 0)), (Rows{"87"}));
    EXPECT_EQ(held->TransColor(), agGreen) << "refused as a whole";
}

}  // namespace zorvex::test
