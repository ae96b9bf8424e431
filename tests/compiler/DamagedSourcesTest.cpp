// Sources that are cut off, damaged or huge: the compiler ends in reasonable time, with an error of the
// source.
#include <chrono>

#include "tests/support/ScratchGame.h"
#include "tests/support/TestFiles.h"
#include "zorvex/game/Text.h"

namespace zorvex::test {

namespace {

/// A little of everything that source can hold.
constexpr std::string_view mixture = R"(#include "inc.txt"
#define door v50 [ a comment
#message 3 "A \"text\" "
  "in two parts"
start:
if (said("look", 20) && !f5 && (isset(f1) || door >= -1)) {
  print(m3); print("x\x41" // another
    "y"); get("lamp");
  *v51 = 4; v52 = *v53; v54 = v54 / 3; s2 = "z"; ++door;
} else { goto(start); }
:end
f1 = true; add.to.pic(1, 0, 0, 10, 20, 5, 4);
return();)";

std::string Many(int count, std::string_view piece) {
    std::string text;
    text.reserve(static_cast<std::size_t>(count) * piece.size());
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

/// True for "line: text" or "file:line: text" of an error with a number of its own.
bool IsPlaced(std::string error) {
    if (error.starts_with("inc.txt:")) error.erase(0, 8);
    const std::size_t colon = error.find(": ");
    return colon != std::string::npos && ParseNumber(error.substr(0, colon)).value_or(0) >= 1 &&
           (error.compare(colon + 2, 1, "4") == 0 || error.compare(colon + 2, 1, "-") == 0);
}

}  // namespace

TEST(DamagedSources, EndInAnErrorOfTheSource) {
    ScratchGame game;
    game.Write("inc.txt", "#define lamp 5\r\n\r#message 4 \"m\"\v\n");
    game.Settings().ErrorLevel(leMedium);
    ASSERT_EQ(game.Compile(mixture).error, "");
    const auto expectSafe = [&](const std::string& source) {
        const std::string error = game.Compile(source).error;
        EXPECT_TRUE(error.empty() || IsPlaced(error)) << error << "\nof\n" << source;
    };
    for (const LogicErrorLevel level : {leHigh, leMedium, leLow}) {
        game.Settings().ErrorLevel(level);
        for (std::size_t size = 1; size < mixture.size(); ++size)
            expectSafe(std::string(mixture.substr(0, size)));
        for (std::size_t at = 0; at < mixture.size(); ++at) {
            for (const char damage : std::string_view("\0\n\v\"\\(;:9*", 10))
                expectSafe(std::string(mixture).replace(at, 1, 1, damage));
        }
    }
}

TEST(DamagedSources, TakeNoTimeOutOfProportion) {
    ScratchGame game;
    game.Settings().ErrorLevel(leLow);
    constexpr int mega = 1 << 20;
    game.Write("inc.txt", Many(100000, "// nothing\n"));
    std::string defines;
    for (int i = 0; i < 20000; ++i)
        defines += "#define x" + std::to_string(i) + " \"y\"\n";
    for (const std::string& source : std::vector<std::string>{
             Many(100000, "\n") + "return();",
             "#include \"inc.txt\"\nreturn();",
             Many(100000, "[ a comment \" of some length\r\n") + "return();",
             Many(mega, " ") + "return();",
             Many(mega, "x") + "();",
             Many(mega, "x") + ":\nreturn();",
             Many(mega, "("),
             Many(mega, "-"),
             Many(mega, "{"),
             Many(mega, "\\"),
             "if (" + Many(mega, "!"),
             "print(\"" + Many(mega, "\\\"") + "\");\nreturn();",
             "print(\n" + Many(100000, "\"a\"\n") + ");\nreturn();",
             "v50 = " + Many(mega, "9") + ";\nreturn();",
             "#message 1 \"" + Many(mega, "a\\x4") + "\"\nreturn();",
             Many(mega / 8, "v50 = 1;"),
             Many(100000, "print(\"x\");\n"),
             Many(10000, "#include \"none.txt\n"),
             defines + "return();",
         }) {
        const auto start = std::chrono::steady_clock::now();
        const std::string error = game.Compile(source).error;
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        EXPECT_LT(taken.count(), 10) << source.substr(0, 40) << " ... " << error.substr(0, 80);
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
             {"\"none.txt\"", missing + "\\game\\src\\none.txt'"},
             {"\"/game/above.txt\"", ""},
             {std::string("\"a\0b\"", 5), missing + std::string("\\game\\src\\a\0b'", 14)}}) {
        EXPECT_EQ(game.Compile("#include " + name + "\nreturn();").error, error);
    }
    EXPECT_EQ(game.Compile(std::string("v50 = 1 \0;\nreturn();", 20)).error, "");
}

}  // namespace zorvex::test
