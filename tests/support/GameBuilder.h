// Small games for tests, written as files.
//
//     GameBuilder game;  // V2; GameBuilder("TST") makes a V3 game of that ID
//     game.Add(rtLogic, 0, SmallestLogic()).Add(rtPicture, 5, {0xFF}, 1);  // in volume 1
//     game.WriteTo(dir);
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "zorvex/base/Types.h"

namespace zorvex::test {

/// One "return" and an empty message section.
ByteArray SmallestLogic();
/// One loop with one cel of one pixel.
ByteArray SmallestView();
/// A four-voice sound without notes.
ByteArray SilentSound();
/// The bytes 0, 1, 2 and so on.
ByteArray CountingBytes(std::size_t count);
/// A valid resource of any kind, another one for each variant.
ByteArray SampleResource(AGIResType type, std::size_t variant);

class GameBuilder {
  public:
    explicit GameBuilder(std::string v3ID = {}) : id_(std::move(v3ID)) {}

    /// Appends a resource to a volume and points its entry there.
    GameBuilder& Add(AGIResType type, int number, const ByteArray& data, int volume = 0);
    /// Sets an entry of a directory, whatever it points at.
    GameBuilder& Entry(AGIResType type, int number, int volume, std::int32_t location);
    /// Appends plain bytes to a volume.
    GameBuilder& Fill(int volume, std::size_t count, std::uint8_t value = 0);
    std::int32_t VolumeSize(int volume) const;

    /// Writes all files of the game, with the default vocabulary and an inventory of one item, into a
    /// TempDir.
    template <class Directory>
    void WriteTo(const Directory& dir) const {
        for (const auto& [name, bytes] : AllFiles())
            dir.Write(name, bytes);
    }
    /// The same into a directory, a path with a backslash at its end, of the file system in use.
    void WriteInto(const std::string& directory) const;

  private:
    bool IsV3() const { return !id_.empty(); }
    /// A directory file's bytes: of a type in V2, the one file in V3.
    ByteArray Directory(AGIResType type) const;
    std::map<std::string, ByteArray> AllFiles() const;

    std::string id_;
    std::map<int, ByteArray> volumes_;
    std::array<ByteArray, 4> directories_;
};

}  // namespace zorvex::test
