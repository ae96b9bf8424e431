// What a check tells of a source with several faults. That its first error and its bytes are those of a
// compile is expected of every source that the other tests compile.
#include "tests/support/ScratchGame.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/compiler/CheckLogic.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex::test {

namespace {

/// "number@line" of each diagnostic, with ":column" where it is asked for and the file in front.
std::string Shown(const LogicCheck& check, bool columns = false) {
    std::string text;
    for (const Diagnostic& diagnostic : check.Diagnostics) {
        text += text.empty() ? "" : " ";
        if (!diagnostic.File.empty()) text += diagnostic.File + "/";
        text += std::to_string(diagnostic.Number) + "@" + std::to_string(diagnostic.Line);
        if (columns) text += ":" + std::to_string(diagnostic.Column);
    }
    return text;
}

std::string ErrorsOf(std::string_view source, LogicErrorLevel level = leHigh) {
    LogicCheckSettings settings;
    settings.ErrorLevel = level;
    const LogicCheck check = CheckLogic(source, settings);
    EXPECT_EQ(check.Bytes.empty(), check.HasErrors());
    return Shown(check);
}

}  // namespace

TEST(CheckLogic, GoesOnAtTheNextStatement) {
    for (const auto& [source, errors] : std::vector<std::pair<std::string, std::string>>{
             {"set(5);\nset(f50);\nset(6);\nreturn();", "4063@1 4063@3"},
             {"foo();\nv50 = 1\nv51 = 2;\nbar;\nreturn();", "4116@1 4007@2 4116@4"},
             {"print(\"a; } {\" 5);\nset(1);\nreturn();", "4160@1 4063@2"},
             {"set(1); set(f50); set(2);\nreturn();", "4063@1 4063@1"},
             // Blocks keep their shape.
             {"if (nothing) {\n  set(1);\n} else {\n  set(2);\n}\nset(3);\nreturn();",
              "4039@1 4063@2 4063@4 4063@6"},
             {"if (f1) set(f50);\nset(1);\nreturn();", "4053@1 4063@2"},
             {"if (f1) { foo(); }\nelse { bar(); }\nreturn();", "4116@1 4116@2"},
             {"}\nset(1);\nreturn();", "4010@1 4063@2"},
             {"{ set(1); }\nset(2);\nreturn();", "4008@1 4063@1 4063@2"},
             {"else { set(1); }\nreturn();", "4011@1 4063@1"},
             {"if (f1) {\nset(1);\nreturn();", "4063@2"},
             {"if (f1) {\nset(f50);\nreturn();", "4009@3"},
             {"foo(\nif (f1) { set(f50); }\nreturn();", "4116@1"},
             // What fails before the statements does not fail again in them.
             {"#define x\n#define v5 3\n#define y 300 q\n#message 300 \"a\"\n#message 5 "
              "\"b\nset(1);\nprint(m5);\nreturn();",
              "4104@1 4071@2 4082@3 4077@4 4051@5 4063@6"},
             {"if:\nset(1);\ngoto(if);\nreturn();", "4028@1 4063@2"},
             {"#include \"a\n#include \"b\"\n#inc\nset(1);\nreturn();", "4059@1 4050@2 4069@3 4063@4"},
             {"set(1);", "4063@1"},
             {"set(f50);", "4102@1"},
             {"", "4159@1"},
             {"#inc", "4069@1"},
         }) {
        EXPECT_EQ(ErrorsOf(source), errors) << source;
    }
}

TEST(CheckLogic, EndsAtTheLimitAndOnOddSources) {
    LogicCheckSettings settings;
    settings.MaxErrors = 3;
    EXPECT_EQ(Shown(CheckLogic(Repeated(9, "set(1);\n"), settings)), "4063@1 4063@2 4063@3");
    settings.MaxErrors = 0;
    EXPECT_EQ(CheckLogic("set(1);\nset(1);", settings).Diagnostics.size(), 1U);
    settings.MaxErrors = 1000000;
    for (const std::string& source :
         {Repeated(70, "if (f1) {\n") + Repeated(70, "}"), std::string(5000, '{'), std::string(5000, '}'),
          Repeated(5000, "{ if ( } else"), Repeated(5000, "\" ; {\n"), Repeated(5000, "/* */ :")}) {
        const LogicCheck check = CheckLogic(source, settings);
        EXPECT_TRUE(check.HasErrors());
        EXPECT_LE(check.Diagnostics.size(), source.size());
    }
}

TEST(CheckLogic, TellsPlacesNumbersAndTexts) {
    LogicCheckSettings settings;
    settings.IncludeDirectories = {"first", "second\\"};
    settings.IncludeFile = [](const std::string& file) -> std::optional<ByteArray> {
        if (file != "second\\inc.txt") return std::nullopt;
        return Bytes("v50 = 1;\n  set(5);");
    };
    settings.ErrorLevel = leMedium;
    const LogicCheck check =
        CheckLogic("#include \"inc.txt\"\n#include \"none.txt\"\nf5 = true; foo;\nreturn();", settings);
    EXPECT_EQ(Shown(check, true), "4050@2:0 second\\inc.txt/4063@2:7 5025@3:10 4116@3:12");
    EXPECT_EQ(check.Diagnostics[0].Text, "Could not find include file 'first\\none.txt'");
    EXPECT_EQ(check.Diagnostics[2].Level, Severity::Warning);
    settings.IgnoredWarnings = {5025};
    EXPECT_EQ(Shown(CheckLogic("f5 = true;\nreturn();", settings)), "");
}

TEST(CheckLogic, KnowsJustTheNamesThatItIsGiven) {
    auto words = std::make_shared<AGIWordList>();
    words->NewWords();
    words->AddWord("look", 20);
    auto items = std::make_shared<AGIInventoryObjects>();
    items->NewObjects();
    for (const std::string_view name : {"key", "key", "lamp"})
        items->Add(name, 1);
    LogicCheckNames names;
    names.Resources = {{rtLogic, 7, "Größe"}, {rtView, 3, "Hero"}};
    names.GlobalDefines = {{"five", "", "5", atNum, ""}, {"bad name", "", "5", atNum, ""}};
    names.Words = words;
    names.Items = items;
    names.GameAbout = "Über";
    names.CelCounts = [](std::uint8_t) { return std::vector<std::int32_t>{1}; };
    LogicCheckSettings settings;
    settings.UseReservedNames = true;
    const std::string source =
        "call(Größe);\nif (said(\"look\") && has(\"lamp\")) { v50 = five; }\nv51 = numberOfItems;\n"
        "print(gameAboutMsg);\nadd.to.pic(Hero, 0, 0, 1, 1, 4, 4);\nreturn();";
    const LogicCheck good = CheckLogic(source, settings, names);
    EXPECT_EQ(Shown(good), "5094@4");
    EXPECT_EQ(ByteArray(good.Bytes.begin() + 9, good.Bytes.begin() + 12), (ByteArray{9, 3, 255}));  // has

    settings.ErrorLevel = leHigh;
    EXPECT_EQ(Shown(CheckLogic(source, settings, names)), "4006@4");  // a text with a letter above 127

    names.CelCounts = [](std::uint8_t) { return std::vector<std::int32_t>{}; };
    names.Resources.erase(names.Resources.begin());
    settings.ErrorLevel = leMedium;
    EXPECT_EQ(Shown(CheckLogic(source, settings, names)), "4063@1 5094@4 5085@5");
    // Without the lists of the game the arguments that need them are errors that say so.
    settings.ErrorLevel = leLow;
    settings.MaxErrors = 100;
    EXPECT_EQ(Shown(CheckLogic("if (said(\"look\") && has(i1)) { v51 = numberOfItems; }\n"
                               "if (said(20)) { set.priority(ego, numberOfItems); }\nget(\"lamp\");\n"
                               "v50 = 1;\nanimate.obj(o1);\nget(i1);\nreturn();",
                               settings)),
              "4162@1 4163@1 4162@2 4163@2 4163@3 4163@5");
}

TEST(CheckLogic, LeavesAnOpenGameAlone) {
    ScratchGame game;
    game.Settings().ErrorLevel(leLow);
    const auto loud = [](const auto&...) { ADD_FAILURE() << "an event was raised"; };
    const auto warnings = Library().Events->LogCompWarning.Subscribe(loud);
    const auto diagnostics = Library().Events->LogCompDiagnostic.Subscribe(loud);
    const std::int32_t lastError = Library().LastErrorNumber;
    LogicCheckNames names;
    names.GameAbout = "another";
    names.GlobalDefines = {{"five", "", "5", atNum, ""}};
    LogicCheckSettings settings;
    settings.InterpreterVersion = "2.089";
    settings.UseReservedNames = true;
    EXPECT_EQ(Shown(CheckLogic("f5 = true;\nquit();\nv50 = five;\nset(1);", settings, names)),
              "5025@1 4063@4");
    EXPECT_NE(ReservedNames().Group(rgGameInfo)[giGameAboutMsg].Value, "\"another\"");
    EXPECT_FALSE(Library().UseReservedNames);
    EXPECT_EQ(Library().LastErrorNumber, lastError);
    EXPECT_EQ(RaisedBy([] { Library().Logics->Item(1)->Load(); }), std::nullopt);
}

TEST(CheckLogic, AgreesWithACompileOfDamagedSources) {
    ScratchGame game;
    const std::string whole =
        "#include \"inc.txt\"\n#define lamp \"lamp\"\n#message 3 \"three\"\nagain:\nif (isset(f50) && (v60 "
        "== "
        "3 || !said(\"look\"))) {\n  print(\"one\"\n    \"two\");\n  get(lamp);\n} else { v60 += 1; s1 = "
        "\"x\"; }\nif (v60 < 10) { goto(again); }\nadd.to.pic(1, 0, 0, 1, 1, 4, 4);\ncall(5);\nreturn();";
    game.Write("inc.txt", "#define five 5\nv50 = five;");
    std::uint32_t random = 1;
    const auto next = [&random](std::size_t below) {
        random = random * 1664525U + 1013904223U;
        return (random >> 8U) % below;
    };
    constexpr std::string_view pieces = ";{}()\"\\,=:#[!&| \n5vfm";
    for (int round = 0; round < 3000; ++round) {
        std::string source = whole;
        for (std::size_t i = 0; i <= next(3); ++i) {
            const std::size_t at = next(source.size());
            if (next(2) == 0)
                source.erase(at, 1 + next(4));
            else
                source.insert(at, 1, pieces[next(pieces.size())]);
        }
        game.Settings().ErrorLevel(static_cast<LogicErrorLevel>(next(3)));
        game.Compile(source);
        ASSERT_FALSE(HasFailure()) << source;
    }
}

}  // namespace zorvex::test
