// A logic's double life: source text and bytes, alone and in a game.
#include "zorvex/logic/AGILogic.h"

#include "tests/support/ScratchGame.h"
#include "zorvex/state/GameProperties.h"

namespace zorvex::test {

namespace {

const std::string sourceDirectory(ScratchGame::ResDir);
const ByteArray smallest{1, 0, 0, 0, 2, 0};

std::string Property(const std::string& key) {
    return ReadGameString("Logic1", key, "none");
}

}  // namespace

TEST(AGILogic, BeginsAsTheSmallestLogic) {
    AGILogic logic;
    EXPECT_EQ(Face(logic), "NewLogic loaded clean");
    EXPECT_EQ(logic.AllData(), smallest);
    EXPECT_EQ(logic.CompiledCRC(), 0);
    EXPECT_ERROR(668, logic.Export("\\x"));
    EXPECT_ERROR(667, logic.ID(""));
    logic.IsRoom(true);
    EXPECT_TRUE(logic.IsRoom());
    logic.Unload();
    EXPECT_ERROR(563, logic.SourceText());
    EXPECT_ERROR(563, logic.Save());
}

TEST(AGILogic, SourceTextLosesItsEmptyEnd) {
    AGILogic logic;
    for (const auto& [text, kept] : std::vector<std::pair<std::string, std::string>>{
             {"a\r\r", "a"}, {"\r\r\r", "\r"}, {"\r", "\r"}, {"a\r\n", "a\r\n"}, {"", ""}}) {
        logic.SourceText(text);
        EXPECT_EQ(logic.SourceText(), kept);
    }
    EXPECT_FALSE(logic.IsDirty());
    EXPECT_EQ(logic.CRC(), 0);
}

TEST(AGILogic, MakesItsSourceByDecompiling) {
    ScratchGame game;
    const auto logic = game.Logic(1);
    EXPECT_EQ(Property("CRC32"), "0");
    EXPECT_EQ(Property("CompCRC32"), "0");
    logic->Load();
    EXPECT_EQ(logic->SourceText(), "return();\r\n\r\n[ Messages");
    EXPECT_EQ(game.Files().Text(sourceDirectory + "Logic1.lgc"), logic->SourceText());
    EXPECT_TRUE(logic->Compiled());
    EXPECT_EQ(Face(*logic), "Logic1 loaded clean");
    EXPECT_EQ(Property("CompCRC32"), "&H" + HexPad(logic->CRC(), 1));
    EXPECT_EQ(logic->CRC(), CRC32("return();\r\n\r\n[ Messages"));

    logic->SourceText("return(); ");
    EXPECT_FALSE(logic->Compiled());
    EXPECT_TRUE(logic->SourceDirty());
    logic->SourceText("return();\r\n\r\n[ Messages");
    EXPECT_TRUE(logic->Compiled());
    logic->SourceText("return(); [ é \xC4\x80");
    logic->SaveSource();
    EXPECT_FALSE(logic->SourceDirty());
    EXPECT_EQ(game.Files().Text(sourceDirectory + "Logic1.lgc"), "return(); [ \x82  ");
    logic->Unload();
    logic->Load();
    EXPECT_EQ(logic->SourceText(), "return(); [ é  ");
    EXPECT_FALSE(logic->Compiled());
    logic->Compile();
    EXPECT_TRUE(logic->Compiled());
}

TEST(AGILogic, TakesOverTextFilesOfOtherTools) {
    ScratchGame game;
    game.Write("logic1.txt", "v50 = 1;");
    game.Write("Logic0.txt", "v50 = 0;");
    game.Logic(1)->Load();
    EXPECT_EQ(game.Logic(1)->SourceText(), "v50 = 1;");
    EXPECT_FALSE(FileExists(sourceDirectory + "logic1.txt"));
    EXPECT_TRUE(FileExists(sourceDirectory + "Logic1.lgc"));
    game.Logic(5)->ID("Cave");
    game.Write("cave.txt", "v50 = 9;");
    EXPECT_FALSE(game.Logic(5)->Compiled());
    EXPECT_FALSE(game.Logic(5)->Loaded());
    EXPECT_EQ(game.Files().Text(sourceDirectory + "Cave.lgc"), "v50 = 9;");

    game.Settings().SourceExt("src");
    game.Logic(0)->Load();
    EXPECT_EQ(game.Logic(0)->SourceText(), "return();\r\n\r\n[ Messages");
    EXPECT_TRUE(FileExists(sourceDirectory + "Logic0.txt"));
    EXPECT_TRUE(FileExists(sourceDirectory + "Logic0.src"));
}

TEST(AGILogic, NamesInAGame) {
    ScratchGame game;
    const auto logic = game.Logic(1);
    logic->Load();
    EXPECT_ERROR(623, logic->ID("LOGIC5"));
    logic->ID("Cave");
    EXPECT_EQ(logic->SourceFile(), sourceDirectory + "Cave.lgc");
    EXPECT_TRUE(FileExists(sourceDirectory + "Logic1.lgc"));
    EXPECT_FALSE(FileExists(sourceDirectory + "Cave.lgc"));
    EXPECT_EQ(Property("ID"), "Cave");
    EXPECT_RUNTIME(reReadOnlyProperty, logic->SourceFile("x"));
    logic->Description("Cave");
    logic->Description("CAVE");
    EXPECT_EQ(logic->Description(), "Cave");
    logic->IsRoom(true);
    EXPECT_EQ(Property("IsRoom"), "True");
    EXPECT_RUNTIME(reReadOnlyProperty, game.Logic(0)->IsRoom(true));
    EXPECT_FALSE(game.Logic(0)->IsRoom());
    logic->ID(std::string(70, 'x'));
    EXPECT_EQ(logic->ID().size(), 64U);
}

TEST(AGILogic, RenamesItsSourceFile) {
    ScratchGame game;
    const auto logic = game.Logic(1);
    logic->Load();
    logic->Rename("Cave");
    EXPECT_EQ(logic->ID() + Property("ID"), "CaveCave");
    EXPECT_FALSE(FileExists(sourceDirectory + "Logic1.lgc"));
    EXPECT_TRUE(FileExists(sourceDirectory + "Cave.lgc"));
    logic->Rename("CAVE");
    EXPECT_EQ(logic->SourceFile(), sourceDirectory + "CAVE.lgc");
    EXPECT_TRUE(FileExists(sourceDirectory + "CAVE.lgc"));

    game.Write("hall.lgc", "another text");
    EXPECT_ERROR(623, logic->Rename("logic5"));
    EXPECT_RUNTIME(reFileExists, logic->Rename("Hall"));
    game.Files().FailAt(1, reDiskFull);
    EXPECT_RUNTIME(reDiskFull, logic->Rename("Door"));
    game.Files().Heal();
    EXPECT_EQ(logic->ID() + Property("ID"), "CAVECAVE");
    EXPECT_TRUE(FileExists(sourceDirectory + "CAVE.lgc"));
    EXPECT_EQ(game.Files().Text(sourceDirectory + "hall.lgc"), "another text");

    game.Logic(5)->Rename("Attic");  // has no source yet
    EXPECT_EQ(game.Logic(5)->ID(), "Attic");
    EXPECT_RUNTIME(reFileExists, game.Logic(5)->Rename("hall"));
    AGILogic alone;
    alone.Rename("alone");
    EXPECT_EQ(alone.ID(), "alone");
}

TEST(AGILogic, LosesNoText) {
    ScratchGame game;
    const auto logic = game.Logic(1);
    logic->SourceText("v50 = 1;\r\nreturn();");
    logic->SaveSource();
    EXPECT_FALSE(logic->Loaded());
    EXPECT_EQ(game.Files().Text(sourceDirectory + "Logic1.lgc"), "v50 = 1;\r\nreturn();");
    logic->SourceText("v50 = 2;\r\nreturn();");
    logic->Load();
    EXPECT_EQ(logic->SourceText(), "v50 = 2;\r\nreturn();");
    logic->Compile();
    EXPECT_TRUE(logic->Compiled());

    // Bytes that cannot be decompiled: the logic is not loaded, and no empty source comes to be.
    game.Logic(5)->Load();
    game.Logic(5)->Resource().SetAllData(ByteArray{2, 0, 0xF0, 0xF0, 0, 2, 0});
    game.Logic(5)->Save();
    game.Logic(5)->DataDirty(true);
    game.Logic(5)->Save();
    game.Logic(5)->Unload();
    game.Files().Remove(sourceDirectory + "Logic5.lgc");
    EXPECT_ERROR(688, game.Logic(5)->Load());
    EXPECT_FALSE(game.Logic(5)->Loaded());
    EXPECT_TRUE(RaisedBy([&] { game.Logic(5)->SaveSource(); }));
    EXPECT_FALSE(FileExists(sourceDirectory + "Logic5.lgc"));
}

TEST(AGILogic, ClearKeepsSourceAndBytesInStep) {
    ScratchGame game;
    const auto logic = game.Logic(1);
    EXPECT_ERROR(563, logic->Clear());
    ASSERT_EQ(game.Compile("print(\"x\");\nreturn();").error, "");
    logic->Clear();
    EXPECT_EQ(logic->SourceText(), "return();\r\n\r\n[ messages");
    EXPECT_EQ(logic->AllData(), smallest);
    EXPECT_TRUE(logic->Compiled());
    EXPECT_TRUE(logic->IsDirty());
    logic->Save();
    EXPECT_FALSE(logic->IsDirty());
    EXPECT_EQ(Property("Size"), "6");
}

TEST(AGILogic, ImportsAndExports) {
    ScratchGame game;
    ASSERT_EQ(game.Compile("print(\"x\");\nreturn();").error, "");
    game.Logic(1)->Export("\\game\\Door.agl");
    EXPECT_ERROR(510, game.Logic(1)->Import("\\game\\Door.agl", false));

    AGILogic alone;
    alone.Import("\\game\\Door.agl", false);
    EXPECT_EQ(alone.ID(), "Door.agl");
    EXPECT_EQ(alone.AllData(), game.Logic(1)->AllData());
    EXPECT_EQ(alone.SourceText(), "print(\"x\");\r\nreturn();\r\n\r\n[ Messages");
    EXPECT_EQ(alone.SourceFile(), "");

    game.Files().Write("\\game\\odd.agl", ByteArray{2, 0, 0xF0, 0xF0, 0, 2, 0});
    alone.Import("\\game\\odd.agl", false);  // cannot be decompiled
    EXPECT_EQ(alone.Size(), 7);
    EXPECT_EQ(alone.ID(), "odd.agl");
    EXPECT_EQ(alone.SourceText(), "");
    EXPECT_EQ(alone.CRC(), 0);
    EXPECT_ERROR(524, alone.Import("\\game\\none.agl", false));
    EXPECT_EQ(Face(alone), "odd.agl unloaded clean");

    game.Write("hall.lgc", "return();");
    alone.Import(sourceDirectory + "hall.lgc", true);
    EXPECT_EQ(alone.SourceText(), "return();");
    EXPECT_EQ(alone.ID(), "hall.lgc");
    EXPECT_ERROR(502, alone.Import("\\game\\none.lgc", true));
    EXPECT_ERROR(599, alone.SaveSource());
    alone.SourceText("v50 = 1;");
    alone.SaveSource("\\game\\room.lgc");
    EXPECT_EQ(alone.ID(), "room.lgc");
    EXPECT_EQ(game.Files().Text("\\game\\room.lgc"), "v50 = 1;");
    EXPECT_ERROR(582, alone.SaveSource("\\nowhere\\room.lgc", true));

    const MemoryFiles files;
    files->Write("\\work\\room.lgc", Bytes("the old source"));
    for (int n = 1; n <= 3; ++n) {
        files->FailAt(n, reDiskFull, 2);
        EXPECT_TRUE(RaisedBy([&] { alone.SaveSource("\\work\\room.lgc"); })) << n;
        EXPECT_EQ(files->Text("\\work\\room.lgc"), "the old source") << n;
    }
}

TEST(AGILogic, CopiesAnotherLogic) {
    ScratchGame game;
    ASSERT_EQ(game.Compile("print(\"x\");\nreturn();").error, "");
    const auto source = game.Logic(1);
    source->Save();
    source->Description("A room");
    source->IsRoom(true);
    source->SaveSource();
    source->Unload();
    AGILogic copy;
    copy.SetLogic(*source);
    EXPECT_FALSE(source->Loaded());
    EXPECT_EQ(copy.ID() + ": " + copy.Description(), "Logic1: A room");
    EXPECT_TRUE(copy.IsRoom());
    EXPECT_EQ(copy.CRC(), source->CRC());
    EXPECT_EQ(copy.SourceText(), "print(\"x\");\nreturn();");
    source->Load();
    EXPECT_EQ(copy.AllData(), source->AllData());
}

}  // namespace zorvex::test
