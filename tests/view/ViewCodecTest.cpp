#include "zorvex/view/ViewCodec.h"

#include "tests/support/CaseFile.h"
#include "tests/view/ViewText.h"

namespace zorvex::test {
namespace {

ByteArray Rows40(std::uint8_t colorAndFlags) {
    return CompressCelData(CelPixels(40, 1, static_cast<AGIColors>(colorAndFlags)), agBlack, false);
}

/// A view with a table of loops at the given places, then the given bytes.
ByteArray ViewBytes(const std::vector<std::uint8_t>& loopLocs, const ByteArray& rest,
                    std::uint8_t description = 0) {
    ByteArray bytes{1, 1, static_cast<std::uint8_t>(loopLocs.size()), description, 0};
    for (const std::uint8_t loc : loopLocs) {
        bytes.push_back(loc);
        bytes.push_back(0);
    }
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

/// One loop of one cel, 2 by 1, with the row 1 2.
const ByteArray smallLoop{1, 3, 0, 2, 1, 0, 0x11, 0x21, 0};

struct RowCase {
    Rows rows;
    bool mirrored;
    ByteArray bytes;
};

TEST(ViewCodec, RowsBecomeChunksWithoutAFinalTransparentRun) {
    const RowCase cases[] = {
        {{"0000"}, false, {0}},
        {{"1"}, false, {0x11, 0}},
        {{"0110"}, false, {0x01, 0x12, 0}},
        {{"0011", "1100"}, false, {0x02, 0x12, 0, 0x12, 0}},
        {{std::string(16, 'F')}, false, {0xFF, 0xF1, 0}},
        // The flipped row 1100 drops its run of 0, the flipped 0011 needs one: 3 + 3 bytes at the most, none
        // to add.
        {{"0011", "1100"}, true, {0x02, 0x12, 0, 0x12, 0}},
        {{"1100"}, true, {0x12, 0, 0}},
        {{"0000", "0000"}, true, {0, 0, 0, 0}},
        {{"0011"}, true, {0x02, 0x12, 0}},
    };
    for (const RowCase& c : cases) {
        SCOPED_TRACE(c.rows[0] + (c.mirrored ? " mirrored" : ""));
        EXPECT_EQ(CompressCelData(Pixels(c.rows), agBlack, c.mirrored), c.bytes);
        const CelPixels pixels = Pixels(c.rows);
        EXPECT_EQ(RowsOf(ExpandCelData(c.bytes, 0, pixels.Width(), pixels.Height(), agBlack)), c.rows);
    }
    EXPECT_EQ(Rows40(0x0F), (ByteArray{0xFF, 0xFF, 0xFA, 0}));
    EXPECT_EQ(RowsOf(ExpandCelData(ByteArray{0x50, 0x11, 0, 0x99, 0, 0x77}, 0, 3, 1, agRed)), (Rows{"144"}))
        << "a chunk without length draws nothing, and data behind the last row is not looked at";
}

TEST(ViewCodec, BadRowsAndColorsAreNumberedErrors) {
    EXPECT_EQ(RaisedId([] { ExpandCelData(ByteArray{0x13, 0}, 0, 2, 1, agBlack); }), 555);
    EXPECT_EQ(RaisedId([] { ExpandCelData(ByteArray{0x12}, 0, 2, 1, agBlack); }), 555);
    EXPECT_EQ(RaisedId([] { ExpandCelData(ByteArray{0}, 9, 2, 1, agBlack); }), 555);
    EXPECT_ERROR_TEXT(654, "Unhandled error in CompressCelData function(6:Overflow)",
                      CompressCelData(CelPixels(1, 1, agNone), agBlack, false));
}

TEST(ViewCodec, EqualLoopOffsetsArePairsAndThenCopies) {
    const ViewContent pair = DecodeView(ViewBytes({9, 9}, smallLoop));
    EXPECT_EQ(pair.loops[0].mirrorLoop, 1);
    EXPECT_EQ(pair.loops[1].mirrorLoop, 0);
    EXPECT_TRUE(pair.loops[1].cels.empty());
    const ByteArray written = EncodeView(pair);
    EXPECT_EQ(written, ViewBytes({9, 9}, {1, 3, 0, 2, 1, 0x80, 0x11, 0x21, 0}));

    const ViewContent three = DecodeView(ViewBytes({11, 11, 11}, smallLoop));
    EXPECT_EQ(three.loops[1].mirrorLoop, 0);
    EXPECT_EQ(three.loops[2].mirrorLoop, LoopContent::None);
    EXPECT_EQ(RowsOf(three.loops[2].cels.at(0).pixels), (Rows{"12"}));
    const ViewContent again = DecodeView(EncodeView(three));
    EXPECT_EQ(again, three);

    const ByteArray late = ViewBytes({25, 26, 27, 28, 29, 30, 31, 32, 33, 33}, ByteArray(20));
    EXPECT_EQ(RaisedId([&] { DecodeView(late); }), 539);
}

TEST(ViewCodec, TheDocumentedExampleReadsAndWrites) {
    const ByteArray bytes = DocumentedBytes("view.md");
    const ViewContent view = DecodeView(bytes);
    EXPECT_EQ(RowsOf(view.loops[0].cels.at(0).pixels), (Rows{"0110", "1000"}));
    EXPECT_EQ(view.loops[1].mirrorLoop, 0);
    EXPECT_EQ(view.description, "key");
    EXPECT_EQ(EncodeView(view), bytes);
}

TEST(ViewCodec, DamageThatLeavesNoView) {
    const struct {
        const char* what;
        ByteArray bytes;
        std::int32_t id;
    } cases[] = {
        {"no bytes", {}, 595},
        {"a header that ends early", {1, 1}, 595},
        {"no loops", {1, 1, 0, 0, 0}, 595},
        {"a loop beyond the end", ViewBytes({17}, smallLoop), 548},
        {"a cel beyond the end", ViewBytes({7}, {1, 10, 0, 2, 1, 0, 0x12, 0, 0}), 553},
        {"a description at the last byte", ViewBytes({7}, smallLoop, 15), 513},
        {"a description beyond the end", ViewBytes({7}, smallLoop, 99), 513},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_RAISED(raised->Is(c.id) && raised->Source() == "Zorvex.agiView", DecodeView(c.bytes));
    }
}

TEST(ViewCodec, DamageThatLeavesAView) {
    EXPECT_TRUE(DecodeView(ByteArray{9}).loops.empty()) << "one byte is a view";
    const CelContent torn = DecodeView(ViewBytes({7}, {1, 3, 0, 2, 1, 5, 0x13, 0, 0})).loops[0].cels[0];
    EXPECT_EQ(RowsOf(torn.pixels), (Rows{"00"})) << "a run past the width leaves the cel black";
    EXPECT_EQ(torn.transColor, agMagenta);
    const CelContent odd = DecodeView(ViewBytes({7}, {1, 3, 0, 200, 0, 0x8F, 0x31, 0, 0})).loops[0].cels[0];
    EXPECT_EQ(RowsOf(odd.pixels), (Rows{"3"})) << "a size that no cel has is 1";
    EXPECT_EQ(odd.transColor, agWhite) << "the mirror bits are no part of the colour";
    EXPECT_TRUE(DecodeView(ViewBytes({8}, {7})).loops[0].cels.empty())
        << "a loop at the very end has no cels";
    EXPECT_EQ(RowsOf(DecodeView(ViewBytes({7}, {1, 4, 0, 0})).loops[0].cels[0].pixels), (Rows{"0"}));
}

/// A small view of large cels: every cel of every loop is the same empty one of 160 by 168.
ByteArray Bomb(std::size_t loopCount) {
    constexpr std::size_t celCount = 255;
    constexpr std::size_t loopSize = 1 + 2 * celCount;
    ByteArray bytes{1, 1, static_cast<std::uint8_t>(loopCount), 0, 0};
    const auto word = [&](std::size_t value) {
        bytes.push_back(static_cast<std::uint8_t>(value & 255));
        bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    };
    const std::size_t tableEnd = 5 + 2 * loopCount;
    for (std::size_t i = 0; i < loopCount; ++i)
        word(tableEnd + i * loopSize);
    for (std::size_t i = 0; i < loopCount; ++i) {
        bytes.push_back(celCount);
        for (std::size_t j = 0; j < celCount; ++j)
            word((loopCount - i) * loopSize);
    }
    bytes.insert(bytes.end(), {160, 168, 0});
    bytes.resize(bytes.size() + 168);
    return bytes;
}

TEST(ViewCodec, CelsThatOverlapWithoutEndAreRefused) {
    EXPECT_EQ(DecodeView(Bomb(1)).loops[0].cels.size(), 255U);
    EXPECT_EQ(RaisedId([] { DecodeView(Bomb(20)); }), reOutOfMemory);
}

TEST(ViewCodec, DescriptionStandsBehindTheLoopsAndIsCutAt255) {
    ViewContent view = DecodeView(DefaultViewBytes());
    EXPECT_EQ(EncodeView(view), ByteArray(DefaultViewBytes().begin(), DefaultViewBytes().end()));
    view.description = "Hi\x9B";
    const ByteArray bytes = EncodeView(view);
    EXPECT_EQ(bytes[3], 14);
    EXPECT_EQ(ByteArray(bytes.begin() + 14, bytes.end()), (ByteArray{'H', 'i', 0x9B, 0}));
    EXPECT_EQ(DecodeView(bytes), view);
    view.description.assign(300, 'x');
    EXPECT_EQ(DecodeView(EncodeView(view)).description, std::string(255, 'x'));
    ByteArray open = bytes;
    open.pop_back();
    EXPECT_EQ(DecodeView(open).description, "Hi\x9B") << "the end of the bytes ends the text too";
}

TEST(ViewCodec, ATooLargeViewFailsAtItsOffsets) {
    ViewContent view;
    CelPixels busy(160, 168);
    for (std::int32_t y = 0; y < 168; ++y) {
        for (std::int32_t x = 0; x < 160; ++x)
            busy.Pixel(x, y, x % 2 == 0 ? agRed : agBlue);
    }
    view.loops.resize(1);
    view.loops[0].cels.assign(3, {busy, agBlack});
    EXPECT_EQ(RaisedId([&] { EncodeView(view); }), 516) << "each offset of 81,000 bytes fits";
    view.loops[0].cels.push_back({busy, agBlack});
    EXPECT_EQ(RaisedId([&] { EncodeView(view); }), 557);
    view.loops[0].cels.pop_back();
    view.loops.resize(2);
    view.loops[1].cels.assign(1, {CelPixels(), agBlack});
    EXPECT_EQ(RaisedId([&] { EncodeView(view); }), 516) << "a table that cannot be filled in";
}

}  // namespace
}  // namespace zorvex::test
