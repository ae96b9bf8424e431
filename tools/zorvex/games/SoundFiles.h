// Sounds that the commands work on: of a game, or of a file by itself.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

/// A sound from a file: a raw resource of any kind, or a script. The sound is loaded and its notes are read.
/// Raises Error, whose description names the file and, for a script, the bad line.
std::shared_ptr<AGISound> SoundOfFile(const std::string& path);

/// What a command was asked to take its sounds from.
class SoundSource {
  public:
    /// `path` names a game, or the file of one sound.
    explicit SoundSource(const std::string& path);

    bool IsGame() const { return game_ != nullptr; }
    /// Whether the game names sounds that it does not have.
    bool HasSkipped() const { return IsGame() && game_->HasSkipped(rtSound); }
    /// The sound of a number, not loaded; of a file its one sound, whatever the number. Raises Error when
    /// there is none, and UsageError when a game is given without a number.
    std::shared_ptr<AGISound> Sound(const std::optional<std::uint8_t>& number) const;
    /// All sounds, by number.
    std::vector<std::shared_ptr<AGISound>> All() const;

  private:
    std::unique_ptr<OpenedGame> game_;
    std::shared_ptr<AGISound> file_;
};

}  // namespace zorvex::tool
