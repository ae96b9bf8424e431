#include "zorvex/picture/PictureFunctions.h"

#include <set>

namespace zorvex {
namespace {

struct Drawing {
    explicit Drawing(const ByteArray& stream, std::int32_t endPos = -1, std::int32_t statusPos = -1) {
        level = DrawPicture(vis, pri, stream, endPos, statusPos);
    }
    ByteArray vis;
    ByteArray pri;
    std::int32_t level;
};

using Points = std::set<std::pair<int, int>>;

/// The pixels of a screen that do not hold its blank value.
Points Painted(const ByteArray& screen, std::uint8_t blank = agWhite) {
    Points points;
    for (std::size_t i = 0; i < screen.size(); ++i) {
        if (screen[i] != blank) points.insert({static_cast<int>(i % 160), static_cast<int>(i / 160)});
    }
    return points;
}

ByteArray operator+(ByteArray left, const ByteArray& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

TEST(PictureEngine, LinesPaintTheirPixels) {
    struct Case {
        const char* what;
        ByteArray stream;
        Points points;
    };
    const Case cases[] = {
        {"diagonal", {0xF6, 0, 0, 3, 3}, {{0, 0}, {1, 1}, {2, 2}, {3, 3}}},
        {"flat slope", {0xF6, 0, 0, 5, 2}, {{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 2}}},
        {"steep slope", {0xF6, 0, 0, 1, 4}, {{0, 0}, {0, 1}, {1, 2}, {1, 3}, {1, 4}}},
        {"to the left and up", {0xF6, 5, 2, 0, 0}, {{5, 2}, {4, 2}, {3, 1}, {2, 1}, {1, 0}, {0, 0}}},
        {"corner along Y", {0xF4, 2, 2, 4, 3}, {{2, 2}, {2, 3}, {2, 4}, {3, 4}}},
        {"corner along X", {0xF5, 2, 2, 4, 3}, {{2, 2}, {3, 2}, {4, 2}, {4, 3}}},
        {"displacements", {0xF7, 9, 9, 0x21, 0x9A}, {{9, 9}, {10, 10}, {11, 10}, {10, 9}, {10, 8}}},
        {"start alone", {0xF7, 9, 9}, {{9, 9}}},
        {"past the right edge", {0xF6, 158, 0, 161, 0}, {{158, 0}, {159, 0}, {0, 1}, {1, 1}}},
        {"past the bottom", {0xF4, 3, 166, 200}, {{3, 166}, {3, 167}}},
        {"left of the edge", {0xF7, 1, 1, 0x90, 0x90}, {{1, 1}, {0, 1}, {159, 0}}},
        {"above the top", {0xF7, 0, 0, 0x09}, {{0, 0}}},
        {"X of 255", {0xF6, 255, 0}, {{95, 1}}},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        const Drawing drawing(ByteArray{0xF0, 1} + test.stream + ByteArray{0xFF});
        EXPECT_EQ(Painted(drawing.vis), test.points);
        EXPECT_TRUE(Painted(drawing.pri, agRed).empty());
    }
}

TEST(PictureEngine, RelativeLineOffTheByteRangeStopsTheRun) {
    const Drawing drawing({0xF0, 1, 0xF7, 2, 5, 0xB0, 0xF6, 50, 50, 0xFF});
    EXPECT_EQ(drawing.level, peFailure);
    EXPECT_EQ(Painted(drawing.vis), (Points{{0, 5}, {1, 5}, {2, 5}, {159, 4}}));
    EXPECT_EQ(Library().LastErrorNumber, reOverflow);
}

TEST(PictureEngine, PenShapesAndEdges) {
    const auto plot = [](std::uint8_t pen, std::uint8_t x, std::uint8_t y) {
        return Painted(Drawing({0xF0, 1, 0xF9, pen, 0xFA, x, y, 0xFF}).vis);
    };
    EXPECT_EQ(plot(0x00, 7, 7), (Points{{7, 7}}));
    EXPECT_EQ(plot(0x11, 10, 10), (Points{{9, 9}, {10, 9}, {9, 10}, {10, 10}, {9, 11}, {10, 11}}));
    const Points round{{10, 8},  {9, 9},  {10, 9},  {11, 9},  {9, 10}, {10, 10},
                       {11, 10}, {9, 11}, {10, 11}, {11, 11}, {10, 12}};
    EXPECT_EQ(plot(0x02, 10, 10), round);
    EXPECT_EQ(plot(0x11, 0, 0), plot(0x11, 1, 1)) << "moved into the top left corner";
    // At the right the last column lands in the row below; at the bottom the last rows are lost.
    EXPECT_EQ(plot(0x11, 200, 1), (Points{{159, 0}, {159, 1}, {159, 2}, {0, 1}, {0, 2}, {0, 3}}));
    EXPECT_EQ(plot(0x11, 5, 167), (Points{{4, 166}, {5, 166}, {4, 167}, {5, 167}}));
}

TEST(PictureEngine, SplatterAdvancesForCountedCellsOnly) {
    const auto splatter = [](std::uint8_t pen, std::uint8_t pattern) {
        return Painted(Drawing({0xF0, 1, 0xF9, pen, 0xFA, pattern, 10, 10, 0xFF}).vis);
    };
    EXPECT_EQ(splatter(0x31, 0), (Points{{9, 10}})) << "pattern 0 counts as 1";
    EXPECT_EQ(splatter(0x31, 1), splatter(0x31, 0));
    EXPECT_EQ(splatter(0x32, 0), (Points{{11, 8}, {11, 10}, {11, 11}, {10, 12}}));
    EXPECT_EQ(splatter(0x22, 0), (Points{{10, 9}, {10, 11}})) << "a round pen has fewer cells before it";
}

TEST(PictureEngine, OperandsEndAtACommand) {
    // A pen's group may end after any of its bytes; a fill's Y and a colour are taken whatever they are.
    const ByteArray after{0xF0, 3, 0xF6, 80, 80, 0xFF};
    EXPECT_EQ(Painted(Drawing(ByteArray{0xF0, 1, 0xFA, 5} + after).vis), (Points{{80, 80}}));
    EXPECT_EQ(Painted(Drawing(ByteArray{0xF0, 1, 0xF9, 0x20, 0xFA, 9, 5} + after).vis), (Points{{80, 80}}));
    const Drawing fill(ByteArray{0xF8, 5, 0xFF} + after);
    EXPECT_EQ(fill.level, peFailure) << "Y is 255";
    const Drawing color({0xF2, 0xF3, 0xF6, 1, 1, 0xFF});
    EXPECT_EQ(color.level, 0);
    EXPECT_EQ(color.pri[161], 3);
}

TEST(PictureEngine, FillsTestOneScreenAndPaintBoth) {
    const ByteArray box{0xF0, 0, 0xF2, 0, 0xF5, 10, 10, 14, 14, 10, 10, 0xF1, 0xF3};
    const ByteArray priLine{0xF2, 9, 0xF6, 12, 10, 12, 14, 0xF3};
    struct Case {
        const char* what;
        ByteArray pen;
        int visArea;
        int priArea;
    };
    const Case cases[] = {
        {"both: the priority line is painted over", {0xF0, 2, 0xF2, 7}, 9, 9},
        {"visual only", {0xF0, 2}, 9, 0},
        {"priority only: the line bounds it", {0xF2, 7}, 0, 3},
        {"white fills nothing, not even the priority screen", {0xF0, 15, 0xF2, 7}, 0, 0},
        {"priority red fills nothing", {0xF2, 4}, 0, 0},
        {"no colours", {}, 0, 0},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        const Drawing drawing(box + priLine + test.pen + ByteArray{0xF8, 11, 11, 0xFF});
        EXPECT_EQ(drawing.level, 0);
        EXPECT_EQ(std::count(drawing.vis.begin(), drawing.vis.end(), 2), test.visArea);
        EXPECT_EQ(std::count(drawing.pri.begin(), drawing.pri.end(), 7), test.priArea);
    }
}

TEST(PictureEngine, FillOutsideTheScreens) {
    struct Case {
        std::uint8_t x, y;
        bool draws, fails;
    };
    for (const Case& test :
         {Case{159, 167, true, false}, Case{0, 168, true, true}, Case{0, 168, false, false},
          Case{127, 204, false, false}, Case{128, 204, false, true}, Case{0, 205, false, true}}) {
        SCOPED_TRACE(testing::Message()
                     << int{test.x} << "," << int{test.y} << (test.draws ? " on" : " off"));
        const ByteArray pen = test.draws ? ByteArray{0xF0, 15} : ByteArray{};
        EXPECT_EQ(Drawing(pen + ByteArray{0xF8, test.x, test.y, 0xFF}).level, test.fails ? peFailure : 0);
    }
    EXPECT_EQ(Library().LastErrorNumber, ObjectErrorBase + 662);
    EXPECT_EQ(Library().LastErrorText, "Unhandled error in DrawLine method(6:Overflow)");
}

TEST(PictureEngine, ColourByteAboveFifteen) {
    const Drawing on({0xF2, 4, 0xF0, 0x3A, 0xF6, 0, 0, 0xFF});
    EXPECT_EQ(on.level, peColor);
    EXPECT_EQ(on.vis[0], 10);
    EXPECT_EQ(on.pri[0], 7) << "the upper nibble joins the priority colour";
    const Drawing off({0xF0, 0x3A, 0xF6, 0, 0, 0xFF});
    EXPECT_TRUE(Painted(off.pri, agRed).empty());
    EXPECT_EQ(GetToolStatus().PriColor, 19);
}

TEST(PictureEngine, ErrorLevels) {
    struct Case {
        const char* what;
        ByteArray stream;
        std::int32_t level;
    };
    const Case cases[] = {
        {"no bytes", {}, peDataEnds},
        {"no end", {0xF0, 1, 0xF6, 0, 0, 5, 5}, peDataEnds},
        {"cut inside a line", {0xF0, 1, 0xF6, 0}, peDataEnds},
        {"cut inside a colour", {0xF0}, peDataEnds},
        {"cut inside a fill", {0xF8}, peFailure},
        {"cut inside a pair of a fill", {0xF0, 1, 0xF8, 0}, peDataEnds},
        {"no end after a fill", {0xF0, 1, 0xF8, 0, 0}, peFailure},
        {"no command", {0x12, 0xFB, 0xFE, 0xFF}, peCommand},
        {"rubbish after the end", {0xF0, 1, 0xFF, 0x12, 0xF6, 0}, 0},
        {"several", {0x12, 0xF0, 0x21, 0xF8, 0, 200, 0xFF}, peCommand | peColor | peFailure},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        EXPECT_EQ(Drawing(test.stream).level, test.level);
    }
}

TEST(PictureEngine, EndPositionStopsBeforeACommandOrAPass) {
    const ByteArray stream{0xF0, 1, 0xF6, 0, 0, 0, 2, 0, 4, 0xF6, 9, 9, 0xFF};
    EXPECT_TRUE(Painted(Drawing(stream, 0).vis).empty());
    EXPECT_EQ(Painted(Drawing(stream, 3).vis).size(), 1U) << "start coordinates are read without a test";
    EXPECT_EQ(Painted(Drawing(stream, 5).vis).size(), 1U);
    EXPECT_EQ(Painted(Drawing(stream, 6).vis).size(), 3U);
    EXPECT_EQ(Painted(Drawing(stream, 9).vis).size(), 5U) << "no command at the end position";
    EXPECT_EQ(Painted(Drawing(stream, 10).vis).size(), 6U);
    EXPECT_EQ(Painted(Drawing({0xF6, 1, 1, 2, 2, 0xFF}, 0).vis).size(), 0U);
    EXPECT_EQ(Drawing({0xF0, 1}, 100).level, peFailure) << "the data ends before the end position";
}

TEST(PictureEngine, PenIsKeptAtTheStatusPosition) {
    const ByteArray stream{0xF0, 1, 0xF2, 2, 0xF9, 0x35, 0xFF};
    const auto penAt = [&](std::int32_t pos) {
        Drawing drawing(stream, -1, pos);
        return GetToolStatus();
    };
    EXPECT_EQ(penAt(-1), (PenStatus{agBlue, agGreen, psRectangle, psSplatter, 5}));
    EXPECT_EQ(penAt(0), (PenStatus{agBlue, agNone, psCircle, psSolid, 0}));
    EXPECT_EQ(penAt(3), (PenStatus{agBlue, agGreen, psCircle, psSolid, 0}));
    // 0xFF before the status position is reached: the pen of the run before stays.
    const PenStatus before = GetToolStatus();
    const Drawing drawing({0xF0, 7, 0xFF, 0, 0, 0, 0xFF}, -1, 4);
    EXPECT_EQ(GetToolStatus(), before);
}

}  // namespace
}  // namespace zorvex
