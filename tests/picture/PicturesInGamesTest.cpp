#include "tests/support/GameBuilder.h"
#include "tests/support/RealGames.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/state/GameProperties.h"

namespace zorvex::test {
namespace {

/// A game with pictures 3 and 7, open until the end of the scope.
class GameOfPictures {
  public:
    GameOfPictures() {
        GameBuilder game;
        game.Add(rtLogic, 0, SmallestLogic());
        game.Add(rtPicture, 7, {0xF0, 1, 0xF6, 0, 0, 0xFF}).Add(rtPicture, 3, {0xFF});
        game.WriteTo(dir_);
        game_.OpenGameDIR(dir_.Path());
    }
    void Reopen() {
        game_.CloseGame();
        game_.OpenGameZVG(dir_.File("AGI.zvg"));
    }
    std::shared_ptr<AGIPicture> Picture(std::uint8_t number) { return game_.Pictures().Item(number); }
    AGIGame& Game() { return game_; }

  private:
    TempDir dir_;
    AGIGame game_;
};

TEST(PicturesInGames, RegisteredWithNameAndSizeOnly) {
    GameOfPictures game;
    ASSERT_EQ(game.Game().Pictures().Count(), 2);
    EXPECT_EQ(game.Game().Pictures().Max(), 7);
    const auto picture = game.Picture(7);
    EXPECT_EQ(Face(*picture), "Picture7 unloaded clean");
    EXPECT_EQ(picture->Size(), 6);
    EXPECT_ERROR(563, picture->VisPixel(0, 0));
    EXPECT_ERROR(617, game.Picture(8));
}

TEST(PicturesInGames, NamesDifferExactly) {
    GameOfPictures game;
    game.Picture(3)->ID("Room");
    EXPECT_ERROR(623, game.Picture(7)->ID("Room"));
    game.Picture(7)->ID("room");
    EXPECT_EQ(ReadGameString("Picture7", "ID", ""), "room");
    EXPECT_FALSE(Library().ResourceIDsValid);
}

TEST(PicturesInGames, SavedSettingsComeBack) {
    GameOfPictures game;
    auto picture = game.Picture(7);
    picture->Load();
    picture->BkgdImgFile("maps/castle.png");
    picture->BkgdShow(true);
    picture->BkgdTrans(30);
    picture->BkgdPosition("1|2|3|4");
    picture->BkgdSize("5|6");
    EXPECT_TRUE(picture->IsDirty());
    picture->SetData(ByteArray{0xF0, 2, 0xF6, 0, 0, 1, 0, 0xFF});
    picture->Save();
    EXPECT_FALSE(picture->IsDirty());
    picture.reset();

    game.Reopen();
    picture = game.Picture(7);
    EXPECT_EQ(picture->Size(), 8);
    EXPECT_EQ(picture->BkgdImgFile(), "") << "read at the load";
    picture->Load();
    EXPECT_TRUE(picture->BkgdShow());
    EXPECT_EQ(picture->BkgdTrans(), 30);
    EXPECT_EQ(picture->BkgdImgFile() + " " + picture->BkgdPosition() + " " + picture->BkgdSize(),
              "maps/castle.png 1|2|3|4 5|6");
    EXPECT_EQ(picture->VisPixel(1, 0), agGreen);

    picture->BkgdImgFile("");
    picture->Save();
    EXPECT_FALSE(picture->BkgdShow());
    EXPECT_EQ(ReadGameString("Picture7", "BkgdSize", "gone"), "gone");
}

TEST(PicturesInGames, PriorityBaseNeedsALaterInterpreter) {
    GameOfPictures game;
    const auto picture = game.Picture(3);
    picture->Load();
    picture->PriBase(200);
    game.Game().InterpreterVersion("2.917");
    EXPECT_EQ(picture->PriBase(), 48);
    game.Game().InterpreterVersion("2.936");
    picture->PriBase(200);
    EXPECT_EQ(picture->PriBase(), 158);
    picture->Save();
    EXPECT_EQ(ReadGameString("Picture3", "PriBase", "none"), "158");
    picture->PriBase(48);
    picture->Save();
    EXPECT_EQ(ReadGameString("Picture3", "PriBase", "none"), "none");
}

TEST(PicturesInGames, UnsavedChangesGoWithTheBytes) {
    GameOfPictures game;
    const auto picture = game.Picture(7);
    picture->Load();
    picture->Clear();
    picture->Unload();
    EXPECT_FALSE(picture->IsDirty());
    picture->Load();
    EXPECT_EQ(picture->VisPixel(0, 0), agBlue);
    picture->DataDirty(true);
    picture->Resource().Unload();
    EXPECT_ERROR(563, picture->Save());
}

// --- Real games ---
TEST(RealPictures, DrawAsExpected) {
    ForEachReal<AGIPicture>([](AGIPicture& picture, const nlohmann::json& expected) {
        picture.Load();
        EXPECT_EQ(HexPad(CRC32(picture.AllData()), 8), expected.at("crc32"));
        EXPECT_EQ(HexPad(CRC32(picture.VisData()), 8), expected.at("visualCrc32"));
        EXPECT_EQ(HexPad(CRC32(picture.PriData()), 8), expected.at("priorityCrc32"));
        EXPECT_EQ(picture.BMPErrLevel(), expected.at("errorLevel"));
    });
}

}  // namespace
}  // namespace zorvex::test
