// Bringing a resource from its volume into the buffer: header, sizes, and both kinds of compression.
#include "tests/support/CaseFile.h"
#include "tests/support/FailingFiles.h"
#include "tests/support/RealGames.h"
#include "zorvex/Zorvex.h"
#include "zorvex/base/Internal.h"
#include "zorvex/storage/ResourceFunctions.h"
#include "zorvex/storage/V3Directory.h"

namespace zorvex::test {
namespace {

/// A resource at a place of volume 0 of a game of either generation that is made of just that volume.
class LoadTest : public testing::Test {
  protected:
    LoadTest() {
        BeginGameSession();
        Library().GameDir = "\\game\\";
        Library().GameID = "TST";
        files_->MakeDirectory("\\game");
    }

    AGIResource& Place(bool isV3, const ByteArray& volume, std::int32_t loc = 0, AGIResType type = rtView) {
        Library().IsV3 = isV3;
        files_->Write(isV3 ? "\\game\\TSTVOL.0" : "\\game\\VOL.0", volume);
        resource_ = AGIResource();
        resource_.ResType(Internal(), type);
        resource_.Init(Internal(), 1, 0, loc);
        return resource_;
    }

    ByteArray Loaded(bool isV3, const ByteArray& volume, AGIResType type = rtView) {
        Place(isV3, volume, 0, type).Load();
        EXPECT_EQ(static_cast<std::size_t>(resource_.Size()), resource_.AllData().size());
        return resource_.AllData();
    }

    LibraryReset reset_;
    MemoryFiles files_;
    AGIResource resource_;
};

/// The bytes of a sequence of LZW codes of 9 bits each.
ByteArray LzwCodes(const std::vector<int>& codes) {
    ByteArray bytes;
    unsigned bits = 0;
    int count = 0;
    for (const int code : codes) {
        bits |= static_cast<unsigned>(code) << count;
        for (count += 9; count >= 8; count -= 8, bits >>= 8U)
            bytes.push_back(static_cast<std::uint8_t>(bits));
    }
    bytes.push_back(static_cast<std::uint8_t>(bits));
    return bytes;
}

/// A resource as a volume of V3 holds it.
ByteArray Stored(std::size_t expandedSize, const ByteArray& data, std::uint8_t flags = 0) {
    ByteArray bytes{0x12, 0x34, flags};
    for (const std::size_t size : {expandedSize, data.size()}) {
        bytes.push_back(static_cast<std::uint8_t>(size));
        bytes.push_back(static_cast<std::uint8_t>(size >> 8U));
    }
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

TEST_F(LoadTest, ReadsThePlainFormsOfBothGenerations) {
    EXPECT_EQ(Loaded(false, {0x12, 0x34, 0, 3, 0, 7, 8, 9, 10}), (ByteArray{7, 8, 9}));
    EXPECT_EQ(Loaded(true, {0x12, 0x34, 0, 2, 0, 2, 0, 7, 8, 9}), (ByteArray{7, 8}));
    EXPECT_ERROR(511, resource_.Load());
    EXPECT_EQ(Loaded(false, {0x12, 0x34, 0x80, 2, 0, 0xF0, 1}), (ByteArray{0xF0, 1}))
        << "V2 knows no packed pictures";
    EXPECT_EQ(Loaded(false, {0x12, 0x34, 0, 4, 0, 7}), (ByteArray{7, 0, 0, 0})) << "data past the end is 0";
    Place(false, {0, 0, 0x12, 0x34, 0, 1, 0, 5}, 2).Load();
    EXPECT_EQ(resource_.AllData(), ByteArray{5});
}

TEST_F(LoadTest, TellsWhatIsWrongWithAPlace) {
    const ByteArray volume{0x12, 0x34, 0, 1, 0, 5};
    EXPECT_ERROR_TEXT(505, "Invalid resource location (7) in VOL.0.", Place(false, volume, 7).Load());
    EXPECT_ERROR_TEXT(506, "Invalid resource data at 6 in VOL.0.", Place(false, volume, 6).Load());
    EXPECT_ERROR(506, Place(false, volume, 1).Load());
    EXPECT_ERROR_TEXT(507, "Error 9 while reading resource in VOL.0.",
                      Place(false, {0x12, 0x34, 0, 0, 0, 5}).Load());
    EXPECT_EQ(resource_.Size(), 0) << "the header's size, although the load failed";
    EXPECT_ERROR(507, Place(true, Stored(5, {})).Load());
    EXPECT_ERROR(507, Place(false, {0x12, 0x34}).Load());
    EXPECT_FALSE(resource_.Loaded());
    EXPECT_EQ(Library().IsV3, false);
    Place(true, Stored(1, {}));
    files_->Remove("\\game\\TSTVOL.0");
    EXPECT_ERROR_TEXT(606, "Can't load resource: file not found (TSTVOL.0)", resource_.Load());
    files_->MakeDirectory("\\game\\TSTVOL.0");
    EXPECT_ERROR(606, resource_.Load());  // a directory is no volume
    AGIResource alone;
    EXPECT_ERROR(626, alone.Load());
}

TEST_F(LoadTest, ExpandsByTheSizesOfTheHeader) {
    const ByteArray stored = LzwCodes({256, 1, 2, 258, 258, 257});
    EXPECT_EQ(Loaded(true, Stored(6, stored)), (ByteArray{1, 2, 1, 2, 1, 2}));
    EXPECT_EQ(Loaded(true, Stored(stored.size(), stored)), stored) << "equal sizes mean plain data";
    EXPECT_EQ(Loaded(true, Stored(8, stored)), (ByteArray{1, 2, 1, 2, 1, 2, 0, 0}))
        << "a shorter expansion is filled up";
    EXPECT_ERROR(507, Place(true, Stored(0, LzwCodes({256, 257}))).Load());
    EXPECT_ERROR_TEXT(507, "Error 559 while reading resource in TSTVOL.0.",
                      Place(true, Stored(5, stored)).Load());
    const ByteArray picture{0xF0, 0x40, 0x00, 0xFF};
    EXPECT_EQ(Loaded(true, Stored(99, picture, 0x80)), (ByteArray{0xF0, 4, 0, 0x0F}))
        << "the size of a packed picture comes from its data";
}

TEST_F(LoadTest, ScramblesTheMessagesOfExpandedLogicsOnly) {
    // One byte of code, one message "Hi": count, end, offset, text.
    const ByteArray clear{1, 0, 0, 1, 7, 0, 4, 0, 'H', 'i', 0};
    const ByteArray scrambled{1, 0, 0, 1, 7, 0, 4, 0, 'H' ^ 0x41, 'i' ^ 0x76, 0x69};
    const auto expanding = [](const ByteArray& bytes) {
        std::vector<int> codes(bytes.begin(), bytes.end());
        codes.insert(codes.begin(), 256);
        codes.push_back(257);
        return Stored(bytes.size(), LzwCodes(codes));
    };
    const ByteArray volume = expanding(clear);
    EXPECT_EQ(Loaded(true, volume, rtLogic), scrambled);
    EXPECT_EQ(Loaded(true, volume, rtView), clear);
    EXPECT_EQ(Loaded(true, Stored(11, clear), rtLogic), clear) << "stored plain";

    const ByteArray noMessages{1, 0, 0, 0, 9, 9, 9, 9};
    EXPECT_EQ(Loaded(true, expanding(noMessages), rtLogic), noMessages);
    EXPECT_ERROR(507,
                 Place(true, expanding({9, 0, 0, 1, 8, 0, 4, 0}), 0, rtLogic).Load());  // no message section
    EXPECT_ERROR(507,
                 Place(true, expanding({1, 0, 0, 1, 8, 0, 4, 0, 1}), 0, rtLogic).Load());  // end behind data
    EXPECT_ERROR(507, Place(true, expanding({0, 0xFF, 0, 1, 8, 0, 4, 0, 1}), 0, rtLogic).Load());
}

// --- The examples of the pages on volume and directory files

TEST_F(LoadTest, ReadsTheDocumentedVolume) {
    const ByteArray volume = DocumentedBytes("volume.md");
    const auto load = [&](AGIResType type, std::int32_t loc) {
        Place(true, volume, loc, type).Load();
        return resource_.AllData();
    };
    EXPECT_EQ(load(rtLogic, 0), (ByteArray{1, 0, 0, 0, 2, 0}));
    EXPECT_EQ(load(rtSound, 13), Bytes("ababababa"));
    EXPECT_EQ(load(rtPicture, 28), (ByteArray{0xF0, 4, 0xF6, 0x10, 0x20, 0xF2, 5, 0xF8, 0x30, 0xFF}));
}

TEST(DocumentedFormats, TheDirectoryHoldsOneEntryOfEachType) {
    const ByteArray file = DocumentedBytes("directory.md");
    const auto entries = [&file](AGIResType type) {
        const DirectoryRange range = V3DirectoryRange(file, type);
        return ByteArray(file.begin() + range.start, file.begin() + range.end);
    };
    EXPECT_EQ(entries(rtLogic), (ByteArray{0x10, 0, 0}));
    EXPECT_EQ(entries(rtPicture), (ByteArray{255, 255, 255, 0x10, 0, 28}));
    EXPECT_EQ(entries(rtView), (ByteArray{255, 255, 255}));
    EXPECT_EQ(entries(rtSound), (ByteArray{0x12, 0x34, 0x56}));
    EXPECT_EQ(MakeV3Directory(entries), file);
}

// --- LZW

ByteArray Expanded(ByteArray data, std::size_t size) {
    ExpandV3(data, static_cast<std::int32_t>(size));
    return data;
}

TEST(Lzw, FollowsEachRuleOfTheCodes) {
    EXPECT_EQ(Expanded(LzwCodes({256, 'a', 258, 257}), 3), (ByteArray{'a', 'a', 'a'})) << "a code being made";
    EXPECT_EQ(Expanded(LzwCodes({256, 'a', 'b', 258, 260, 257}), 7),
              (ByteArray{'a', 'b', 'a', 'b', 'a', 'b', 'a'}));
    EXPECT_EQ(Expanded(LzwCodes({256, 'a', 'b', 258, 256, 'c', 'd', 258, 257}), 8),
              (ByteArray{'a', 'b', 'a', 'b', 'c', 'd', 'c', 'd'}))
        << "a reset starts again at 258";
    EXPECT_EQ(Expanded(LzwCodes({256, 'a', 300, 257}), 3), (ByteArray{'a', 'a', 'a'}))
        << "a code from beyond the table counts as the one being made";
    EXPECT_EQ(Expanded(LzwCodes({256, 'a', 300, 300, 257}), 6), (ByteArray{'a', 'a', 'a', 0, 0, 'a'}))
        << "an entry not yet made is two zero bytes";
    EXPECT_EQ(Expanded(LzwCodes({256, 257}), 2), (ByteArray{0, 0}));
}

TEST(Lzw, EndsOnEveryDamage) {
    const auto fails = [](const ByteArray& data, std::size_t size) {
        const auto error = RaisedBy([&] { Expanded(data, size); });
        return error && error->Number() == 559 && error->Description().starts_with("Unhandled error ");
    };
    EXPECT_TRUE(fails(LzwCodes({'a', 256, 257}), 2)) << "does not begin with a reset";
    EXPECT_TRUE(fails(LzwCodes({256, 256, 300, 257}), 2)) << "no byte after a reset";
    EXPECT_TRUE(fails(LzwCodes({256, 300, 257}), 2)) << "nothing to repeat";
    EXPECT_TRUE(fails(LzwCodes({256, 'a', 'b', 257}), 1)) << "too much output";
    EXPECT_TRUE(fails(LzwCodes({256, 'a', 'b'}), 32767)) << "no end: zero bits follow";
    EXPECT_TRUE(fails({}, 10));
}

TEST(PackedPicture, ShiftsBetweenTheColorArguments) {
    const auto expanded = [](ByteArray data) {
        DecompressPicture(data);
        return data;
    };
    EXPECT_EQ(expanded({0xF6, 1, 2, 3}), (ByteArray{0xF6, 1, 2, 3}));
    // F0 4, F6 10 20, F2 5, F8 30, FF; two half bytes make whole ones again.
    EXPECT_EQ(expanded({0xF0, 0x4F, 0x61, 0x02, 0x0F, 0x25, 0xF8, 0x30, 0xFF}),
              (ByteArray{0xF0, 4, 0xF6, 0x10, 0x20, 0xF2, 5, 0xF8, 0x30, 0xFF}));
    EXPECT_EQ(expanded({0xF0, 0x40, 0x00, 0xFF}), (ByteArray{0xF0, 4, 0, 0x0F})) << "four bytes: expanded";
    EXPECT_EQ(expanded({0xF0, 0x40, 0xFF}), (ByteArray{0xF0, 0x40, 0xFF})) << "too near the end";
    EXPECT_EQ(expanded({}), ByteArray{});
    EXPECT_ERROR(504, expanded(ByteArray(32768, 1)));
    EXPECT_EQ(expanded(ByteArray(32767, 1)).size(), 32767U);
}

}  // namespace
}  // namespace zorvex::test
