// Real games: their sources compile to what was shipped, and their bytes go to text and back.
#include <filesystem>

#include "zorvex/Zorvex.h"
#include "zorvex/base/StringList.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/logic/LogCompile.h"

namespace zorvex::test {

namespace {

std::string Decompiled(ByteView bytes) {
    return DecodeLogic(bytes)->Text("\n");
}

/// Reads the bytes of a logic alone, without its source.
ByteArray ShippedBytes(AGILogic& logic) {
    logic.Resource().Load();
    ByteArray bytes = logic.AllData();
    logic.Unload();
    return bytes;
}

}  // namespace

TEST(RealSources, CompileToTheShippedLogics) {
    if (!std::filesystem::exists(RealGame("coo"))) GTEST_SKIP() << "the game coo is not here";
    TempDir dir;
    dir.CopyFrom(RealGame("coo"));
    AGIGame game;
    game.OpenGameDIR(dir.Path());
    ASSERT_EQ(game.ResDirName(), "src");
    game.LogicSourceSettings()->UseReservedNames(true);
    for (const LogicErrorLevel level : {leLow, leMedium}) {
        game.LogicSourceSettings()->ErrorLevel(level);
        for (const auto& logic : game.Logics()) {
            SCOPED_TRACE(logic->ID() + " at level " + std::to_string(level));
            const ByteArray shipped = ShippedBytes(*logic);
            logic->Load();
            // The compiler of the time took any word for a known one, and lowered the case of texts behind
            // defines.
            EXPECT_EQ(RaisedText([&] { CompileLogic(*logic); }),
                      logic->Number() == 99 ? "13||4114: Undefined word 'on' in said command" : "");
            const bool same = Decompiled(logic->Resource().View()) == Decompiled(shipped);
            EXPECT_EQ(same, logic->Number() != 0);
            logic->Unload();
        }
    }
}

TEST(RealGames, GoToTextAndBack) {
    SKIP_WITHOUT_GAMES();
    for (const std::string& name : RealGames()) {
        TempDir dir;
        dir.CopyFrom(RealGame(name));
        AGIGame game;
        game.OpenGameDIR(dir.Path());
        auto& settings = *game.LogicSourceSettings();
        for (unsigned choice = 0; choice < 16; ++choice) {
            settings.SpecialSyntax((choice & 1U) != 0);
            settings.ElseAsGoto((choice & 2U) != 0);
            settings.ShowAllMessages((choice & 4U) != 0);
            settings.ReservedAsText((choice & 8U) != 0);
            // Colours come out as names whatever the settings say, so names count in any case.
            settings.UseReservedNames(true);
            for (const auto& logic : game.Logics()) {
                SCOPED_TRACE(name + " " + logic->ID() + " with the settings " + std::to_string(choice));
                const ByteArray shipped = ShippedBytes(*logic);
                settings.ErrorLevel(leMedium);
                const std::string text = Decompiled(shipped);
                EXPECT_TRUE(std::none_of(text.begin(), text.end(), [](unsigned char character) {
                    return character < ' ' && character != '\n' && character != '\r';
                }));
                logic->Resource().SetAllData(shipped);
                logic->SourceText(ConvertToCodePage(text));
                settings.ErrorLevel(leLow);
                ASSERT_EQ(Shown(RaisedBy([&] { CompileLogic(*logic); })), "no error");
                settings.ErrorLevel(leMedium);
                EXPECT_EQ(Decompiled(logic->Resource().View()), text);
                logic->Unload();
            }
        }
    }
}

}  // namespace zorvex::test
