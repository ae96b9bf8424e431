// All logics of the real games.
#include "tests/support/LogicBytes.h"
#include "tests/support/RealGames.h"
#include "zorvex/Zorvex.h"

namespace zorvex::test {

TEST(RealLogics, HoldTheExpectedCodeAndMessages) {
    ForEachReal<AGILogic>([](AGILogic& logic, const nlohmann::json& expected) {
        logic.Resource().Load();
        const ByteArray bytes = logic.AllData();
        const int codeLength = bytes[0] + 256 * bytes[1];
        const int count = bytes[static_cast<std::size_t>(codeLength) + 2];
        EXPECT_EQ(codeLength, expected["codeLength"]);
        EXPECT_EQ(count, expected["messageCount"]);

        std::vector<std::string> messages(static_cast<std::size_t>(count));
        for (const DecodedMessage& message : DecodeLogic(bytes, {}, DecodeNames()).Messages)
            messages[message.Number - 1U] = TextOfLiteral(message.Literal);
        const std::string joined = Join(messages, std::string_view("\0", 1));
        EXPECT_EQ(HexPad(CRC32(joined), 8), expected["messagesCrc32"]);
    });
}

}  // namespace zorvex::test
