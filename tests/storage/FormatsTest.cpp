// The examples of the pages on volume and directory files.
#include <gtest/gtest.h>

#include "tests/support/MemoryFileSystem.h"
#include "tests/support/TestFiles.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/AGIResource.h"
#include "zorvex/storage/V3Directory.h"

namespace zorvex {
namespace {

/// The bytes of a page's example; a "#" begins a remark.
ByteArray Example(const std::string& page) {
    ByteArray bytes;
    for (const std::string& line : Split(test::DocumentedExample(page, "hex"), "\n")) {
        for (const std::string& part : Split(line.substr(0, line.find('#')), " ")) {
            if (part.size() == 2) bytes.push_back(static_cast<std::uint8_t>(std::stoi(part, nullptr, 16)));
        }
    }
    return bytes;
}

TEST(DocumentedFormats, TheVolumeHoldsAPlainAnLzwAndAPackedResource) {
    const test::MemoryFiles files;
    files->Write("\\work\\TSTVOL.1", Example("formats/volume.md"));
    Library().GameDir = "\\work\\";
    Library().GameID = "TST";
    Library().IsV3 = true;
    const auto load = [](AGIResType type, std::int32_t loc) {
        AGIResource resource;
        resource.ResType(type);
        resource.Init(1, 1, loc);
        resource.Load();
        return resource.AllData();
    };
    EXPECT_EQ(load(rtLogic, 0), (ByteArray{1, 0, 0, 0, 2, 0}));
    EXPECT_EQ(load(rtSound, 13), test::Bytes("ababababa"));
    EXPECT_EQ(load(rtPicture, 28), (ByteArray{0xF0, 4, 0xF6, 0x10, 0x20, 0xF2, 5, 0xF8, 0x30, 0xFF}));
    Library().IsV3 = false;
    Library().GameDir.clear();
    Library().GameID.clear();
}

TEST(DocumentedFormats, TheDirectoryHoldsOneEntryOfEachType) {
    const ByteArray file = Example("formats/directory.md");
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

}  // namespace
}  // namespace zorvex
