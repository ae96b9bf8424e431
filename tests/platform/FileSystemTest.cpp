#include "zorvex/platform/FileSystem.h"

#include <fstream>

#include "tests/support/FailingFiles.h"
#include "zorvex/platform/WholeFile.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zorvex::test {

namespace {

std::string NamesIn(std::string_view directory) {
    std::string names;
    for (const DirectoryEntry& entry : Files().List(directory))
        names += entry.Name + " ";
    return names;
}

/// The same rules hold for the machine's files and for those in memory that other tests use.
class FileSystemTest : public testing::TestWithParam<bool> {
  protected:
    void SetUp() override {
        if (GetParam()) memory_.emplace();
        base_ = GetParam() ? "\\work\\" : dir_.Path();
        Files().Write(base_ + "Vol.0", Bytes("volume"));
        Files().Write(base_ + "LOGDIR", Bytes("log"));
        Files().MakeDirectory(base_ + "Src\\");
        Files().Write(base_ + "src\\Logic0.lgc", Bytes("return();"));
    }
    std::string At(std::string_view name) const { return base_ + std::string(name); }
    std::string Text(std::string_view name) const { return TextOf(Files().Read(At(name))); }

    TempDir dir_;
    std::optional<MemoryFiles> memory_;
    std::string base_;
};

}  // namespace

TEST_P(FileSystemTest, NamesIgnoreCase) {
    EXPECT_EQ(Files().Kind(At("vol.0")), FileKind::File);
    EXPECT_EQ(Files().Kind(At("SRC\\")), FileKind::Directory);
    EXPECT_EQ(Files().Kind(At("vol.1")), FileKind::None);
    EXPECT_EQ(Text("SRC\\LOGIC0.LGC"), "return();");
    Files().Write(At("VOL.0"), Bytes("new"));
    Files().Append(At("vol.0"), Bytes("er"));
    EXPECT_EQ(Text("Vol.0"), "newer");
    EXPECT_EQ(NamesIn(base_), "LOGDIR Src Vol.0 ");
    EXPECT_EQ(FilesMatching(base_, "*dir"), std::vector<std::string>{"LOGDIR"});
    EXPECT_EQ(SubdirectoriesOf(base_), std::vector<std::string>{"Src"});
    EXPECT_EQ(FilesMatching(At("nowhere"), "*"), std::vector<std::string>{});
    Files().Remove(At("VOL.0"));
    EXPECT_EQ(NamesIn(base_), "LOGDIR Src ");
}

TEST_P(FileSystemTest, ReadsAndWritesAtAnOffset) {
    EXPECT_EQ(Files().Size(At("vol.0")), 6U);
    EXPECT_EQ(Files().ReadAt(At("vol.0"), 3, 2), Bytes("um"));
    EXPECT_EQ(Files().ReadAt(At("vol.0"), 4, 10), Bytes("me"));
    EXPECT_EQ(Files().ReadAt(At("vol.0"), 100, 10), ByteArray());
    Files().WriteAt(At("vol.0"), 1, Bytes("AL"));
    EXPECT_EQ(Text("vol.0"), "vALume");
    Files().WriteAt(At("vol.1"), 2, Bytes("x"));
    EXPECT_EQ(Text("vol.1"), std::string("\0\0x", 3));
}

TEST_P(FileSystemTest, RenameReplaceAndCopy) {
    Files().Rename(At("vol.0"), At("VOL.0"));
    EXPECT_EQ(NamesIn(base_), "LOGDIR Src VOL.0 ");
    EXPECT_RUNTIME(reFileExists, Files().Rename(At("vol.0"), At("logdir")));
    EXPECT_RUNTIME(reFileNotFound, Files().Rename(At("vol.9"), At("vol.8")));
    EXPECT_RUNTIME(reFileNotFound, Files().Rename(At("vol.0"), At("none\\vol.0")));
    EXPECT_RUNTIME(reFileNotFound, Files().Replace(At("vol.0"), At("none\\vol.0")));
    EXPECT_RUNTIME(reBadFileName, Files().Rename(At("src"), At("SRC\\inner")));
    Files().Copy(At("vol.0"), At("vol.1"));
    Files().Copy(At("LOGDIR"), At("VOL.1"));
    EXPECT_EQ(Text("vol.1"), "log");
    Files().Replace(At("vol.0"), At("logdir"));
    EXPECT_EQ(NamesIn(base_), "LOGDIR Src vol.1 ");
    EXPECT_EQ(Text("logdir"), "volume");
    Files().Rename(At("src"), At("source"));
    EXPECT_EQ(Text("source\\logic0.lgc"), "return();");
}

TEST_P(FileSystemTest, FailuresHaveTheirNumbers) {
    EXPECT_RUNTIME(reFileNotFound, Files().Read(At("nothing")));
    EXPECT_RUNTIME(rePathFileAccess, Files().Read(At("src")));
    if (FileExists("\\dev\\zero")) {
        EXPECT_RUNTIME(rePathFileAccess, Files().Read("\\dev\\zero"));
    }
    EXPECT_RUNTIME(rePathFileAccess, Files().Write(At("src"), {}));
    EXPECT_RUNTIME(reFileNotFound, Files().Remove(At("nothing")));
    EXPECT_RUNTIME(rePathFileAccess, Files().MakeDirectory(At("SRC")));
    EXPECT_RUNTIME(reFileExists, Files().RemoveDirectory(At("src")));
    EXPECT_RUNTIME(reFileNotFound, Files().List(At("nothing")));
    Files().Remove(At("src\\logic0.lgc"));
    Files().RemoveDirectory(At("src\\"));
    EXPECT_EQ(NamesIn(base_), "LOGDIR Vol.0 ");
}

TEST_P(FileSystemTest, UniqueFilesAndWholeFiles) {
    const std::string one = Files().UniqueTempFile(base_, "AGI");
    const std::string two = Files().UniqueTempFile(base_, "AGI");
    EXPECT_NE(one, two);
    EXPECT_EQ(Files().Size(one), 0U);
    EXPECT_TRUE(JustFileName(one).starts_with("AGI"));
    Files().Remove(one);
    Files().Remove(two);
    ReplaceWholeFile(At("vol.0"), "changed");
    ReplaceWholeFile(At("new"), "new");
    EXPECT_EQ(Text("vol.0") + Text("new"), "changednew");
    EXPECT_RUNTIME(rePathFileAccess, ReplaceWholeFile(At("src"), "x"));
    EXPECT_EQ(NamesIn(base_), "LOGDIR new Src Vol.0 ");
}

INSTANTIATE_TEST_SUITE_P(, FileSystemTest, testing::Values(false, true),
                         [](const auto& which) { return which.param ? "Memory" : "System"; });

#ifndef _WIN32

TEST(SystemFiles, OfNamesThatDifferInCaseTheExactOneWinsThenTheFirst) {
    const TempDir dir;
    dir.Write("Vol.0", "Vol");
    dir.Write("vol.0", "vol");
    EXPECT_EQ(Files().Read(dir.File("vol.0")), Bytes("vol"));
    EXPECT_EQ(Files().Read(dir.File("VOL.0")), Bytes("Vol"));
}

TEST(SystemFiles, NamesThatNoGameCanHaveAreNotSeen) {
    const TempDir dir;
    for (const char* name : {"good", "back\\slash", "bell\a", "a:b", "\xC2\x9B"})
        std::ofstream(dir.Native() + "/" + name) << "x";
    EXPECT_EQ(NamesIn(dir.Path()), "good ");
}

TEST(SystemFiles, AZeroByteEndsNoPath) {
    const TempDir dir;
    dir.Write("profile", "mine");
    const std::string path = dir.File(std::string("profile\0.lgc", 12));
    EXPECT_EQ(Files().Kind(path), FileKind::None);
    EXPECT_RUNTIME(reBadFileName, Files().Read(path));
    EXPECT_RUNTIME(reBadFileName, Files().Write(path, Bytes("x")));
    EXPECT_RUNTIME(reBadFileName, Files().Remove(path));
    EXPECT_EQ(dir.ReadText("profile"), "mine");
}

TEST(SystemFiles, AReplacementTakesOverTheAccessRights) {
    const TempDir dir;
    dir.Write("game.zvg", "old");
    const std::string native = dir.Native() + "/game.zvg";
    ASSERT_EQ(::chmod(native.c_str(), 0640), 0);
    ReplaceWholeFile(dir.File("GAME.ZVG"), "new");
    struct stat info {};
    ASSERT_EQ(::stat(native.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0640U);
    EXPECT_EQ(dir.ReadText("game.zvg"), "new");
}

#endif

TEST(Clock, DatesAsText) {
    const DateTime date{2024, 2, 29, 7, 8, 9};
    EXPECT_EQ(DateText(date), "2024-02-29 07:08:09");
    EXPECT_EQ(ParseDate(" 2024-02-29 07:08:09 "), date);
    EXPECT_EQ(MediumDateText(date), "29-Feb-2024");
    EXPECT_EQ(DateText({}), "");
    for (const char* text : {"", "2023-02-29 00:00:00", "2024-13-01 00:00:00", "2024-01-01 24:00:00",
                             "yesterday", "2024-0a-01 00:00:00", "2024-01-00 00:00:00", "13/1/2024",
                             "2/30/2024", "1/1/24", "1/1/2024 13:00 PM", "1/1/2024 0:10 AM", "2024-01-01 10",
                             "2024-01-01 10:00 and", "2024-01-01x10:00", "1-Foo-2024"}) {
        EXPECT_EQ(ParseDate(text), std::nullopt) << text;
    }
    for (const char* text : {"2/29/2024 7:08:09 AM", "2024-02-29T07:08:09", "2024-02-29T07:08:09.250Z",
                             "2024-02-29 07:08:09+02:00", "29-Feb-2024 07:08:09", "29 february 2024 7:08:09",
                             "Feb 29, 2024 7:08:09 am", " February 29 2024 07:08:09 "}) {
        EXPECT_EQ(ParseDate(text), date) << text;
    }
    EXPECT_EQ(ParseDate("5/12/2004 10:33:21 PM"), (DateTime{2004, 5, 12, 22, 33, 21}));
    EXPECT_EQ(ParseDate("5/12/2004 12:33 PM"), (DateTime{2004, 5, 12, 12, 33, 0}));
    EXPECT_EQ(ParseDate("5/12/2004 12:33 AM"), (DateTime{2004, 5, 12, 0, 33, 0}));
    EXPECT_EQ(ParseDate("2004-05-12"), (DateTime{2004, 5, 12, 0, 0, 0}));
}

}  // namespace zorvex::test
