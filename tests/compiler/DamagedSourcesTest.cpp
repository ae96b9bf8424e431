// Sources that are huge or odd: the compiler ends soon, in code or in an error of the source. The fuzz
// target of the compiler cuts and damages sources.
#include "tests/support/ScratchGame.h"

namespace zorvex::test {

TEST(DamagedSources, EndInCodeOrAnError) {
    ScratchGame game;
    game.Settings().ErrorLevel(leLow);
    constexpr int mega = 1 << 20;
    game.Write("inc.txt", Repeated(100000, "// nothing\n"));
    for (const std::string& source : std::vector<std::string>{
             std::string(100000, '\n') + "return();",
             "#include \"inc.txt\"\nreturn();",
             Repeated(100000, "[ a comment \" of some length\r\n") + "return();",
             std::string(mega, ' ') + "return();",
             std::string(mega, 'x') + "();",
             std::string(mega, 'x') + ":\nreturn();",
             std::string(mega, '('),
             std::string(mega, '-'),
             std::string(mega, '{'),
             std::string(mega, '\\'),
             "if (" + std::string(mega, '!'),
             "print(\"" + Repeated(mega, "\\\"") + "\");\nreturn();",
             "print(\n" + Repeated(100000, "\"a\"\n") + ");\nreturn();",
             "v50 = " + std::string(mega, '9') + ";\nreturn();",
             "#message 1 \"" + Repeated(mega, "a\\x4") + "\"\nreturn();",
             Repeated(mega / 8, "v50 = 1;"),
             Repeated(100000, "print(\"x\");\n"),
             Repeated(10000, "#include \"none.txt\n"),
             Repeated(20000, "#define x@ \"y\"\n") + "return();",
         }) {
        const auto result = game.Compile(source);
        EXPECT_NE(result.error.empty(), result.code.empty()) << source.substr(0, 40);
    }
}

TEST(DamagedSources, NameIncludesOddly) {
    ScratchGame game;
    game.Files().Write("\\game\\above.txt", Bytes("#define x 7"));
    const std::string missing = "1: 4050: Could not find include file '";
    for (const auto& [name, error] : std::vector<std::pair<std::string, std::string>>{
             {"\"", missing + "\\game\\src\\'"},
             {"\"\"", missing + "\\game\\src\\'"},
             {"\"\\game\\src\"", missing + "\\game\\src'"},
             {"\"/game/above.txt\"", ""},
             {std::string("\"a\0b\"", 5), missing + std::string("\\game\\src\\a\0b'", 14)}}) {
        EXPECT_EQ(game.Compile("#include " + name + "\nreturn();").error, error);
    }
    EXPECT_EQ(game.Compile(std::string("v50 = 1 \0;\nreturn();", 20)).error, "");
}

}  // namespace zorvex::test
