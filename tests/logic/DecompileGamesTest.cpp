// All logics of the real games, with all settings.
#include <map>

#include "tests/support/Errors.h"
#include "tests/support/ExpectedGame.h"
#include "tests/support/LogicBytes.h"
#include "tests/support/TestFiles.h"
#include "zorvex/Zorvex.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/logic/LogicFormat.h"

namespace zorvex::test {

namespace {

std::map<int, ByteArray> LogicsOf(const std::string& name) {
    const ExpectedGame game(name);
    std::map<int, ByteArray> logics;
    for (const nlohmann::json& expected : game.Resources("logic")) {
        AGILogic logic;
        ExpectedGame::Place(logic, expected);
        logic.Resource().Load();
        logics[expected["number"]] = logic.AllData();
    }
    return logics;
}

DecodeSettings Choice(unsigned bits) {
    AGILogicSourceSettings& settings = *Library().LogicSourceSettings;
    settings.ErrorLevel(leMedium);
    settings.SpecialSyntax((bits & 1U) != 0);
    settings.ElseAsGoto((bits & 2U) != 0);
    settings.ShowAllMessages((bits & 4U) != 0);
    settings.ReservedAsText((bits & 8U) != 0);
    settings.UseReservedNames((bits & 16U) != 0);
    return PresentDecodeSettings();
}

/// Decompiles the logics of a game with the game open, in every combination of settings.
std::vector<std::string> AllTexts(const std::string& name) {
    const std::map<int, ByteArray> logics = LogicsOf(name);
    TempDir dir;
    dir.CopyFrom(*RealGame(name));
    AGIGame game;
    const int raised = RaisedId([&] { game.OpenGameDIR(dir.Path()); });
    EXPECT_TRUE(raised == 0 || raised == 636) << raised;
    std::vector<std::string> texts;
    for (unsigned bits = 0; bits < 32; ++bits) {
        const DecodeSettings settings = Choice(bits);
        for (const auto& [number, bytes] : logics) {
            SCOPED_TRACE(name + " logic " + std::to_string(number) + " settings " + std::to_string(bits));
            const auto decode = [&] {
                texts.push_back(TextOfLines(DecodeLogic(bytes, settings, PresentDecodeNames())));
            };
            EXPECT_EQ(RaisedText(decode), "");
        }
    }
    return texts;
}

}  // namespace

TEST(RealLogics, HoldTheExpectedCodeAndMessages) {
    const std::vector<std::string> names = ExpectedGame::Names();
    if (names.empty()) GTEST_SKIP() << "no real games are here; set ZORVEX_GAMES to where they are";
    for (const std::string& name : names) {
        std::map<int, ByteArray> logics = LogicsOf(name);
        for (const nlohmann::json& expected : ExpectedGame(name).Resources("logic")) {
            const ByteArray& bytes = logics[expected["number"]];
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

TEST(RealLogics, DecompileTheSameFromBothGenerations) {
    if (!RealGame("coo") || !RealGame("coo-v3")) GTEST_SKIP() << "the games coo and coo-v3 are not here";
    const std::vector<std::string> texts = AllTexts("coo");
    EXPECT_EQ(texts.size(), 32U * 25);
    EXPECT_EQ(texts, AllTexts("coo-v3"));
    for (const std::string& text : texts) {
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char character) {
            return character == '\n' || static_cast<unsigned char>(character) >= 32;
        }));
        // One logic of the game asks for a word that its vocabulary does not have; nothing else is amiss.
        const std::size_t warning = text.find("WARNING");
        EXPECT_TRUE(warning == std::string::npos ||
                    text.substr(warning).starts_with("WARNING: unknown word: 16"));
    }
}

}  // namespace zorvex::test
