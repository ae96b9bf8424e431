// The collections: what they hold, and adding, removing and renumbering resources.
#include "tests/support/StorageTest.h"
#include "zorvex/base/Internal.h"
#include "zorvex/state/GameProperties.h"

namespace zorvex::test {
namespace {

class EditingTest : public StorageTest {
  protected:
    EditingTest() { Open(Sample("")); }

    static GameBuilder Sample(const std::string& id) {
        GameBuilder builder(id);
        builder.Add(rtLogic, 0, SampleResource(rtLogic, 0)).Add(rtLogic, 2, SampleResource(rtLogic, 2));
        builder.Add(rtView, 1, SampleResource(rtView, 0)).Add(rtSound, 4, SampleResource(rtSound, 0));
        return builder;
    }
    void Open(const GameBuilder& builder) {
        Write(builder);
        game_.OpenGameDIR(gameDir);
    }
    void OpenV3() {
        game_.CloseGame();
        for (const std::string& name : FilesMatching(gameDir, "*"))
            Files().Remove(gameDir + name);
        Open(Sample("TST"));
    }
    static ByteArray Directory(const std::string& name) { return Files().Read(gameDir + name); }
};

TEST_F(EditingTest, CollectionsAnswerByNumberAndWalkInOrder) {
    game_.Pictures().Add(5);
    game_.Pictures().Add(3);
    std::vector<int> numbers;
    for (const auto& picture : game_.Pictures())
        numbers.push_back(picture->Number());
    EXPECT_EQ(numbers, (std::vector<int>{5, 3}));
    EXPECT_EQ(game_.Pictures().Max(), 5);
    EXPECT_TRUE(game_.Pictures().Exists(3));
    EXPECT_ERROR_TEXT(617, "Invalid resource number", game_.Pictures().Item(4));
    const auto former = game_.Logics().Item(2);
    EXPECT_ERROR(602, game_.Logics().LoadEntry(Internal(), 2, 0, 0));
    EXPECT_ERROR(602, game_.Logics().Add(2));
    EXPECT_EQ(game_.Logics().Item(2), former);
    game_.CloseGame();
    EXPECT_EQ(game_.Logics().Max(), -1);
    EXPECT_EQ(game_.Views().Max(), 0);
}

TEST_F(EditingTest, AddMakesIDsUniqueAndGrowsTheDirectory) {
    const auto logic = game_.Logics().Add(5);
    EXPECT_EQ(logic->ID(), "Logic5");
    EXPECT_FALSE(logic->IsDirty());
    const ByteArray entries = Directory("LOGDIR");
    ASSERT_EQ(entries.size(), 18U);
    EXPECT_TRUE(std::all_of(entries.begin() + 9, entries.begin() + 15, [](int byte) { return byte == 255; }));
    EXPECT_EQ(entries[17], logic->Loc());
    EXPECT_EQ(logic->Loc(), 11 + 13 + 19 + 21);
    EXPECT_EQ(ReadGameString("Logic5", "ID", ""), "Logic5");

    logic->ID("Room");
    logic->Description("hall");
    logic->Load();
    EXPECT_EQ(game_.Logics().Add(6, logic.get())->ID(), "Room_1");
    const auto third = game_.Logics().Add(7, logic.get());
    EXPECT_EQ(third->ID(), "Room_2");
    EXPECT_EQ(third->Description(), "hall");
    EXPECT_EQ(third->SourceFile(), gameDir + "src\\Room_2.lgc");
    EXPECT_NE(third->Loc(), logic->Loc());
    files_->FailAt(1, reDiskFull);
    EXPECT_RAISED(raised->Is(649) && Has(raised->Description(), "61:"), game_.Views().Add(9));
    EXPECT_FALSE(game_.Views().Exists(9));
    EXPECT_EQ(ReadGameString("View9", "ID", "none"), "none");
    files_->Heal();
    const ByteArray sounds = Directory("SNDDIR");
    game_.Views().Add(9);
    game_.Views().Remove(9);
    EXPECT_EQ(Directory("VIEWDIR").size(), 6U);
    EXPECT_EQ(Directory("SNDDIR"), sounds);
    EXPECT_EQ(Difference(ReadModel(gameDir), LoadedModel()), "");
}

TEST_F(EditingTest, AnEntryGoesToItsOwnNumberWhateverElseIsMissing) {
    files_->KillAt(2);  // the bytes are written, the directory is not
    EXPECT_ERROR(649, game_.Views().Add(9));
    files_->Heal();
    game_.Views().Add(5);
    EXPECT_EQ(Difference(ReadModel(gameDir), LoadedModel()), "");

    OpenV3();
    const auto removed = game_.Logics().Item(2);
    game_.Logics().Remove(2);
    EXPECT_FALSE(removed->InGame());
    EXPECT_ERROR(626, removed->Load());
    removed->NewResource();
    EXPECT_ERROR(599, removed->Resource().Save());
    EXPECT_EQ(Difference(ReadModel(gameDir, "TST"), LoadedModel()), "");
}

TEST_F(EditingTest, WhereNoNewFileCanBeMadeDirectoriesAreStillEdited) {
    OpenV3();
    for (const int error : {rePermissionDenied, reDiskFull}) {
        files_->FailAt(2, error);
        game_.Views().Add(9);
        EXPECT_EQ(Difference(ReadModel(gameDir, "TST"), LoadedModel()), "") << error;
        files_->FailAt(1, error);
        game_.Views().Remove(9);
        EXPECT_EQ(Difference(ReadModel(gameDir, "TST"), LoadedModel()), "") << error;
    }
}

TEST_F(EditingTest, RemoveBlanksTheEntryAndLeavesTheVolume) {
    const ByteArray volume = Directory("VOL.0");
    game_.Logics().Remove(0);
    EXPECT_FALSE(game_.Logics().Exists(0));
    EXPECT_EQ(ReadGameString("Logic0", "ID", "none"), "none");
    ByteArray entries = Directory("LOGDIR");
    EXPECT_EQ(entries.size(), 9U);
    EXPECT_EQ((ByteArray{entries[0], entries[1], entries[2]}), (ByteArray{255, 255, 255}));
    game_.Logics().Remove(2);
    EXPECT_EQ(Directory("LOGDIR"), (ByteArray{255, 255, 255})) << "an emptied directory keeps one entry";
    game_.Sounds().Remove(4);
    EXPECT_EQ(Directory("SNDDIR"), (ByteArray{255, 255, 255}));
    EXPECT_EQ(Directory("VOL.0"), volume);
    EXPECT_ERROR(617, game_.Logics().Remove(2));
    EXPECT_EQ(game_.Logics().Add(1)->Loc(), 0) << "the space is free";
    Reopen();
    EXPECT_EQ(game_.Logics().Count(), 1);
}

TEST_F(EditingTest, RenumberMovesNothingButTheEntryAndTheName) {
    const std::int32_t loc = game_.Logics().Item(2)->Loc();
    const auto logic = game_.Logics().Item(2);
    logic->Load();
    logic->Description("cellar");
    logic->Unload();
    Files().Write(gameDir + "src\\Logic9.lgc", Bytes("older"));
    const ByteArray source = Files().Read(gameDir + "src\\Logic2.lgc");
    game_.Logics().Renumber(2, 9);
    EXPECT_EQ(game_.Logics().Item(9), logic);
    EXPECT_EQ(logic->ID(), "Logic9");
    EXPECT_EQ(logic->Loc(), loc);
    EXPECT_FALSE(logic->Loaded());
    EXPECT_EQ(Files().Read(gameDir + "src\\Logic9.lgc"), source);
    EXPECT_EQ(Files().Kind(gameDir + "src\\Logic2.lgc"), FileKind::None);
    EXPECT_EQ(ReadGameString("Logic9", "Description", ""), "cellar");
    EXPECT_EQ(ReadGameString("Logic2", "ID", ""), "Logic9") << "the ID went to the former section";
    EXPECT_EQ(ReadGameString("Logic2", "Description", "none"), "none");
    EXPECT_EQ(Directory("LOGDIR").size(), 30U);
    game_.Logics().Renumber(9, 1);
    EXPECT_EQ(Directory("LOGDIR").size(), 6U);

    game_.Logics().Item(1)->ID("Start");
    const std::string file = game_.Logics().Item(1)->SourceFile();
    game_.Logics().Renumber(1, 3);
    EXPECT_EQ(game_.Logics().Item(3)->ID(), "Start");
    EXPECT_EQ(game_.Logics().Item(3)->SourceFile(), file);
    game_.Views().Add(7)->ID("View8");
    game_.Views().Renumber(1, 8);
    EXPECT_EQ(game_.Views().Item(8)->ID(), "View8_1");
    EXPECT_ERROR_TEXT(669, "Can't renumber; new number is already in use", game_.Views().Renumber(7, 8));
    EXPECT_ERROR(670, game_.Views().Renumber(99, 100));
    game_.Views().Renumber(99, 99);
    EXPECT_EQ(Difference(ReadModel(gameDir), LoadedModel()), "");
}

TEST_F(EditingTest, MarkAllAsDirtyReachesTheDisk) {
    game_.Logics().Item(2)->Load();
    EXPECT_TRUE(game_.Logics().Item(2)->Compiled());
    game_.Logics().MarkAllAsDirty();
    EXPECT_FALSE(game_.Logics().Item(2)->Compiled());
    EXPECT_TRUE(Has(files_->Text(gameDir + "AGI.zvg"), "&H0"));
    EXPECT_EQ(ReadGameString("Logic0", "CompCRC32", ""), "&H0");
}

TEST_F(EditingTest, V3DirectoriesMoveTheirHeaderWords) {
    OpenV3();
    const auto header = [] { return ByteArray(Files().ReadAt(gameDir + "TSTDIR", 0, 8)); };
    EXPECT_EQ(header(), (ByteArray{8, 0, 17, 0, 20, 0, 26, 0}));
    game_.Logics().Add(5);
    game_.Views().Add(2);
    game_.Sounds().Add(6);
    EXPECT_EQ(header(), (ByteArray{8, 0, 26, 0, 29, 0, 38, 0}));
    game_.Logics().Remove(5);
    game_.Views().Remove(1);
    game_.Sounds().Remove(6);
    EXPECT_EQ(header(), (ByteArray{8, 0, 17, 0, 20, 0, 29, 0}));
    EXPECT_EQ(Difference(ReadModel(gameDir, "TST"), LoadedModel()), "");
    game_.Logics().Remove(0);
    game_.Logics().Remove(2);
    game_.Views().Remove(2);
    game_.Sounds().Remove(4);
    Reopen();
    EXPECT_EQ(game_.Logics().Count() + game_.Views().Count() + game_.Sounds().Count(), 0);
}

// --- Places in volumes

void SaveSize(GameResource& resource, std::size_t size) {
    resource.Resource().SetAllData(ByteArray(size, 1));
    resource.Resource().Save();
    resource.Unload();
}

TEST_F(EditingTest, SavesIntoTheFirstGapThatFits) {
    for (const bool isV3 : {false, true}) {
        SCOPED_TRACE(isV3);
        if (isV3) OpenV3();
        const int header = isV3 ? 7 : 5;
        AGIPictures& pictures = game_.Pictures();
        const std::int32_t end = game_.Sounds().Item(4)->Loc() + 16 + header;
        for (int n = 0; n < 4; ++n)
            pictures.Add(static_cast<std::uint8_t>(n));
        for (int n = 0; n < 4; ++n)
            SaveSize(*pictures.Item(static_cast<std::uint8_t>(n)), 1000);
        std::vector<std::int32_t> places;
        for (const auto& picture : pictures)
            places.push_back(picture->Loc());
        EXPECT_GE(places[0], end);
        pictures.Remove(1);
        SaveSize(*pictures.Item(3), 1000);
        EXPECT_EQ(pictures.Item(3)->Loc(), places[1]) << "a gap of exactly the size";
        SaveSize(*pictures.Item(3), 1001);
        EXPECT_EQ(pictures.Item(3)->Loc(), places[3]) << "its own place is free for it";
        SaveSize(*pictures.Item(2), 500);
        EXPECT_EQ(pictures.Item(2)->Loc(), places[1]);
        SaveSize(*pictures.Item(2), 65000);
        EXPECT_GT(pictures.Item(2)->Loc(), places[3]);
        EXPECT_EQ(pictures.Item(2)->SizeInVol(), 65000);
        EXPECT_ERROR(516, SaveSize(*pictures.Item(2), 65536));
        pictures.Item(2)->Unload();
        EXPECT_EQ(Difference(ReadModel(gameDir, isV3 ? "TST" : ""), LoadedModel()), "");
    }
}

TEST_F(EditingTest, GoesOnToFurtherVolumesUntilAllAreFull) {
    int number = 0;
    const auto addLarge = [&] {
        const auto picture = game_.Pictures().Add(static_cast<std::uint8_t>(number++));
        SaveSize(*picture, 65000);
        return picture;
    };
    while (addLarge()->Volume() == 0) {
    }
    EXPECT_EQ(number, 17);
    EXPECT_EQ(game_.Pictures().Item(16)->Loc(), 0);
    while (number < 16 * 5)
        addLarge();
    EXPECT_ERROR(593, addLarge());
    EXPECT_EQ(Difference(ReadModel(gameDir), LoadedModel()), "");
    EXPECT_EQ(Files().Kind(gameDir + "VOL.5"), FileKind::None);
}

}  // namespace
}  // namespace zorvex::test
