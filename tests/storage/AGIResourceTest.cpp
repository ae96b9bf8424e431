#include "zorvex/storage/AGIResource.h"

#include "tests/support/FailingFiles.h"

namespace zorvex::test {
namespace {

AGIResource LoadedWith(const ByteArray& bytes) {
    AGIResource resource;
    resource.SetAllData(bytes);
    return resource;
}

TEST(AGIResource, NeedsALoadBeforeAnythingElse) {
    AGIResource resource;
    EXPECT_ERROR(563, resource.ReadByte(-5));
    EXPECT_ERROR(563, resource.WriteByte(1, 70000));
    EXPECT_ERROR(563, resource.InsertData(1.5));
    EXPECT_ERROR(563, resource.EORes());
    EXPECT_ERROR(563, resource.Clear());
}

TEST(AGIResource, ReadsInSequenceUpToTheEnd) {
    AGIResource resource = LoadedWith({1, 2, 3});
    EXPECT_EQ(resource.ReadByte(), 1);
    EXPECT_EQ(resource.ReadByte(), 2);
    EXPECT_FALSE(resource.EORes());
    EXPECT_EQ(resource.ReadByte(), 3);
    EXPECT_TRUE(resource.EORes());
    EXPECT_ERROR(513, resource.ReadByte());
    resource.SetPos(3);
    EXPECT_TRUE(resource.EORes());
    EXPECT_ERROR(513, resource.SetPos(4));
    EXPECT_ERROR(514, resource.SetPos(-1));
    EXPECT_ERROR(513, resource.ReadByte(3));
    EXPECT_ERROR(515, resource.Data(3));
    EXPECT_EQ(resource.ReadWord(0), 0x0201);
    EXPECT_EQ(resource.ReadWord(1, true), 0x0203);
    resource.SetPos(1);
    EXPECT_RUNTIME(9, resource.ReadWord(2));
    EXPECT_EQ(resource.GetPos(), 1) << "a failed read leaves the marker";
}

TEST(AGIResource, WritesAndGrows) {
    AGIResource resource;
    resource.NewResource();
    resource.Clear();
    resource.WriteByte(7);
    EXPECT_EQ(resource.Size(), 1);
    EXPECT_EQ(resource.GetPos(), 1);
    EXPECT_TRUE(resource.EORes());
    resource.WriteWord(0x1234, 0);
    EXPECT_EQ(resource.AllData(), (ByteArray{0x34, 0x12})) << "at the last byte it grows by one";
    resource.WriteWord(0xABCD, -1, true);
    EXPECT_EQ(resource.AllData(), (ByteArray{0x34, 0x12, 0xAB, 0xCD}));
    EXPECT_ERROR(516, resource.WriteByte(7, MaxResourceSize));
    EXPECT_ERROR(516, resource.WriteWord(1, MaxResourceSize - 1));
    EXPECT_ERROR(517, resource.WriteByte(7, 5));
    EXPECT_ERROR(513, resource.WriteWord(1, 5));
    EXPECT_ERROR(557, resource.WriteWord(65536));
    EXPECT_ERROR(557, resource.WriteWord(-1));
    EXPECT_EQ(resource.Size(), 4);
}

TEST(AGIResource, InsertsAndRemoves) {
    AGIResource resource = LoadedWith({1, 2, 3});
    resource.SetPos(2);
    resource.InsertData(ByteArray{8, 9}, 1);
    resource.InsertData(255.0);
    EXPECT_EQ(resource.AllData(), (ByteArray{1, 8, 9, 2, 3, 255}));
    EXPECT_EQ(resource.GetPos(), 2);
    EXPECT_RUNTIME(13, resource.InsertData(256.0));
    EXPECT_RUNTIME(13, resource.InsertData(1.5));
    EXPECT_ERROR(620, resource.InsertData(1.0, 6));
    EXPECT_ERROR(620, resource.RemoveData(6));
    resource.RemoveData(0, 0);
    EXPECT_EQ(resource.AllData(), (ByteArray{8, 9, 2, 3, 255}));
    EXPECT_RUNTIME(9, resource.RemoveData(3, 3));
    EXPECT_EQ(resource.Size(), 5);
}

TEST(AGIResource, TellsOfEachChangeOfContent) {
    AGIResource resource = LoadedWith({1, 2, 3});
    int changes = 0;
    const Subscription subscription = resource.Change.Subscribe([&] { ++changes; });
    resource.WriteByte(1);
    resource.WriteWord(1);
    resource.Data(0, 5);
    resource.InsertData(1.0);
    resource.RemoveData(0);
    resource.SetData(ByteArray{1});
    resource.SetAllData(ByteArray{1});
    EXPECT_EQ(changes, 7);
    resource.Clear();
    resource.Unload();
    EXPECT_EQ(changes, 7);
}

TEST(AGIResource, ShowsItsPlaceOnlyInAGame) {
    const LibraryReset reset;
    BeginGameSession();
    const Internal key;
    AGIResource resource;
    resource.ResFile(key, "a.bin");
    resource.Volume(key, 3);
    resource.Loc(key, 30);
    EXPECT_EQ(resource.Volume(), -1);
    EXPECT_EQ(resource.SizeInVol(), -1);
    EXPECT_EQ(resource.ResFile(), "a.bin");
    resource.Init(key, 7, 3, 30);
    EXPECT_EQ(resource.Volume(), 3);
    EXPECT_EQ(resource.Loc(), 30);
    EXPECT_EQ(resource.ResFile(), "");
    EXPECT_ERROR(510, resource.NewResource());
    EndGameSession(Library());
    EXPECT_EQ(resource.Volume(), -1);
    resource.NewResource();
}

TEST(AGIResource, GoesToAFileAndComesBack) {
    TempDir dir;
    AGIResource resource = LoadedWith({1, 2, 3});
    EXPECT_ERROR(599, resource.Export(""));
    EXPECT_ERROR(582, resource.Export(dir.File("missing/out.bin")));
    resource.Export(dir.File("out.bin"));
    EXPECT_EQ(dir.Read("out.bin"), (ByteArray{1, 2, 3}));
    EXPECT_EQ(resource.ResFile(), dir.File("out.bin"));
    resource.Unload();
    EXPECT_EQ(resource.Size(), 3) << "the size stays known";
    resource.Load();
    EXPECT_EQ(resource.AllData(), (ByteArray{1, 2, 3}));
    EXPECT_ERROR(511, resource.Load());

    dir.Write("in.bin", ByteArray{9, 8});
    dir.Write("empty.bin", ByteArray{});
    EXPECT_ERROR(604, resource.Import(""));
    EXPECT_ERROR(524, resource.Import(dir.File("missing.bin")));
    resource.Import(dir.File("in.bin"));
    EXPECT_EQ(resource.AllData(), (ByteArray{9, 8}));
    EXPECT_ERROR(605, resource.Import(dir.File("empty.bin")));

    const MemoryFiles files;
    files->Write("\\work\\out.bin", ByteArray{4, 5});
    AGIResource other = LoadedWith({6, 7, 8});
    for (int n = 1; n <= 3; ++n) {
        files->FailAt(n, reDiskFull, 1);
        EXPECT_ERROR(582, other.Export("\\work\\out.bin"));
        EXPECT_EQ(files->Read("\\work\\out.bin"), (ByteArray{4, 5})) << "the old file is kept, at " << n;
    }
}

}  // namespace
}  // namespace zorvex::test
