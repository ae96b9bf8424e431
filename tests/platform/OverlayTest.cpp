// The overlay against the file system in memory: what it shows, and that what lies beneath stays.
#include "tests/support/FailingFiles.h"
#include "zorvex/platform/MemoryFileSystem.h"
#include "zorvex/platform/OverlayFileSystem.h"

namespace zorvex::test {
namespace {

class OverlayTest : public testing::Test {
  protected:
    OverlayTest() {
        for (const char* directory : {"\\game", "\\game\\src", "\\else"})
            beneath->MakeDirectory(directory);
        beneath->Write("\\game\\vol.0", Bytes("small"));
        beneath->Write("\\game\\VOL.0", Bytes("large"));
        beneath->Write("\\game\\src\\a.lgc", Bytes("return();"));
    }
    std::string Text(const std::string& path) const {
        const ByteArray bytes = overlay.Read(path);
        return {bytes.begin(), bytes.end()};
    }
    std::vector<std::string> Names(const std::string& directory) const {
        std::vector<std::string> names;
        for (const DirectoryEntry& entry : overlay.List(directory))
            names.push_back(entry.Name);
        return names;
    }
    using NameList = std::vector<std::string>;

    std::shared_ptr<MemoryFileSystem> beneath = std::make_shared<MemoryFileSystem>();
    OverlayFileSystem overlay{beneath, "\\game"};
};

TEST_F(OverlayTest, KeepsWritesAndLeavesWhatIsBeneath) {
    overlay.Write("\\game\\new", Bytes("1"));
    overlay.Append("\\game\\vol.0", Bytes("er"));
    overlay.WriteAt("\\game\\VOL.0", 1, Bytes("A"));
    EXPECT_EQ(Text("\\game\\vol.0") + Text("\\game\\VOL.0"), "smallerlArge");
    EXPECT_EQ(overlay.Size("\\game\\vol.0"), 7U);
    EXPECT_EQ(Names("\\game"), (NameList{"new", "src", "VOL.0", "vol.0"}));
    overlay.Remove("\\game\\VOL.0");
    EXPECT_EQ(Text("\\game\\VOL.0"), "smaller");
    overlay.Remove("\\game\\VOL.0");
    EXPECT_EQ(overlay.Kind("\\game\\vol.0"), FileKind::None);
    EXPECT_RUNTIME(reFileNotFound, overlay.Read("\\game\\vol.0"));
    EXPECT_TRUE(overlay.Changed());
    EXPECT_EQ(beneath->List("\\game").size(), 3U);
    EXPECT_EQ(beneath->Size("\\game\\VOL.0") + beneath->Size("\\game\\vol.0"), 10U);
}

TEST_F(OverlayTest, RenamesFilesAndWholeDirectories) {
    overlay.Rename("\\game\\SRC", "\\game\\sources");
    EXPECT_EQ(Text("\\game\\sources\\A.LGC"), "return();");
    EXPECT_EQ(overlay.Kind("\\game\\src"), FileKind::None);
    overlay.Replace("\\game\\sources\\a.lgc", "\\game\\new");
    EXPECT_EQ(Text("\\game\\new"), "return();");
    overlay.RemoveDirectory("\\game\\sources");
    EXPECT_RUNTIME(rePathNotFound, overlay.Write("\\game\\sources\\b", {}));
    EXPECT_RUNTIME(reFileExists, overlay.Rename("\\game\\new", "\\game\\VOL.0"));
    EXPECT_EQ(beneath->Kind("\\game\\src\\a.lgc"), FileKind::File);
}

TEST_F(OverlayTest, LetsEverythingElseThrough) {
    overlay.Write("\\else\\out", Bytes("x"));
    EXPECT_EQ(beneath->Size("\\else\\out"), 1U);
    overlay.Copy("\\game\\vol.0", "\\else\\copy");
    EXPECT_EQ(beneath->Size("\\else\\copy"), 5U);
    EXPECT_FALSE(overlay.Changed());
    const std::string temp = overlay.UniqueTempFile("\\game", "t");
    EXPECT_EQ(overlay.Kind(temp), FileKind::File);
    EXPECT_EQ(beneath->List("\\game").size(), 3U);
}

}  // namespace
}  // namespace zorvex::test
