// A small open game in memory, for tests of the compiler and of logics.
//
//     ScratchGame game;
//     game.Settings().ErrorLevel(leMedium);
//     game.Write("inc.txt", "#define x 3");            // into the resource directory
//     EXPECT_EQ(game.Compile("#include \"inc.txt\"\nv1 = x;\nreturn();").error, "");
//
// It has the logics 0, 1 and 5, the views 1 (one loop, one cel) and 2 (damaged), the sound 1, the
// words "the" (0), "look" (20) and "far" (40000) beside the default ones, and the items "?", "lamp", "key",
// "key", "?", and counts as version 2.917.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/FailingFiles.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/state/AGIGameEvents.h"

namespace zorvex::test {

class ScratchGame {
  public:
    ScratchGame();

    /// What a compile gave: the code without header and messages, and the messages; or an error.
    struct Result {
        std::string error;                  // "line: text", with "module:" in front for an include
        std::vector<std::string> warnings;  // in the same form, the number before the text
        ByteArray code;
        std::vector<std::string> messages;  // "number text"
    };

    /// Compiles a text as the source of a logic. Throws when a check of it does not tell the same.
    Result Compile(std::string_view source, std::uint8_t logic = 1);

    AGILogicSourceSettings& Settings();
    std::shared_ptr<AGILogic> Logic(std::uint8_t number) const;
    void Version(std::string_view version);
    /// Writes a file of the resource directory.
    void Write(std::string_view name, std::string_view text) const;
    FailingFileSystem& Files() { return *files_; }

    static constexpr std::string_view GameDir = "\\game\\";
    static constexpr std::string_view ResDir = "\\game\\src\\";

  private:
    MemoryFiles files_;
    AGIGame game_;
};

}  // namespace zorvex::test
