// Real games: their sources compile to what was shipped, and their bytes go to text and back.
#include <filesystem>

#include "tests/support/ExpectError.h"
#include "tests/support/TestFiles.h"
#include "zorvex/Zorvex.h"
#include "zorvex/compiler/LogCompile.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/logic/LogDecode.h"
#include "zorvex/logic/StringList.h"

namespace zorvex::test {

namespace {

void Open(AGIGame& game, const TempDir& dir) {
    const auto error = RaisedBy([&] { game.OpenGameDIR(dir.Path()); });
    if (error && !error->Is(636)) throw *error;
}

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

struct SourceNote {
    std::string error;
    bool sameText;
};

/// What sets the shipped logics of a game apart from what their sources give.
const std::map<int, SourceNote> notesOnCoo{
    {0, {"", false}},  // the compiler of the time lowered the case of texts behind defines
    {99, {"635 13||4114: Undefined word 'on' in said command", false}},  // it took any word for a known one
};

}  // namespace

TEST(RealSources, CompileToTheShippedLogics) {
    SKIP_WITHOUT_GAMES();
    TempDir dir;
    dir.CopyFrom(RealGame("coo"));
    AGIGame game;
    Open(game, dir);
    ASSERT_EQ(game.ResDirName(), "src");
    game.LogicSourceSettings()->UseReservedNames(true);
    for (const LogicErrorLevel level : {leLow, leMedium}) {
        game.LogicSourceSettings()->ErrorLevel(level);
        for (const auto& logic : game.Logics()) {
            SCOPED_TRACE(logic->ID() + " at level " + std::to_string(level));
            const auto found = notesOnCoo.find(logic->Number());
            const SourceNote note = found == notesOnCoo.end() ? SourceNote{"", true} : found->second;
            const ByteArray shipped = ShippedBytes(*logic);
            logic->Load();
            const auto error = RaisedBy([&] { CompileLogic(*logic); });
            const std::string shown = error ? std::to_string(error->Id()) + " " + error->Description() : "";
            EXPECT_EQ(shown, note.error);
            const bool same = Decompiled(logic->Resource().View()) == Decompiled(shipped);
            EXPECT_EQ(same, note.sameText || error.has_value());
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
        Open(game, dir);
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
                EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char character) {
                    return character == '\n' || character == '\r' ||
                           static_cast<unsigned char>(character) >= ' ';
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
