// The compiler: any source is compiled or refused with an error of its own, and what it accepts can be
// decompiled and compiled again.
//
// The first byte of an input holds the level, whether reserved names count, and the interpreter version; the
// rest is the source. The file inc.txt can be included.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Check.h"
#include "tests/support/ScratchGame.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Error.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/CheckLogic.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/state/LibraryState.h"

using namespace zorvex;

namespace {

constexpr std::array<std::string_view, 4> versions{"2.089", "2.440", "2.917", "3.002149"};
constexpr std::size_t longestSource = 20000;

test::ScratchGame& Game() {
    static test::ScratchGame game;
    static const bool prepared = [] {
        game.Write("inc.txt", "#define five 5\n#message 2 \"two\"\nprint(m2);\n");
        game.Logic(1)->Load();
        return true;
    }();
    static_cast<void>(prepared);
    return game;
}

bool Contains(const std::string& source, std::string_view text) {
    return LowerCase(source).find(text) != std::string::npos;
}

/// What bytecode can say and decompiled text cannot: a test for false, 64 blocks, a jump into a block, a
/// message without an end.
bool CanResistDecompiling(const std::string& source) {
    return Contains(source, "return.false") || Contains(source, "goto") || Contains(source, "\\0") ||
           std::count(source.begin(), source.end(), '{') > 60;
}

/// True for "line|file|text" of a line that is there and a text with a number of its own.
bool IsPlaced(const std::string& description) {
    const std::vector<std::string> parts = Split(description, "|");
    return parts.size() >= 3 && ParseNumber(parts[0]).value_or(0) >= 1 &&
           (parts[1].empty() || LowerCase(parts[1]).ends_with("\\inc.txt")) &&
           (parts[2].starts_with('4') || parts[2].starts_with('-'));
}

/// The first error of a check, with its line, as a compile raises it.
std::string FirstError(const LogicCheck& check) {
    for (const Diagnostic& found : check.Diagnostics) {
        if (found.IsError())
            return std::to_string(found.Line) + "|" + found.File + "|" + std::to_string(found.Number);
    }
    return "none";
}

/// Compiles a text as logic 1. False when it was refused as source. A check tells the same.
bool Compiles(const std::string& source) {
    AGILogic& logic = *Game().Logic(1);
    logic.SourceText(source);
    const LogicCheck check = CheckLogic(source, PresentCheckSettings(1), PresentCheckNames());
    try {
        CompileLogic(logic);
        const ByteView bytes = logic.Resource().View();
        FUZZ_CHECK(std::equal(bytes.begin(), bytes.end(), check.Bytes.begin(), check.Bytes.end()));
        return true;
    } catch (const Error& error) {
        FUZZ_CHECK(!error.Is(635) || error.Description().starts_with(FirstError(check)));
        constexpr std::int32_t sourceError = 635;
        constexpr std::int32_t positionPastTheEnd = 658;
        FUZZ_CHECK(error.Is(sourceError) || error.Is(positionPastTheEnd));
        FUZZ_CHECK(error.Is(positionPastTheEnd) || IsPlaced(error.Description()));
        return false;
    }
}

std::string Decompiled() {
    return ConvertToCodePage(DecodeLogic(Game().Logic(1)->Resource().View())->Text("\r\n"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1 || size > longestSource) return 0;
    test::ScratchGame& game = Game();
    game.Settings().ErrorLevel(static_cast<LogicErrorLevel>(std::min(data[0] & 3, 2)));
    Library().UseReservedNames = (data[0] & 4) != 0;
    game.Version(versions[(data[0] >> 3U) & 3U]);
    const std::string source(data + 1, data + size);
    if (!Compiles(source)) return 0;

    game.Settings().ErrorLevel(leLow);
    Library().UseReservedNames = true;
    const bool canResist = CanResistDecompiling(source);
    std::string text;
    try {
        text = Decompiled();
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(688) && canResist);
        return 0;
    }
    if (canResist) return 0;
    FUZZ_CHECK(Compiles(text));
    FUZZ_CHECK(Decompiled() == text);
    return 0;
}
