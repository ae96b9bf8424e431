// A game that a command works on.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// What a command does to the game that it is given.
enum class Access : std::uint8_t {
    Look,   ///< the game stays as it is, byte for byte; what would be written below it stays in memory
    Change  ///< works on the game itself
};

/// A directory that goes when this object goes.
class ScratchDirectory {
  public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// A resource that the game's directory names and the library could not take.
struct SkippedResource {
    AGIResType Type;
    std::uint8_t Number;
    std::int32_t Volume;
    std::int32_t Location;
};

/// Opens a game directory or property file. An empty V2 directory file counts as one empty entry, which is
/// said on standard error; with Change it is mended on disk and the former file stays as .OLD. Warnings of
/// the load are said on standard error. The entries of resources that cannot be read stay, unless told
/// otherwise. Raises what AGIGame::Open raises, and 541 for a directory without a game.
class OpenedGame {
  public:
    OpenedGame(const std::string& path, Access access, BadEntry badEntries = BadEntry::Leave);
    ~OpenedGame();
    OpenedGame(const OpenedGame&) = delete;
    OpenedGame& operator=(const OpenedGame&) = delete;

    AGIGame& Game() { return *game_; }
    const AGIGame& Game() const { return *game_; }
    bool IsV3() const { return game_->InterpreterVersion().starts_with('3'); }
    /// The directory of the game.
    const std::filesystem::path& Directory() const { return directory_; }
    /// The sentences of what the load warned of.
    const std::vector<std::string>& Warnings() const { return warnings_; }
    /// Entries of the directory files whose resources are bad.
    const std::vector<SkippedResource>& Skipped() const { return skipped_; }
    /// Whether one of them is of this type. What is wrong with it was said when the game was opened.
    bool HasSkipped(AGIResType type) const;

  private:
    void Locate(const std::string& path);
    void CollectIssues(bool look);

    std::filesystem::path directory_;
    std::filesystem::path propertyFile_;  // empty: open the directory
    std::unique_ptr<AGIGame> game_;
    std::vector<std::string> warnings_;
    std::vector<SkippedResource> skipped_;
};

/// True when a path names a game: a directory, or a file with the extension .zvg.
bool NamesGame(const std::string& path);

}  // namespace zorvex::tool
