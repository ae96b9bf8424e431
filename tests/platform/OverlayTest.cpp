// The overlay over the files of the machine: what it shows, and that what lies beneath stays.
#include <fstream>

#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/OverlayFileSystem.h"
#include "zorvex/platform/Services.h"

namespace zorvex::test {
namespace {

class OverlayTest : public testing::Test {
  protected:
    OverlayTest() {
        for (const char* directory : {"\\game", "\\game\\src", "\\else"})
            beneath->MakeDirectory(At(directory));
        beneath->Write(At("\\game\\src\\a.lgc"), Bytes("return();"));
        WriteExactly("vol.0", "small");
        WriteExactly("VOL.0", "large");
    }
    /// Two names that differ only in case are made behind the library's back.
    void WriteExactly(const std::string& name, std::string_view text) const {
        std::ofstream(dir.Native() + "/game/" + name, std::ios::binary) << text;
    }
    std::string At(const std::string& path) const { return InnerPath(dir.Native()) + path; }
    std::string Text(const std::string& path) const {
        const ByteArray bytes = overlay.Read(At(path));
        return {bytes.begin(), bytes.end()};
    }
    std::vector<std::string> Names(const std::string& directory) const {
        std::vector<std::string> names;
        for (const DirectoryEntry& entry : overlay.List(At(directory)))
            names.push_back(entry.Name);
        return names;
    }
    using NameList = std::vector<std::string>;

    TempDir dir;
    std::shared_ptr<FileSystem> beneath = FilesBeneath();
    OverlayFileSystem overlay{beneath, At("\\game")};
};

TEST_F(OverlayTest, KeepsWritesAndLeavesWhatIsBeneath) {
    overlay.Write(At("\\game\\new"), Bytes("1"));
    overlay.Append(At("\\game\\vol.0"), Bytes("er"));
    overlay.WriteAt(At("\\game\\VOL.0"), 1, Bytes("A"));
    EXPECT_EQ(Text("\\game\\vol.0") + Text("\\game\\VOL.0"), "smallerlArge");
    EXPECT_EQ(overlay.Size(At("\\game\\vol.0")), 7U);
    EXPECT_EQ(Names("\\game"), (NameList{"new", "src", "VOL.0", "vol.0"}));
    overlay.Remove(At("\\game\\VOL.0"));
    EXPECT_EQ(Text("\\game\\VOL.0"), "smaller");
    overlay.Remove(At("\\game\\VOL.0"));
    EXPECT_EQ(overlay.Kind(At("\\game\\vol.0")), FileKind::None);
    EXPECT_RUNTIME(reFileNotFound, overlay.Read(At("\\game\\vol.0")));
    EXPECT_TRUE(overlay.Changed());
    EXPECT_EQ(beneath->List(At("\\game")).size(), 3U);
    EXPECT_EQ(beneath->Size(At("\\game\\VOL.0")) + beneath->Size(At("\\game\\vol.0")), 10U);
}

TEST_F(OverlayTest, RenamesFilesAndWholeDirectories) {
    overlay.Rename(At("\\game\\SRC"), At("\\game\\sources"));
    EXPECT_EQ(Text("\\game\\sources\\A.LGC"), "return();");
    EXPECT_EQ(overlay.Kind(At("\\game\\src")), FileKind::None);
    overlay.Replace(At("\\game\\sources\\a.lgc"), At("\\game\\new"));
    EXPECT_EQ(Text("\\game\\new"), "return();");
    overlay.RemoveDirectory(At("\\game\\sources"));
    EXPECT_RUNTIME(rePathNotFound, overlay.Write(At("\\game\\sources\\b"), {}));
    EXPECT_RUNTIME(reFileExists, overlay.Rename(At("\\game\\new"), At("\\game\\VOL.0")));
    EXPECT_EQ(beneath->Kind(At("\\game\\src\\a.lgc")), FileKind::File);
}

TEST_F(OverlayTest, LetsEverythingElseThrough) {
    overlay.Write(At("\\else\\out"), Bytes("x"));
    EXPECT_EQ(beneath->Size(At("\\else\\out")), 1U);
    overlay.Copy(At("\\game\\vol.0"), At("\\else\\copy"));
    EXPECT_EQ(beneath->Size(At("\\else\\copy")), 5U);
    EXPECT_FALSE(overlay.Changed());
    const std::string temp = overlay.UniqueTempFile(At("\\game"), "t");
    EXPECT_EQ(overlay.Kind(temp), FileKind::File);
    EXPECT_EQ(beneath->List(At("\\game")).size(), 3U);
}

}  // namespace
}  // namespace zorvex::test
