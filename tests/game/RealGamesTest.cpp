// The real games through the library: every size and checksum, and rebuilds that change neither.
#include "tests/support/GameModel.h"
#include "tests/support/RealGames.h"
#include "zorvex/game/AGIGame.h"

namespace zorvex::test {

TEST(RealGames, LoadAndRebuildWithoutADifference) {
    SKIP_WITHOUT_GAMES();
    for (const std::string& name : RealGames()) {
        SCOPED_TRACE(name);
        const TempDir first;
        const TempDir second;
        const TempDir third;
        first.CopyFrom(RealGame(name));
        const auto expected = ExpectedOf(name);
        AGIGame game;
        game.OpenGameDIR(first.Path());
        const Model model = LoadedModel();
        EXPECT_EQ(model.size(), expected["resources"].size());
        for (const auto& resource : expected["resources"]) {
            const auto found = std::find_if(model.begin(), model.end(), [&](const auto& entry) {
                return NameOfType(entry.first.first) == resource["type"] &&
                       entry.first.second == resource["number"];
            });
            ASSERT_NE(found, model.end()) << resource.dump();
            EXPECT_EQ(found->second.size(), resource["size"]) << resource.dump();
            EXPECT_EQ(HexPad(CRC32(found->second), 8), resource["crc32"]) << resource.dump();
        }
        const std::string id = expected["isV3"] ? game.GameID() : "";
        game.CompileGame(true, second.Path());
        EXPECT_EQ(Difference(ReadModel(second.Path(), id), model), "");
        game.CloseGame();
        // A rebuild writes no word list and no inventory, which the load only warns of.
        EXPECT_ERROR(636, game.OpenGameDIR(second.Path()));
        game.CompileGame(true, third.Path());
        EXPECT_EQ(third.All(), [&] {
            auto files = second.All();
            std::erase_if(files, [&](const auto& file) { return !third.Exists(file.first); });
            return files;
        }());
        game.CloseGame();
    }
}

}  // namespace zorvex::test
