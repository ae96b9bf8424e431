// Opening and making games: what each refusal leaves, and what an open game has written.
#include "tests/support/FailingFiles.h"
#include "tests/support/GameBuilder.h"
#include "zorvex/Zorvex.h"
#include "zorvex/base/Internal.h"
#include "zorvex/game/GameDetection.h"

namespace zorvex::test {
namespace {

class OpenGameTest : public testing::Test {
  protected:
    OpenGameTest() {
        files->MakeDirectory("\\game");
        GameBuilder builder;
        builder.Add(rtLogic, 0, SmallestLogic()).Add(rtView, 3, SmallestView());
        builder.WriteInto("\\game\\");
    }
    ~OpenGameTest() override { game.CloseGame(); }

    static void Write(const std::string& name, std::string_view text) {
        Files().Write("\\game\\" + name, Bytes(text));
    }
    /// A property file whose section General holds these lines.
    static void WriteProperties(const std::string& general) {
        Write("A.zvg", "[General]\nZorvexVersion = 2.1.1\nGameID = A\nInterpreter = 2.917\n" + general);
    }
    void ExpectClosed() const {
        const LibraryState& library = Library();
        EXPECT_FALSE(game.GameLoaded());
        EXPECT_EQ(library.GameDir + library.GameFile + library.GameID + library.InterpreterVersion, "");
        EXPECT_EQ(library.ResDirName + library.ResDir, "");
        EXPECT_FALSE(library.IsV3 || library.PropertyList);
        EXPECT_EQ(library.Logics->Count() + library.Views->Count(), 0);
    }

    MemoryFiles files;
    AGIGame game;
};

TEST_F(OpenGameTest, ARefusedPropertyFileLeavesNothingOpen) {
    const struct {
        const char* what;
        const char* text;
        std::int32_t id;
        const char* description;
    } cases[] = {
        {"another version", "[General]\nZorvexVersion = 9\n", 665, "A.zvg"},
        {"no ID", "[General]\nZorvexVersion = 2.1.1\nInterpreter = 2.917\n", 690, "A.zvg"},
        {"an interpreter that none knows",
         "[General]\nZorvexVersion = 2.1.1\nGameID = A\nInterpreter = 2.5\n", 691, "A.zvg"},
        {"resources of another generation",
         "[General]\nZorvexVersion = 2.1.1\nGameID = A\nInterpreter = 3.002149\n", 524,
         "File not found (\\game\\ADIR)"},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.what);
        Write("A.zvg", item.text);
        EXPECT_ERROR_TEXT(item.id, item.description, game.OpenGameZVG("\\game\\A.zvg"));
        EXPECT_EQ(files->Text("\\game\\A.zvg"), item.text);
        ExpectClosed();
    }
    EXPECT_ERROR_TEXT(655, "B.zvg", game.OpenGameZVG("\\game\\B.zvg"));
    EXPECT_ERROR_TEXT(541, "\\none", game.OpenGameZVG("\\none\\B.zvg"));
    EXPECT_ERROR(541, game.OpenGameDIR("\\temp"));
    ExpectClosed();
}

TEST_F(OpenGameTest, ADirectoryOpensWithAPropertyFileOfItsOwnAndThenByThat) {
    std::vector<std::int32_t> steps;
    const Subscription watch = game.GameEvents().LoadStatus.Subscribe(
        [&](auto status, auto, auto, const auto&) { steps.push_back(status); });
    files->MakeDirectory("\\game\\texts");
    game.OpenGameDIR("\\game");
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    EXPECT_EQ(game.ResDirName(), "texts") << "the only directory there is";
    EXPECT_ERROR(501, game.OpenGameZVG("\\game\\A.zvg"));
    const std::string file = Library().GameFile;
    game.Views().Item(3)->ID("Ego");
    game.GameAuthor("Somebody");
    game.GameDescription("a\v[Logic0]\n#b\rc");  // each of these ends a line
    game.CloseGame();
    ExpectClosed();
    game.CloseGame();

    game.OpenGameZVG(file);
    EXPECT_EQ(game.GameAuthor() + " " + game.Views().Item(3)->ID(), "Somebody Ego");
    EXPECT_EQ(game.GameDescription(), "a\r\n[Logic0]\r\n");
    game.GameID("other");
    EXPECT_EQ(game.GameID() + " " + Library().GameFile, "OTHER \\game\\other.zvg");
    EXPECT_EQ(Files().Kind(file), FileKind::None);
    for (const char* unfit : {"", " ", "..", "a/b", "A*", "a\nb", " A", "a#b", "\xE5"}) {
        EXPECT_ERROR(530, game.GameID(unfit));
    }
    EXPECT_EQ(game.GameID() + " " + Library().GameFile, "OTHER \\game\\other.zvg");
}

TEST_F(OpenGameTest, AnOpeningThatFailsPutsThePropertyFileBack) {
    game.OpenGameDIR("\\game");
    const std::string file = game.GameFile();
    game.GameAuthor("Somebody");
    game.CloseGame();
    for (const int step : {1, 2, 5}) {
        int events = 0;
        const auto handler = game.GameEvents().LoadStatus.Subscribe(
            [&](ELStatus, AGIResType, std::uint8_t, const std::string&) {
                if (++events == step) RaiseRuntime(reInvalidCall);
            });
        EXPECT_RUNTIME(5, game.OpenGameDIR("\\game"));
        EXPECT_TRUE(Has(TextOf(Files().Read(file)), "Somebody")) << step;
    }
}

TEST_F(OpenGameTest, WarningsLeaveTheGameOpen) {
    Files().Remove("\\game\\WORDS.TOK");
    Write("OBJECT", "?");
    EXPECT_ERROR(636, game.OpenGameDIR("\\game"));
    EXPECT_TRUE(game.GameLoaded() && !Library().VocabularyWords->Loaded());
    const std::string log = files->Text("\\game\\errlog.txt");
    EXPECT_TRUE(Has(log, "An error occurred while loading WORDS.TOK: "));
    EXPECT_TRUE(Has(log, "An error occurred while loading OBJECT: "));
}

TEST_F(OpenGameTest, FilesThatCannotBeRead) {
    Write("AGIDATA.OVL", "2.936");
    files->MakeUnreadable("\\game\\AGIDATA.OVL");
    EXPECT_RUNTIME(rePermissionDenied, game.OpenGameDIR("\\game"));
    ExpectClosed();
    Write("GO.COM", "   LOADER");
    EXPECT_TRUE(IsValidGameDir("\\game\\"));
    EXPECT_EQ(Library().GameID, "GO");
    files->MakeUnreadable("\\game\\GO.COM");
    EXPECT_TRUE(IsValidGameDir("\\game\\"));
    EXPECT_EQ(Library().GameID, "");
}

TEST_F(OpenGameTest, AGameThatWasMovedIsSavedWhereItIsNow) {
    game.OpenGameDIR("\\game");
    Files().Rename("\\game", "\\moved");
    game.GameDir("\\moved");
    game.GameAuthor("Somebody");
    game.VocabularyWords()->AddWord("look", 2);
    game.VocabularyWords()->Save();
    game.CloseGame();
    game.OpenGameZVG("\\moved\\AGI.zvg");
    EXPECT_EQ(game.GameAuthor(), "Somebody");
    EXPECT_TRUE(game.VocabularyWords()->WordExists("look"));
}

TEST_F(OpenGameTest, AGameMayLieAtTheRootAndInTheCurrentDirectory) {
    game.OpenGameDIR("\\game");
    game.CloseGame();
    for (const auto& [path, bytes] : files->All()) {
        Files().Copy(path, path.substr(5));
        Files().Copy(path, "\\work" + path.substr(5));
    }
    game.OpenGameZVG("\\AGI.zvg");
    EXPECT_EQ(game.GameDir(), "\\");
    game.CloseGame();
    game.OpenGameZVG("AGI.zvg");
    EXPECT_EQ(game.GameFile(), "\\work\\AGI.zvg");
    game.CloseGame();
    game.OpenGameDIR("");
    EXPECT_EQ(game.GameDir(), "\\work\\");
}

TEST_F(OpenGameTest, PropertiesMayBeOneByteACharacter) {
    WriteProperties("Author = Caf\xE9\nPlatform = x\n");
    game.OpenGameZVG("\\game\\A.zvg");
    EXPECT_EQ(game.GameAuthor() + game.Platform(), "Caf\xC3\xA9x");
}

TEST_F(OpenGameTest, ALoadThatFailsClosesTheGame) {
    game.OpenGameDIR("\\game");
    EXPECT_ERROR(545, game.FinishGameLoad(Internal()));
    ExpectClosed();
}

TEST_F(OpenGameTest, SourcesStayBesideTheGameWhereNoDirectoryIsNamed) {
    game.OpenGameDIR("\\game");
    EXPECT_EQ(game.ResDir(), "\\game\\");
    game.CloseGame();
    files->MakeDirectory("\\new");
    std::string resDir;
    game.NewGame("new", "2.917", "\\new", resDir);
    EXPECT_EQ(game.ResDir(), "\\new\\");
    EXPECT_EQ(Files().Kind("\\new\\Logic0.lgc"), FileKind::File);
}

TEST_F(OpenGameTest, ANewGameChecksBeforeItWrites) {
    std::string resDir = "src";
    const auto before = files->All();
    EXPECT_ERROR(630, game.NewGame("A", "2.917", "\\none", resDir));
    EXPECT_ERROR(687, game.NewGame("A", "2.917", "\\game", resDir));
    EXPECT_ERROR(543, game.NewGame("A", "2.5", "\\temp", resDir));
    EXPECT_ERROR(597, game.NewGame("A", "4.0", "\\temp", resDir));
    EXPECT_ERROR_TEXT(630, "Template directory is missing its Zorvex game property file.",
                      game.NewGame("A", "2.917", "\\temp", resDir, "\\game"));
    EXPECT_EQ(files->All().size(), before.size()) << "nothing is left in the directory";
    EXPECT_FALSE(game.GameLoaded());
}

TEST_F(OpenGameTest, ANewGameHasItsFilesAndATemplateGivesItsOwn) {
    for (const auto& [id, version, made] :
         {std::tuple("abcdefgh", "2.936", "ABCDEF"), std::tuple("abcdefgh", "3.002149", "ABCDE")}) {
        const std::string directory = std::string("\\") + made;
        files->MakeDirectory(directory);
        std::string resDir = "src";
        game.NewGame(id, version, directory, resDir);
        EXPECT_EQ(game.GameID(), made);
        EXPECT_EQ(Files().Kind(directory + "\\src\\Logic0.lgc"), FileKind::File);
        game.CloseGame();
        EXPECT_TRUE(files->Text(directory + "\\" + made + ".zvg").starts_with("#\r\n#\r\n# Zorvex Game"));
    }
    EXPECT_EQ(Files().Size("\\ABCDE\\ABCDEDIR"), 3080U);
    Files().Write("\\ABCDE\\globals.txt", Bytes("[\n[ global defines file for X\na\tb\nc\td\n"));
    files->MakeDirectory("\\copy");
    std::string resDir = "text";
    game.NewGame("COPY", "", "\\copy", resDir, "\\ABCDE");
    EXPECT_EQ(game.GameID() + " " + game.InterpreterVersion() + " " + game.ResDirName(),
              "COPY 3.002149 text");
    EXPECT_EQ(Files().Kind("\\copy\\COPYVOL.0"), FileKind::File);
    EXPECT_EQ(Files().Kind("\\copy\\src"), FileKind::None);
    EXPECT_TRUE(Has(files->Text("\\copy\\globals.txt"), "[ global defines file for COPY\r\n"));
    EXPECT_EQ(Files().Kind("\\ABCDE\\src\\Logic0.lgc"), FileKind::File);
}

TEST_F(OpenGameTest, ATemplateNeedsNoDirectoryForSources) {
    game.OpenGameDIR("\\game");
    game.CloseGame();
    files->MakeDirectory("\\copy");
    std::string resDir = "text";
    game.NewGame("COPY", "", "\\copy", resDir, "\\game");
    EXPECT_EQ(game.ResDir(), "\\copy\\text\\");
    EXPECT_EQ(Files().Kind("\\copy\\VOL.0"), FileKind::File);
}

}  // namespace
}  // namespace zorvex::test
