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
    Look,   ///< works on a scratch copy; the game stays as it is, byte for byte
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

/// Opens a game directory or property file. Empty V2 directory files are mended first, which is said on
/// standard error; with Change the former file stays as .OLD. Warnings of the load are said on standard
/// error. Raises what opening raises, except 636.
class OpenedGame {
  public:
    OpenedGame(const std::string& path, Access access);
    ~OpenedGame();
    OpenedGame(const OpenedGame&) = delete;
    OpenedGame& operator=(const OpenedGame&) = delete;

    AGIGame& Game() { return *game_; }
    const AGIGame& Game() const { return *game_; }
    bool IsV3() const { return game_->InterpreterVersion().starts_with('3'); }
    /// The directory the library works in: the scratch copy or the game's own.
    const std::filesystem::path& Directory() const { return directory_; }
    /// The lines that the load wrote to the log, without their dates.
    const std::vector<std::string>& Warnings() const { return warnings_; }
    /// Entries of the directory files that the load blanked because their resources are bad.
    const std::vector<SkippedResource>& Skipped() const { return skipped_; }
    /// Whether one of them is of this type. What is wrong with it was said when the game was opened.
    bool HasSkipped(AGIResType type) const;
    /// Names of the directory files that had no bytes.
    const std::vector<std::string>& MendedDirectories() const { return mendedDirectories_; }

  private:
    void Locate(const std::string& path);
    void CopyToScratch();
    void MendEmptyDirectories(Access access);
    void Open();
    void CollectWarnings(std::uintmax_t logBefore);
    void FindSkipped(const std::vector<SkippedResource>& entries);

    std::unique_ptr<ScratchDirectory> scratch_;
    std::filesystem::path directory_;
    std::filesystem::path propertyFile_;  // empty: open the directory
    std::unique_ptr<AGIGame> game_;
    std::vector<std::string> warnings_;
    std::vector<SkippedResource> skipped_;
    std::vector<std::string> mendedDirectories_;
};

/// True when a path names a game: a directory, or a file with the extension .zvg.
bool NamesGame(const std::string& path);

}  // namespace zorvex::tool
