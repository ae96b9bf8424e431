// Whole builds: their events, cancelling, the exchange of files, other directories and the other generation.
#include "tests/support/StorageTest.h"

namespace zorvex::test {
namespace {

const std::string otherDir = "\\other\\";

class BuildTest : public StorageTest {
  protected:
    BuildTest() { files_->MakeDirectory("\\other"); }

    void Open(const GameBuilder& builder) {
        Write(builder);
        game_.OpenGameDIR(gameDir);
        watch_ = game_.GameEvents().CompileGameStatus.Subscribe(
            [this](ECStatus status, AGIResType type, std::uint8_t number, const std::string& text) {
                events_.push_back(std::to_string(status) + " " + std::to_string(type) + ":" +
                                  std::to_string(number) + (text.empty() ? "" : " " + text));
                if (static_cast<int>(events_.size()) == cancelAt_) game_.CancelCompile();
            });
    }

    static GameBuilder Sample(const std::string& id = {}) {
        GameBuilder builder(id);
        builder.Fill(0, 11)
            .Add(rtView, 7, SampleResource(rtView, 3))
            .Add(rtLogic, 0, SampleResource(rtLogic, 2));
        builder.Add(rtSound, 2, SampleResource(rtSound, 9)).Fill(1, 5);
        builder.Add(rtPicture, 1, SampleResource(rtPicture, 4), 1);
        return builder;
    }

    Subscription watch_;
    std::vector<std::string> events_;
    int cancelAt_ = 0;
};

TEST_F(BuildTest, PacksWithoutGapsAndSetsTheOldFilesAside) {
    Open(Sample());
    const Model before = ReadModel(gameDir);
    const std::map<std::string, ByteArray> old = files_->All();
    game_.CompileGame(true, "\\GAME");
    EXPECT_EQ(events_, (std::vector<std::string>{"2 0:0", "2 1:1", "2 3:7", "2 2:2", "3 0:0", "4 0:0"}));
    EXPECT_EQ(Difference(ReadModel(gameDir), before), "");
    std::size_t length = 0;
    for (const auto& [key, bytes] : before)
        length += bytes.size() + 5;
    EXPECT_EQ(Files().Size(gameDir + "VOL.0"), length);
    EXPECT_FALSE(Exists(gameDir + "VOL.1"));
    EXPECT_TRUE(Exists(gameDir + "VOL.1.OLD"));
    for (const std::string name : {"VOL.0", "VIEWDIR"})
        EXPECT_EQ(Files().Read(gameDir + name + ".OLD"), old.at(gameDir + name));
    EXPECT_TRUE(FilesMatching(gameDir, "NEW_*").empty());
    EXPECT_EQ(Difference(LoadedModel(), before), "") << "the open game knows the new places";
    game_.Pictures().Item(1)->Load();
    EXPECT_FALSE(game_.Logics().Item(0)->Loaded());

    game_.Logics().Remove(0);
    game_.CompileGame(true, "/game/.");
    EXPECT_EQ(Difference(LoadedModel(), ReadModel(gameDir)), "") << "the same directory in other words";
    EXPECT_EQ(Files().Size(gameDir + "VOL.0.OLD"), length) << "the backups are those of the last run";
    EXPECT_FALSE(Exists(gameDir + "VOL.1.OLD"));
    EXPECT_TRUE(game_.Pictures().Item(1)->Loaded()) << "what was loaded stays so";
}

TEST_F(BuildTest, LeavesTheGameAloneWhenItGoesElsewhere) {
    Open(Sample());
    Files().Write(otherDir + "WORDS.TOK", ByteArray{1});
    const Model before = ReadModel(gameDir);
    const std::int32_t loc = game_.Logics().Item(0)->Loc();
    game_.CompileGame(true, "\\other");
    EXPECT_EQ(Files().Size(otherDir + "WORDS.TOK"), 1U) << "a rebuild is about resources only";
    game_.VocabularyWords()->AddWord("sword", 5);
    events_.clear();
    game_.CompileGame(false, "\\other");
    EXPECT_EQ(events_, (std::vector<std::string>{"0 0:0", "1 0:0", "2 0:0", "2 1:1", "2 3:7", "2 2:2",
                                                 "3 0:0", "4 0:0"}));
    EXPECT_EQ(game_.Logics().Item(0)->Loc(), loc);
    EXPECT_EQ(Difference(ReadModel(gameDir), before), "");
    EXPECT_EQ(Difference(LoadedModel(), before), "");
    EXPECT_EQ(Files().Read(otherDir + "WORDS.OLD"), ByteArray{1});
    EXPECT_EQ(Files().Read(otherDir + "WORDS.TOK"), Files().Read(gameDir + "WORDS.TOK"));
    EXPECT_FALSE(game_.VocabularyWords()->IsDirty());
    EXPECT_EQ(Files().Read(otherDir + "OBJECT"), Files().Read(gameDir + "OBJECT"));
    Model built = ReadModel(otherDir);
    EXPECT_EQ(built.size(), before.size());
    built[{rtLogic, 0}] = before.at({rtLogic, 0});  // compiled anew from its source
    EXPECT_EQ(Difference(built, before), "");
    EXPECT_ERROR_TEXT(561, "Can't set source dir to \\none\\", game_.CompileGame(true, "/none"));
    EXPECT_FALSE(Library().CompileActive);
}

TEST_F(BuildTest, CanBeCanceledAtEveryEventBeforeTheExchange) {
    Open(Sample());
    game_.CompileGame(false, "");
    const auto all = static_cast<int>(events_.size());
    const std::map<std::string, ByteArray> built = files_->All();
    for (cancelAt_ = 1; cancelAt_ < all; ++cancelAt_) {
        events_.clear();
        game_.CompileGame(false, "");
        EXPECT_EQ(events_.back(), "8 0:0") << cancelAt_;
        EXPECT_EQ(static_cast<int>(events_.size()), cancelAt_ + 1);
        EXPECT_FALSE(Library().CompileActive);
        EXPECT_TRUE(Library().CompileCanceled);
    }
    std::map<std::string, ByteArray> now = files_->All();
    std::erase_if(now, [](const auto& file) { return file.first.find("NEW_VOL.") != std::string::npos; });
    EXPECT_EQ(now, built);
    events_.clear();
    game_.CompileGame(false, "");
    EXPECT_EQ(events_.back(), "4 0:0") << "too late";
    EXPECT_TRUE(FilesMatching(gameDir, "NEW_*").empty());
}

TEST_F(BuildTest, ReportsBadResourcesAndGoesOn) {
    Open(Sample());
    Files().Write(gameDir + "src\\Logic0.lgc", Bytes("nonsense"));
    Files().WriteAt(gameDir + "VOL.1", 5, ByteArray{0});  // the picture's header
    game_.CompileGame(false, "");
    ASSERT_GE(events_.size(), 7U);
    EXPECT_EQ(events_[2], "2 0:0");
    EXPECT_TRUE(events_[3].starts_with("7 0:0 ")) << events_[3];
    EXPECT_EQ(events_[4], "2 1:1");
    EXPECT_EQ(events_[5], "6 1:1 Unable to load Picture1 (Invalid resource data at 5 in VOL.1.)");
    const Model built = ReadModel(gameDir);
    EXPECT_EQ(built.size(), 2U);
    EXPECT_FALSE(built.contains({rtPicture, 1}));
    EXPECT_TRUE(game_.Pictures().Exists(1));
}

TEST_F(BuildTest, FillsVolumesInTurnAndLooksBackAtThoseLeftBehind) {
    GameBuilder builder;
    for (int n = 0; n < 36; ++n)
        builder.Add(rtView, n, CountingBytes(32000), n < 18 ? 2 : 3);
    builder.Add(rtSound, 0, CountingBytes(700), 2);
    Open(builder);
    const Model before = ReadModel(gameDir);
    game_.MaxVol0Size(33000);
    game_.CompileGame(true, "");
    EXPECT_EQ(Difference(ReadModel(gameDir), before), "");
    EXPECT_EQ(game_.Views().Item(0)->Volume(), 0);
    EXPECT_EQ(game_.Views().Item(1)->Volume(), 1);
    EXPECT_EQ(game_.Views().Item(35)->Volume(), 2);
    EXPECT_EQ(game_.Sounds().Item(0)->Volume(), 2) << "volume 0 has no room for it, 2 is at hand";
    EXPECT_LE(Files().Size(gameDir + "VOL.0"), 33005U);
    EXPECT_LE(Files().Size(gameDir + "VOL.1"), 1047552U + 5);
}

TEST_F(BuildTest, ChangesTheGenerationThereAndBack) {
    Open(Sample());
    const Model before = ReadModel(gameDir);
    game_.GameID("LONGID");
    EXPECT_ERROR(543, game_.InterpreterVersion("2.5"));
    EXPECT_ERROR(597, game_.InterpreterVersion("4.0"));
    cancelAt_ = 2;
    game_.InterpreterVersion("3.002149");
    EXPECT_EQ(game_.InterpreterVersion() + " " + game_.GameID(), "2.917 LONGI") << "canceled";
    EXPECT_FALSE(Library().CompileCanceled);
    cancelAt_ = 0;

    game_.InterpreterVersion("3.002149");
    EXPECT_EQ(Difference(ReadModel(gameDir, "LONGI"), before), "");
    EXPECT_EQ(Difference(LoadedModel(), before), "");
    EXPECT_EQ(Difference(ReadModel(gameDir), before), "") << "the files of the old layout stay";
    const std::map<std::string, ByteArray> there = files_->All();
    game_.InterpreterVersion("3.002098");
    for (const auto& [path, bytes] : files_->All())
        EXPECT_TRUE(path.ends_with(".zvg") || there.at(path) == bytes) << path;
    game_.CloseGame();
    game_.OpenGameZVG(gameDir + "LONGI.zvg");
    EXPECT_EQ(game_.InterpreterVersion(), "3.002098");
    EXPECT_TRUE(Library().IsV3);

    game_.InterpreterVersion("2.936");
    EXPECT_EQ(Difference(ReadModel(gameDir), before), "");
    EXPECT_EQ(Difference(LoadedModel(), before), "");
}

TEST_F(BuildTest, AFailedChangeOfGenerationNamesTheCause) {
    Open(Sample());
    files_->FailAt(1, rePermissionDenied);
    const std::string cause = "File access error while creating temporary DIR file: (70:";
    EXPECT_RAISED(raised->Is(641) && Has(raised->Description(), cause), game_.InterpreterVersion("3.002149"));
    EXPECT_EQ(game_.InterpreterVersion(), "2.917");
    EXPECT_FALSE(Library().VersionChanging);
    EXPECT_FALSE(Library().CompileActive);
}

}  // namespace
}  // namespace zorvex::test
