// What a compile does to the logic, to the game and to a host that listens.
#include "tests/support/ScratchGame.h"
#include "zorvex/base/Internal.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/vocab/AGIInventoryObjects.h"

namespace zorvex::test {

namespace {

void WriteGlobals(ScratchGame& game, std::string_view text) {
    game.Files().Write(std::string(ScratchGame::GameDir) + "globals.txt", Bytes(text));
}

}  // namespace

TEST(CompileLogic, FailureChangesNothing) {
    ScratchGame game;
    ASSERT_EQ(game.Compile("v50 = 1;\nreturn();").error, "");
    const auto logic = game.Logic(1);
    const ByteArray bytes = logic->AllData();
    const std::int32_t crc = logic->CompiledCRC();
    const std::string property = ReadGameString("Logic1", "CompCRC32", "none");
    EXPECT_TRUE(logic->Compiled());
    EXPECT_EQ(crc, logic->CRC());

    logic->SourceText("v50 = 2;\nprint(\"x\" 5);\nreturn();");
    EXPECT_RAISED(raised->Is(635) && raised->Source() == "LogCompile" &&
                      raised->Description() == "2||4160: ')' expected after command arguments",
                  logic->Compile());
    EXPECT_EQ(CompileColumn(), 11);
    EXPECT_EQ(logic->AllData(), bytes);
    EXPECT_EQ(logic->CompiledCRC(), crc);
    EXPECT_FALSE(logic->Compiled());
    EXPECT_FALSE(logic->DataDirty());
    EXPECT_EQ(ReadGameString("Logic1", "CompCRC32", "none"), property);
}

TEST(CompileLogic, RunsShareNothing) {
    ScratchGame game;
    ASSERT_EQ(game.Compile("#define x 5\n#message 3 \"m\"\nlabel:\nv50 = x;\nprint(m3);\nreturn();").error,
              "");
    EXPECT_EQ(game.Compile("v50 = x;\nreturn();").error,
              "1: 4088: Invalid variable or number value 'x' in assignment statement");
    EXPECT_EQ(game.Compile("goto(label);\nreturn();").error, "1: 4074: Unknown label 'label'");
    EXPECT_EQ(game.Compile("print(m3);\nreturn();").error, "1: 4113: Undefined message argument (m3)");
    EXPECT_EQ(game.Compile("label:\n#define x 6\nreturn();").error, "");
}

TEST(CompileLogic, PlacesCountInTheirOwnFile) {
    ScratchGame game;
    game.Settings().ErrorLevel(leMedium);
    game.Write("fifty.txt", Repeated(50, "#define x@ @\r\n"));
    game.Write("bad.txt", "\n\nset(5);");
    EXPECT_EQ(game.Compile("\n#include \"fifty.txt\"\n\n\n\n\n\n\n\nset(5);\nreturn();").error.substr(0, 8),
              "10: 4063");
    EXPECT_EQ(
        game.Compile("#include \"fifty.txt\"\nv50 = x50;\nf5 = true;\nreturn();").warnings.at(0).substr(0, 7),
        "3: 5025");
    EXPECT_EQ(game.Compile("v50 = 1;\n#include \"bad.txt\"\nreturn();").error.substr(0, 15),
              "bad.txt:3: 4063");
    game.Write("m.txt", Repeated(20, "#message @ \"text @\"\n"));
    EXPECT_EQ(game.Compile("#include \"m.txt\"\n\n#message 0 \"a\"").error.substr(0, 7), "3: 4077");
    // Looking past a string at the end of a line leaves the blame on that line.
    EXPECT_EQ(game.Compile("#include \"m.txt\"\ns1 = \"text\"\nreturn();").error.substr(0, 7), "2: 4007");
    game.Write("string.txt", "s1 = \"text\"");
    EXPECT_EQ(game.Compile("\n#include \"string.txt\"\nreturn();").error.substr(0, 18), "string.txt:1: 4007");
    EXPECT_EQ(game.Compile("#include \"m.txt\"\nprint(\"a\"\n\"b\n;").error.substr(0, 7), "3: 4051");
    // Line ends of all kinds count as one.
    EXPECT_EQ(game.Compile("v50 = 1;\rv50 = 2;\r\nv50 = 3;\v\nset(5);").error.substr(0, 7), "5: 4063");
}

TEST(CompileLogic, Limits) {
    ScratchGame game;
    game.Settings().ErrorLevel(leMedium);
    const std::string end = "return();";
    EXPECT_EQ(game.Compile(Repeated(255, "l@:\n") + end).error, "");
    EXPECT_EQ(game.Compile(Repeated(256, "l@:\n") + end).error, "256: 4109: Too many labels (max 255)");
    EXPECT_EQ(game.Compile("l:\n" + Repeated(255, "goto(l);\n") + end).error, "");
    EXPECT_EQ(game.Compile("l:\n" + Repeated(256, "goto(l);\n") + end).error,
              "257: 4108: Too many 'goto' commands (max 255)");
    EXPECT_EQ(game.Compile(Repeated(64, "if (f1) {\n") + Repeated(64, "}") + end).error, "");
    EXPECT_EQ(game.Compile(Repeated(65, "if (f1) {\n") + Repeated(65, "}") + end).error,
              "65: 4110: Too many nested blocks (max 64)");
    EXPECT_EQ(game.Compile(Repeated(255, "print(\"@\");\n") + "print(\"7\");" + end).error, "");
    EXPECT_EQ(game.Compile(Repeated(256, "print(\"@\");\n") + end).error,
              "256: 4092: Maximum number of messages exceeded (limit is 255 per logic)");
}

TEST(CompileLogic, PositionsHave16Bits) {
    ScratchGame game;
    const auto errorOf = [&](const std::string& source) {
        const auto logic = game.Logic(1);
        logic->Load();
        logic->SourceText(source);
        return Shown(RaisedBy([&] { CompileLogic(*logic); }));
    };
    const std::string full = Repeated(8191, "set(f50);set(f50);\n");  // code up to position 32766
    const std::string library = "error -2147220";
    EXPECT_EQ(errorOf(full + "if (f1) { set(f50); }\nreturn();"),
              library + "846 (658): Unhandled error in CompileAGI method(6:Overflow)");
    EXPECT_EQ(errorOf(full + "goto(l);\nset(f50);\nl:\nreturn();"),
              library + "846 (658): Unhandled error in CompileAGI method(6:Overflow)");
    EXPECT_EQ(errorOf(full + "set(f50);\nreturn();"), "no error");
    const auto logic = game.Logic(1);
    logic->SourceText("if (f1) {\n" + full + "set(f50);set(f50);\n}\nreturn();");
    EXPECT_RAISED(raised->Is(658) && raised->Source() == "LogCompile", CompileLogic(*logic));
    // The fields of the message section lie past the last position that can be patched.
    EXPECT_EQ(errorOf(full + full + "return();"),
              library + "988 (516): Resource can't exceed maximum allowable size.");
}

TEST(CompileLogic, EmptyAndUnreadableSources) {
    ScratchGame game;
    game.Write("locked.txt", "v50 = 1;");
    game.Files().MakeUnreadable("\\game\\src\\locked.txt");
    EXPECT_EQ(game.Compile("#include \"locked.txt\"\nreturn();").error,
              "1: 4055: Error accessing include file '\\game\\src\\locked.txt'");

    EXPECT_ERROR(563, game.Logic(5)->Compile());
    game.Logic(1)->SourceText("");
    EXPECT_ERROR(546, game.Logic(1)->Compile());
    AGILogic alone;
    EXPECT_ERROR(618, alone.Compile());
}

TEST(CompileLogic, HandlersDoNoDamage) {
    ScratchGame game;
    const auto logic = game.Logic(1);
    logic->Load();
    const ByteArray before = logic->AllData();
    logic->SourceText("f5 = true;\nreturn();");
    std::string nested;
    {
        const auto raising =
            Library().Events->LogCompWarning.Subscribe([&](const std::string&, std::uint8_t) {
                nested = Shown(RaisedBy([&] { CompileLogic(*logic); }));
                RaiseRuntime(reDiskFull, "host");
            });
        EXPECT_RUNTIME(reDiskFull, CompileLogic(*logic));
    }
    EXPECT_EQ(
        nested,
        "error -2147220870 (634): -1||Unhandled error during compilation: another logic is being compiled");
    EXPECT_EQ(logic->AllData(), before);
    EXPECT_EQ(game.Compile("f5 = true;\nreturn();").warnings.size(), 1U);

    // Taking the logic out of the game while it is compiled costs nothing either.
    const auto removing = Library().Events->LogCompWarning.Subscribe(
        [&](const std::string&, std::uint8_t) { Library().Logics->ClearCollection(Internal()); });
    EXPECT_EQ(RaisedBy([&] { CompileLogic(*Library().Logics->Item(1)); }), std::nullopt);
}

TEST(CompileLogic, WarningsCarryTheirPlaceAndCanBeIgnored) {
    ScratchGame game;
    game.Settings().ErrorLevel(leMedium);
    std::vector<std::string> warnings;
    const auto heard = Library().Events->LogCompWarning.Subscribe([&](const std::string& warning,
                                                                      std::uint8_t number) {
        warnings.push_back(std::to_string(number) + " " + warning + " " + std::to_string(CompileColumn()));
    });
    game.Write("inc.txt", "  set( f0 );");
    game.Compile("#include \"inc.txt\"\nreturn();");
    EXPECT_EQ(warnings,
              std::vector<std::string>{
                  "1 5025|'onWater' is normally a read-only flag; changing it could have unexpected "
                  "results|1|\\game\\src\\inc.txt 8"});
    game.Settings().IgnoreWarning(5025, true);
    warnings.clear();
    EXPECT_EQ(game.Compile("set(f0);\nif (said(\"i\")) { set(f1); }\nreturn();").error, "");
    ASSERT_EQ(warnings.size(), 2U);  // 5108 has no switch
    EXPECT_EQ(warnings[0].substr(0, 6), "1 5108");
}

TEST(CompileLogic, LeavesViewsAsTheyAre) {
    ScratchGame game;
    game.Settings().ErrorLevel(leMedium);
    const auto& views = Library().Views;
    const auto warningsFor = [&](std::string_view view, std::string_view loop, std::string_view cel) {
        std::string numbers;
        for (const std::string& warning :
             game.Compile("add.to.pic(" + std::string(view) + ", " + std::string(loop) + ", " +
                          std::string(cel) + ", 1, 1, 4, 4);\nreturn();")
                 .warnings)
            numbers += warning.substr(3, 4) + " ";
        return numbers;
    };
    const auto view = views->Item(1);
    view->ViewDescription("unsaved");
    EXPECT_EQ(warningsFor("1", "0", "0"), "");
    EXPECT_EQ(warningsFor("1", "1", "0"), "5085 ");
    EXPECT_EQ(warningsFor("1", "0", "1"), "5086 ");
    EXPECT_FALSE(view->Loaded());
    EXPECT_TRUE(view->IsDirty());

    view->Load();
    view->Loops()->Item(0)->Cels()->Add(1);
    EXPECT_EQ(warningsFor("1", "0", "1"), "");  // as it is now, not as it was saved
    EXPECT_EQ(view->Loops()->Item(0)->Cels()->Count(), 2);
    EXPECT_TRUE(view->IsDirty());

    EXPECT_EQ(warningsFor("2", "0", "0"), "5021 ");
    EXPECT_EQ(warningsFor("3", "0", "0"), "5064 ");
    const auto damaged = views->Item(2);
    damaged->Resource().Load();
    EXPECT_EQ(warningsFor("2", "0", "0"), "5021 ");
    EXPECT_TRUE(damaged->Loaded());
}

TEST(CompileLogic, NumbersThatAreNone) {
    ScratchGame game;
    const std::string odd = "1." + std::string(320, '0');
    EXPECT_EQ(game.Compile("draw.pic(v1); random(" + odd + ", 5, v50);\nreturn();").error,
              "1: 4066: Invalid value for argument 1 (must be between 0-255)");
    for (const std::string& text : {odd, "-" + odd, std::string(400, '9'), "-" + std::string(400, '9')}) {
        for (const std::string& source :
             {"v50 = " + text + ";", "v50 += " + text + ";", "set(f" + text + ");",
              "random(" + text + ", 5, v50);", "if (said(" + text + ")) { v50 = 1; }",
              "#define x v" + text + "\nset(x);", "#message " + text + " \"a\""})
            EXPECT_NE(game.Compile(source + "\nreturn();").error, "") << source.substr(0, 12);
    }
}

TEST(CompileLogic, BlamesTheReturnBeforeAMissingBrace) {
    ScratchGame game;
    game.Write("inc.txt", "\n\nif (f1) {\nreturn();");
    EXPECT_EQ(game.Compile(Repeated(9, "// @\n") + "#include \"inc.txt\"\n").error,
              "inc.txt:4: 4009: '}' expected");
    game.Settings().ErrorLevel(leLow);
    EXPECT_EQ(game.Compile("#include \"inc.txt\"\nset(f50);\n// end").error, "3: 4009: '}' expected");
}

TEST(CompileLogic, FollowsTheGame) {
    ScratchGame game;
    game.Settings().UseReservedNames(true);
    const auto numberIn = [&](const std::string& name) {
        const auto result = game.Compile("v50 = " + name + ";\nreturn();");
        return result.error.empty() ? int{result.code[2]} : -1;
    };
    EXPECT_EQ(numberIn("numberOfItems"), 4);
    Library().InventoryObjects->Add("rope", 1);
    EXPECT_EQ(numberIn("numberOfItems"), 5);

    EXPECT_EQ(numberIn("Logic5"), 5);
    game.Logic(5)->ID("Cave");
    EXPECT_EQ(numberIn("cave"), 5);
    EXPECT_EQ(numberIn("Logic5"), -1);

    EXPECT_EQ(numberIn("door"), -1);
    WriteGlobals(game, "door\t7\r\n#define gate 8\r\n");
    EXPECT_EQ(numberIn("door"), 7);
    EXPECT_EQ(numberIn("gate"), 8);
    Library().Logics->Item(1)->Unload();
    WriteGlobals(game, "door\t9\r\n#define gate 8\r\n");  // of the same length, in the same second
    EXPECT_EQ(numberIn("door"), 9);
    game.Files().Remove("\\game\\globals.txt");
    EXPECT_EQ(numberIn("door"), -1);

    game.Settings().ResDef(1, 0, "room");
    EXPECT_EQ(game.Compile("v50 = room;\nreturn();").code, (ByteArray{4, 50, 0, 0}));
    EXPECT_NE(game.Compile("v50 = currentRoom;\nreturn();").error, "");
}

TEST(ConvertArg, ResolvesNamesWithoutACompile) {
    ScratchGame game;
    game.Settings().UseReservedNames(true);
    WriteGlobals(game, "door\tV70\nword\t\"Look\"\n");
    const auto convert = [](std::string_view text, ArgTypeEnum type, bool variable = false) {
        bool varOrNum = variable;
        const std::string result = Library().Logics->ConvertArg(text, type, varOrNum);
        return result + (varOrNum ? " variable" : "");
    };
    EXPECT_EQ(convert("DOOR", atVar), "v70");
    EXPECT_EQ(convert("door", atNum, true), "v70 variable");
    EXPECT_EQ(convert("door", atNum), "door");
    EXPECT_EQ(convert("word", atVocWrd), "\"look\"");
    EXPECT_EQ(convert("View2", atNum, true), "2");
    EXPECT_EQ(convert("View2", atVocWrd), "view2");
    EXPECT_EQ(convert("Red", atNum, true), "4");
    EXPECT_EQ(convert("currentRoom", atNum, true), "v0 variable");
    EXPECT_EQ(convert("haveMatch", atFlag), "f4");
    EXPECT_EQ(convert("Nobody", atFlag), "nobody");
}

}  // namespace zorvex::test
