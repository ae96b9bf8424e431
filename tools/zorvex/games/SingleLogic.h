// A game made for a single logic, for sources that belong to no project.
#pragma once

#include <memory>
#include <string>

#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

struct SingleLogicSettings {
    std::string File;
    std::string Version = "2.917";
    std::string Words;    // a WORDS.TOK; empty: a new vocabulary
    std::string Objects;  // an OBJECT file; empty: a new inventory
    std::uint8_t Number = 0;
};

/// Holds the game as long as it lives. Include files named without a directory are taken from beside the
/// source. Raises UsageError for an interpreter version that is not known.
class SingleLogic {
  public:
    explicit SingleLogic(const SingleLogicSettings& settings);

    AGIGame& Game() { return game_->Game(); }
    /// The logic, loaded, with the source text of the file.
    AGILogic& Logic() { return *logic_; }

  private:
    void WriteGameFiles(const SingleLogicSettings& settings) const;
    void WriteDirectories(const SingleLogicSettings& settings) const;
    void CopyIncludes(const SingleLogicSettings& settings, const std::string& source) const;

    ScratchDirectory scratch_;
    std::unique_ptr<OpenedGame> game_;
    std::shared_ptr<AGILogic> logic_;
};

}  // namespace zorvex::tool
