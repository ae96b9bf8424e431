// All logics of the real games.
#include "tests/support/ExpectedGame.h"
#include "tests/support/LogicBytes.h"
#include "zorvex/Zorvex.h"
#include "zorvex/game/Helpers.h"

namespace zorvex::test {

TEST(RealLogics, HoldTheExpectedCodeAndMessages) {
    const std::vector<std::string> names = ExpectedGame::Names();
    if (names.empty()) GTEST_SKIP() << "no real games are here; set ZORVEX_GAMES to where they are";
    for (const std::string& name : names) {
        const ExpectedGame game(name);
        for (const nlohmann::json& expected : game.Resources("logic")) {
            AGILogic logic;
            ExpectedGame::Place(logic, expected);
            logic.Resource().Load();
            const ByteArray bytes = logic.AllData();
            SCOPED_TRACE(name + " logic " + expected["number"].dump());
            const int codeLength = bytes[0] + 256 * bytes[1];
            const int count = bytes[static_cast<std::size_t>(codeLength) + 2];
            EXPECT_EQ(codeLength, expected["codeLength"]);
            EXPECT_EQ(count, expected["messageCount"]);

            std::vector<std::string> messages(static_cast<std::size_t>(count));
            for (const DecodedMessage& message : DecodeLogic(bytes, {}, DecodeNames()).Messages) {
                messages[message.Number - 1U] = TextOfLiteral(message.Literal);
            }
            std::string joined;
            for (const std::string& message : messages)
                joined += message + '\0';
            if (!joined.empty()) joined.pop_back();
            EXPECT_EQ(HexPad(CRC32(joined), 8), expected["messagesCrc32"]);
        }
    }
}

}  // namespace zorvex::test
