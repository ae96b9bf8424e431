// Games opened and built the way a host asks for: what is told, what is kept, and what never changes.
#include <stop_token>

#include "tests/support/StorageTest.h"

namespace zorvex::test {
namespace {

/// All files below a directory with their bytes.
void Collect(const std::string& directory, std::map<std::string, ByteArray>& files) {
    for (const DirectoryEntry& entry : Files().List(directory)) {
        const std::string path = directory + entry.Name;
        if (entry.Kind == FileKind::Directory) {
            Collect(path + "\\", files);
        } else {
            files[path] = Files().Read(path);
        }
    }
}

class OptionsTest : public StorageTest {
  protected:
    static std::map<std::string, ByteArray> Disk() {
        std::map<std::string, ByteArray> files;
        Collect(gameDir, files);
        return files;
    }
    static GameBuilder SmallGame() {
        GameBuilder builder;
        builder.Add(rtLogic, 0, SmallestLogic())
            .Add(rtView, 3, SmallestView())
            .Add(rtSound, 2, SilentSound());
        return builder;
    }
    static BuildItem ItemOf(const BuildReport& report, AGIResType type, int number) {
        for (const BuildItem& item : report.Items) {
            if (item.Type == type && item.Number == number) return item;
        }
        ADD_FAILURE() << "no item of " << type << " " << number;
        return {};
    }
};

TEST_F(OptionsTest, ALookChangesNoByteWhateverIsDone) {
    Write(SmallGame().Entry(rtView, 9, 3, 0));
    Files().Write(gameDir + "PICDIR", ByteArray{});
    const auto before = Disk();
    game_.Open(gameDir, {.ReadOnly = true});
    EXPECT_TRUE(game_.ReadOnly());
    game_.Logics().Item(0)->Load();
    game_.Logics().Item(0)->SourceText("return();\r\n[ mine");
    game_.Logics().Item(0)->SaveSource();
    game_.Logics().Item(0)->Compile();
    game_.Views().Item(3)->ID("Hero");
    game_.Views().Remove(3);
    game_.Sounds().Add(7);
    game_.GameID("OTHER");
    game_.SaveProperties();
    EXPECT_TRUE(game_.Build({.RebuildOnly = true, .DropUnreadable = true}).Done);
    game_.InterpreterVersion("3.002149");
    game_.CloseGame();
    EXPECT_EQ(Disk(), before);
    EXPECT_FALSE(game_.ReadOnly());
    // What is looked at is not a memory of the last look.
    game_.Open(gameDir, {.ReadOnly = true});
    EXPECT_TRUE(game_.Views().Exists(3) && !game_.Sounds().Exists(7));
}

TEST_F(OptionsTest, TheLoadTellsWhatIsWrongAndLeavesIt) {
    Write(SmallGame().Entry(rtView, 9, 3, 0).Entry(rtLogic, 4, 0, 60000));
    Files().Write(gameDir + "SNDDIR", ByteArray{});
    Files().Write(gameDir + "OBJECT", Bytes("?"));
    const ByteArray views = Files().Read(gameDir + "VIEWDIR");
    game_.Open(gameDir);
    const auto& issues = game_.LoadIssues();
    ASSERT_EQ(issues.size(), 4U);
    EXPECT_EQ(issues[0].Type, rtLogic);
    EXPECT_EQ(issues[0].Number, 4);
    EXPECT_EQ(issues[0].Loc, 60000);
    EXPECT_TRUE(issues[0].EntryKept && issues[0].IsError && issues[0].ErrorNumber != 0);
    EXPECT_EQ(issues[1].Kind, LoadIssueKind::EmptyDirectory);
    EXPECT_EQ(issues[2].Volume, 3);
    EXPECT_EQ(issues[3].Kind, LoadIssueKind::List);
    EXPECT_EQ(issues[3].Type, rtObjects);
    // Nothing is put over an entry that is left, and it survives changes of the directory around it.
    EXPECT_ERROR(602, game_.Views().Add(9));
    EXPECT_RAISED(true, game_.Views().Renumber(3, 9));
    game_.Views().Add(20);
    game_.Views().Remove(20);
    game_.Views().Remove(3);
    const ByteArray after = Files().Read(gameDir + "VIEWDIR");
    ASSERT_GE(after.size(), 30U);
    EXPECT_TRUE(std::equal(after.begin() + 27, after.begin() + 30, views.begin() + 27));
    EXPECT_EQ(Files().Size(gameDir + "SNDDIR"), 0U);
    game_.CloseGame();
    game_.Open(gameDir, {.EmptyDirectories = EmptyDirectory::MendOnDisk, .BadEntries = BadEntry::Blank});
    EXPECT_EQ(Files().Size(gameDir + "SNDDIR"), 3U);
    EXPECT_FALSE(game_.LoadIssues()[0].EntryKept);
    game_.CloseGame();
    game_.Open(gameDir);
    EXPECT_EQ(game_.LoadIssues().size(), 1U);
    game_.CloseGame();
    EXPECT_RAISED(true, game_.Open(gameDir + "nothing"));
}

TEST_F(OptionsTest, ThePropertyFileIsOpenedWhereThereIsOne) {
    Write(SmallGame());
    game_.Open(gameDir);
    game_.GameAuthor("Somebody");
    game_.Views().Item(3)->ID("Hero");
    game_.CloseGame();
    game_.Open(gameDir);
    EXPECT_EQ(game_.GameAuthor() + game_.Views().Item(3)->ID(), "SomebodyHero");
    game_.CloseGame();
    game_.Open(gameDir, {.PreferPropertyFile = false});
    EXPECT_EQ(game_.GameAuthor() + game_.Views().Item(3)->ID(), "View3");
}

TEST_F(OptionsTest, IDsThatNoFileCanHaveAreRefusedAndReplaced) {
    Write(SmallGame());
    game_.Open(gameDir);
    const auto view = game_.Views().Item(3);
    for (const std::string bad :
         {"..\\x", "a/b", "..", "a#b", "a\nb", " a", "a ", "a\"b c", "c:d", "a\x7F"}) {
        SCOPED_TRACE(bad);
        EXPECT_ERROR(686, view->ID(bad));
        AGIView alone;
        alone.ID(bad);
        const auto added = game_.Views().Add(50, &alone);
        EXPECT_EQ(added->ID(), "View50");
        game_.Views().Remove(50);
    }
    // Two of one name of 64 characters: the second is shortened, not left without a name.
    AGIView alone;
    alone.ID(std::string(64, 'x'));
    game_.Views().Add(60, &alone);
    EXPECT_EQ(game_.Views().Add(61, &alone)->ID(), std::string(62, 'x') + "_1");
    const std::string file = game_.GameFile();
    game_.CloseGame();
    std::string text = TextOf(Files().Read(file));
    const std::size_t at = text.find("View3", text.find("[View3]") + 7);
    text.replace(at, 5, "..\\..\\.profile");
    Files().Write(file, Bytes(text));
    game_.Open(gameDir);
    EXPECT_EQ(game_.Views().Item(3)->ID(), "View3");
    EXPECT_EQ(game_.LoadIssues().size(), 1U);
}

// --- Builds ---

TEST_F(OptionsTest, EachPolicyDoesWhatItSaysAboutWhatFails) {
    const auto broken = [&] {
        game_.CloseGame();
        Write(SmallGame());
        for (const auto& [path, bytes] : Disk())
            Files().Remove(path);
        Write(SmallGame());
        game_.Open(gameDir);
        game_.Logics().Item(0)->Load();
        game_.Logics().Item(0)->SourceText("no statement at all\r\n");
        game_.Logics().Item(0)->SaveSource();
        game_.Logics().Item(0)->Unload();
    };
    broken();
    auto before = Disk();
    BuildReport report = game_.Build();
    EXPECT_FALSE(report.Done);
    EXPECT_TRUE(ItemOf(report, rtLogic, 0).Failed());
    EXPECT_EQ(ItemOf(report, rtView, 3).Outcome, BuildOutcome::Copied);
    for (const std::string name : {"VOL.0", "LOGDIR", "VIEWDIR"})
        EXPECT_EQ(Files().Read(gameDir + name), before[gameDir + name]) << name;
    EXPECT_FALSE(Exists(gameDir + "NEW_VOL.0"));

    report = game_.Build({.Failures = BuildFailure::KeepFormer});
    EXPECT_TRUE(report.Done);
    EXPECT_EQ(ItemOf(report, rtLogic, 0).Outcome, BuildOutcome::KeptFormer);
    game_.Logics().Item(0)->Resource().Load();
    EXPECT_EQ(game_.Logics().Item(0)->AllData(), SmallestLogic());

    broken();
    report = game_.Build({.Failures = BuildFailure::Skip});
    EXPECT_TRUE(report.Done);
    EXPECT_EQ(ItemOf(report, rtLogic, 0).Outcome, BuildOutcome::LeftOut);
    EXPECT_EQ(Files().Read(gameDir + "LOGDIR")[0], 255);
}

TEST_F(OptionsTest, ABuildDropsNothingUnaskedTellsItsProgressAndCanBeStopped) {
    Write(SmallGame().Entry(rtView, 9, 3, 0));
    game_.Open(gameDir);
    const auto before = Disk();
    EXPECT_RAISED(true, game_.Build({.RebuildOnly = true}));
    EXPECT_EQ(Disk(), before);
    std::stop_source stop;
    std::vector<std::size_t> done;
    BuildOptions options{.RebuildOnly = true, .DropUnreadable = true};
    options.Stop = stop.get_token();
    options.Progress = [&](const BuildProgress& progress) {
        EXPECT_EQ(progress.Total, 3U);
        done.push_back(progress.Done);
        if (done.size() == 2) stop.request_stop();
    };
    BuildReport report = game_.Build(options);
    EXPECT_TRUE(report.Canceled && !report.Done);
    EXPECT_EQ(done, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(Disk(), before);
    options.Stop = {};
    EXPECT_TRUE(game_.Build(options).Done);
    EXPECT_EQ(Files().Size(gameDir + "VIEWDIR"), 12U);
}

TEST_F(OptionsTest, ABuildElsewhereBringsTheLists) {
    Write(SmallGame());
    files_->MakeDirectory("\\other");
    game_.Open(gameDir);
    EXPECT_TRUE(game_.Build({.Directory = "\\other", .RebuildOnly = true}).Done);
    EXPECT_EQ(Files().Read("\\other\\WORDS.TOK"), Files().Read(gameDir + "WORDS.TOK"));
    EXPECT_EQ(Files().Read("\\other\\OBJECT"), Files().Read(gameDir + "OBJECT"));
    EXPECT_EQ(game_.GameDir(), gameDir);
}

// --- What can be said about a game ---

TEST_F(OptionsTest, VerifyAndRepairTellAndMend) {
    GameBuilder builder = SmallGame();
    builder.Add(rtPicture, 6, {0xF0, 4, 0xF8, 10, 10}).Entry(rtView, 9, 3, 0);
    Write(builder);
    game_.Open(gameDir);
    std::vector<GameFault> faults = VerifyGame(game_);
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(FaultPlace(faults[1].Type, faults[1].Number), "picture 6");
    const std::vector<RepairStep> steps = RepairGame(game_);
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].Text, "picture 6: the end code was added");
    EXPECT_TRUE(Exists(gameDir + "VOL.0.OLD"));
    game_.CloseGame();
    game_.Open(gameDir, {.BadEntries = BadEntry::Blank});
    game_.CloseGame();
    game_.Open(gameDir);
    EXPECT_TRUE(VerifyGame(game_).empty());
    EXPECT_TRUE(RepairGame(game_).empty());
}

}  // namespace
}  // namespace zorvex::test
