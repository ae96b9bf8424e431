// The real games through the library: every size and checksum, and rebuilds that change neither.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/support/ExpectError.h"
#include "tests/support/GameModel.h"
#include "tests/support/TestFiles.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/game/Helpers.h"

namespace zorvex {
namespace {

using test::Model;
using test::TempDir;

TEST(RealGames, LoadAndRebuildWithoutADifference) {
    const std::vector<std::string> games = test::RealGames();
    if (games.empty()) GTEST_SKIP() << "no real games here; set ZORVEX_GAMES to where they are";
    for (const std::string& name : games) {
        SCOPED_TRACE(name);
        const TempDir first;
        const TempDir second;
        const TempDir third;
        first.CopyFrom(*test::RealGame(name));
        const auto expected = nlohmann::json::parse(first.ReadText("expected.json"));
        AGIGame game;
        game.OpenGameDIR(first.Path());
        const Model model = test::LoadedModel();
        EXPECT_EQ(model.size(), expected["resources"].size());
        for (const auto& resource : expected["resources"]) {
            const std::string type = resource["type"];
            const AGIResType kind = type == "logic"     ? rtLogic
                                    : type == "picture" ? rtPicture
                                    : type == "sound"   ? rtSound
                                                        : rtView;
            const auto found = model.find({kind, resource["number"]});
            ASSERT_NE(found, model.end()) << resource.dump();
            EXPECT_EQ(found->second.size(), resource["size"]) << resource.dump();
            EXPECT_EQ(HexPad(CRC32(found->second), 8), resource["crc32"]) << resource.dump();
        }
        const std::string id = expected["isV3"] ? game.GameID() : "";
        game.CompileGame(true, second.Path());
        EXPECT_EQ(test::Difference(test::ReadModel(second.Path(), id), model), "");
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

}  // namespace
}  // namespace zorvex
