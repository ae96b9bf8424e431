// Opening a game by its directory files: every length, damaged entries, and what is said of them.
#include "tests/support/StorageTest.h"
#include "zorvex/storage/V3Directory.h"

namespace zorvex::test {
namespace {

class DirectoriesTest : public StorageTest {
  protected:
    /// The warnings of the log without their dates.
    std::vector<std::string> Warnings() const {
        std::vector<std::string> texts;
        if (Files().Kind(gameDir + "errlog.txt") == FileKind::None) return texts;
        for (const std::string& line : Split(files_->Text(gameDir + "errlog.txt"), "\r\n")) {
            if (!line.empty()) texts.push_back(line.substr(line.find("WARNING: ") + 9));
        }
        return texts;
    }
};

GameBuilder V2Game() {
    GameBuilder builder;
    builder.Add(rtLogic, 0, SmallestLogic()).Add(rtPicture, 0, {0xFF});
    return builder;
}

TEST_F(DirectoriesTest, V2FilesOfEveryLength) {
    Write(V2Game());
    const auto withPictures = [&](std::size_t length) {
        ByteArray entries(length, 255);
        for (std::size_t i = 0; i < std::min<std::size_t>(length, 3); ++i)
            entries[i] = i == 2 ? 11 : 0;
        Files().Write(gameDir + "PICDIR", entries);
    };
    withPictures(0);
    EXPECT_RAISED(raised->Number() == 511 && raised->Description() == "PICDIR file is invalid" &&
                      raised->Source() == "agiGame",
                  game_.OpenGameDIR(gameDir));
    EXPECT_FALSE(game_.GameLoaded());
    EXPECT_EQ(game_.Logics().Count(), 0);

    for (const std::size_t length : {1U, 3U, 4U, 768U}) {
        withPictures(length);
        game_.OpenGameDIR(gameDir);
        EXPECT_EQ(game_.Pictures().Count(), length < 3 ? 0 : 1) << length;
        game_.CloseGame();
    }
    EXPECT_TRUE(Warnings().empty());
    withPictures(769);
    EXPECT_ERROR_TEXT(636, "Warnings generated during OpenGame", game_.OpenGameDIR(gameDir));
    EXPECT_TRUE(game_.GameLoaded());
    EXPECT_EQ(Warnings(),
              std::vector<std::string>{"PICDIR file is larger than expected; it may be corrupted"});
    game_.CloseGame();
    Files().Remove(gameDir + "SNDDIR");
    EXPECT_ERROR_TEXT(524, "File not found (\\game\\SNDDIR)", game_.OpenGameDIR(gameDir));
}

TEST_F(DirectoriesTest, V3FilesOfEveryLength) {
    GameBuilder builder("TST");
    builder.Add(rtLogic, 0, SmallestLogic());
    Write(builder);
    const auto open = [&](const ByteArray& file) {
        Files().Write(gameDir + "TSTDIR", file);
        return RaisedBy([&] { game_.OpenGameDIR(gameDir); });
    };
    const auto refused = [&](const ByteArray& file) {
        const auto error = open(file);
        return error && error->Is(542) &&
               error->Description() == "\\game\\TSTDIR is not a valid directory file.";
    };
    EXPECT_TRUE(refused({}));
    EXPECT_TRUE(refused({8, 0, 8, 0, 8, 0, 8, 0, 0, 0}));
    EXPECT_TRUE(refused({8, 0, 12, 0, 11, 0, 11, 0, 0, 0, 0, 0})) << "falling offsets";
    EXPECT_TRUE(refused({8, 0, 200, 0, 200, 0, 200, 0, 0, 0, 0})) << "past the end";
    EXPECT_TRUE(refused({8, 0, 8, 0, 8, 0, 12, 0, 0, 0, 0})) << "sounds begin behind the end";

    EXPECT_FALSE(open({8, 0, 8, 0, 8, 0, 8, 0, 255, 0, 0})) << "an entry FF 00 00 is empty";
    EXPECT_EQ(game_.Logics().Count() + game_.Sounds().Count(), 0);
    game_.CloseGame();
    EXPECT_FALSE(open({8, 0, 8, 0, 8, 0, 8, 0, 0, 0, 0}));
    EXPECT_EQ(game_.Sounds().Count(), 1);
    game_.CloseGame();
    EXPECT_FALSE(open({8, 0, 11, 0, 13, 0, 13, 0, 0, 0, 0, 0, 0})) << "two bytes are no entry";
    EXPECT_EQ(game_.Logics().Count(), 1);
    EXPECT_EQ(game_.Pictures().Count(), 0);
    game_.CloseGame();

    Files().Write(gameDir + "TSTDIR",
                  MakeV3Directory([](AGIResType type) { return ByteArray(type == rtLogic ? 800 : 0, 255); }));
    EXPECT_ERROR(636, game_.OpenGameDIR(gameDir));
    EXPECT_EQ(Warnings(), std::vector<std::string>{
                              "LOG portion of DIR file is larger than expected; it may be corrupted"});
}

TEST_F(DirectoriesTest, BlanksBadEntriesAndKeepsTheFormerFile) {
    GameBuilder builder = V2Game();
    builder.Add(rtLogic, 7, SmallestLogic());
    builder.Entry(rtPicture, 2, 3, 5).Entry(rtPicture, 4, 0, 0x23456).Entry(rtPicture, 6, 0, 12);
    builder.Fill(0, 3)
        .Entry(rtView, 1, 0, builder.VolumeSize(0))
        .Entry(rtView, 3, 0, builder.VolumeSize(0) - 3);
    builder.Fill(1, 5).Add(rtSound, 9, {}, 1);
    Write(builder);
    const ByteArray oldPictures = Files().Read(gameDir + "PICDIR");
    const ByteArray logics = Files().Read(gameDir + "LOGDIR");
    EXPECT_ERROR(636, game_.OpenGameDIR(gameDir));
    const std::vector<std::string> warnings = {
        "Picture2 was skipped because it's VOL file (VOL.3) is missing.",
        "Picture4 was skipped because it's location (144470) in the VOL file(VOL.0) is invalid.",
        "Picture6 was skipped because it does not have a valid resource header",
        "Sound9 was skipped due to resource data error (Error 9 while reading resource in VOL.1.)",
        "View1 was skipped because it does not have a valid resource header",
        "View3 was skipped because it does not have a valid resource header"};
    EXPECT_EQ(Warnings(), warnings);
    EXPECT_EQ(game_.Logics().Count(), 2);
    EXPECT_EQ(game_.Pictures().Count(), 1);
    EXPECT_FALSE(game_.Logics().Item(7)->IsDirty());
    ByteArray pictures = oldPictures;
    std::fill(pictures.begin() + 3, pictures.end(), 255);
    EXPECT_EQ(Files().Read(gameDir + "PICDIR"), pictures);
    EXPECT_EQ(Files().Read(gameDir + "PICDIR.OLD"), oldPictures);
    EXPECT_EQ(Files().Read(gameDir + "LOGDIR"), logics);
    EXPECT_EQ(Files().Kind(gameDir + "LOGDIR.OLD"), FileKind::None);
    Reopen();
    EXPECT_EQ(Warnings(), warnings) << "nothing is left to warn of";
}

TEST_F(DirectoriesTest, OpensADamagedGameThatCannotBeWritten) {
    GameBuilder builder = V2Game();
    Write(builder.Entry(rtPicture, 2, 3, 5));
    const ByteArray pictures = Files().Read(gameDir + "PICDIR");
    files_->KillAt(1);
    EXPECT_ERROR(636, game_.OpenGameDIR(gameDir));
    EXPECT_EQ(game_.Pictures().Count(), 1);
    files_->Heal();
    game_.CloseGame();
    for (int n = 1; n <= 6; ++n) {
        Files().Write(gameDir + "PICDIR", pictures);
        files_->FailAt(n, reDiskFull, 2);
        RaisedBy([&] { game_.OpenGameDIR(gameDir); });
        const bool blanked = Files().Read(gameDir + "PICDIR") != pictures;
        EXPECT_EQ(Files().Read(gameDir + (blanked ? "PICDIR.OLD" : "PICDIR")), pictures) << n;
        game_.CloseGame();
    }
}

TEST_F(DirectoriesTest, ThePropertyFileVouchesForAResource) {
    GameBuilder builder("TST");
    builder.Add(rtLogic, 0, SmallestLogic()).Add(rtView, 5, SmallestView());
    Write(builder);
    game_.OpenGameDIR(gameDir);
    game_.Views().Item(5)->ID("Hero");
    game_.CloseGame();
    Files().WriteAt(gameDir + "TSTVOL.0", 13, ByteArray{0});
    game_.OpenGameZVG(gameDir + "TST.zvg");
    EXPECT_EQ(game_.Views().Item(5)->ID(), "Hero");
    EXPECT_EQ(game_.Views().Item(5)->Size(), 14);
    EXPECT_ERROR(506, game_.Views().Item(5)->Load());
    game_.CloseGame();
    EXPECT_ERROR(636, game_.OpenGameDIR(gameDir));
    EXPECT_FALSE(game_.Views().Exists(5));
}

}  // namespace
}  // namespace zorvex::test
