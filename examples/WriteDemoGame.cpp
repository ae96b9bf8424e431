// Writes a small V2 game of a few resources into a directory: the least that a reader of AGI games accepts.
// usage: WriteDemoGame DIRECTORY
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "zorvex/Zorvex.h"

namespace {

using zorvex::ByteArray;

// The smallest logic: one "return" and a message section without messages.
const ByteArray smallestLogic{1, 0, 0, 0, 2, 0};
// A house front: walls filled in brown, a black door, a green lawn.
const ByteArray housePicture{0xF0, 6, 0xF6, 40, 60,  120, 60,  120,  130, 40,  130, 40, 60, 0xF8, 80, 90,
                             0xF0, 0, 0xF6, 70, 95,  90,  95,  90,   130, 70,  130, 70, 95, 0xF8, 80, 110,
                             0xF0, 2, 0xF6, 0,  131, 159, 131, 0xF8, 80,  150, 0xFF};
// One loop with one cel of 4 by 2 pixels.
const ByteArray smallView{1, 1, 1, 0, 0, 7, 0, 1, 3, 0, 4, 2, 0, 0x44, 0, 0x52, 0x62, 0};
// One note of a second, then silence.
const ByteArray oneNote{8,    0,    15,   0,    17,   0,    19,   0,    60,   0,   13,
                        0x8C, 0x90, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

class GameFiles {
  public:
    explicit GameFiles(std::string directory) : directory_(std::move(directory)) {}

    /// Adds resource 0 of a type to volume 0 and writes the type's directory file.
    void Add(std::string_view directoryFile, const ByteArray& data) {
        const auto place = volume_.size();
        const ByteArray entry{0, static_cast<std::uint8_t>(place / 256),
                              static_cast<std::uint8_t>(place % 256)};
        const ByteArray header{0x12, 0x34, 0, static_cast<std::uint8_t>(data.size()), 0};
        volume_.insert(volume_.end(), header.begin(), header.end());
        volume_.insert(volume_.end(), data.begin(), data.end());
        Write(directoryFile, entry);
    }

    void Write(std::string_view name, const ByteArray& bytes) {
        zorvex::Files().Write(directory_ + "\\" + std::string(name), bytes);
    }

    void Finish() {
        Write("VOL.0", volume_);
        Write("WORDS.TOK", WordFile());
        // One item, "?", behind a table of one record; no scrambling.
        Write("OBJECT", {3, 0, 16, 3, 0, 0, '?', 0});
    }

  private:
    /// The words "a" in group 0 and "anyword" in group 1 behind the index of letters.
    static ByteArray WordFile() {
        ByteArray bytes(52);
        bytes[1] = 52;
        const auto coded = [](char letter, bool last) {
            return static_cast<std::uint8_t>((letter ^ 0x7F) | (last ? 0x80 : 0));
        };
        const ByteArray first{0, coded('a', true), 0, 0};
        bytes.insert(bytes.end(), first.begin(), first.end());
        bytes.push_back(1);
        const std::string_view rest = "nyword";
        for (std::size_t i = 0; i < rest.size(); ++i)
            bytes.push_back(coded(rest[i], i + 1 == rest.size()));
        const ByteArray end{0, 1, 0};
        bytes.insert(bytes.end(), end.begin(), end.end());
        return bytes;
    }

    std::string directory_;
    ByteArray volume_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: WriteDemoGame DIRECTORY\n", stderr);
        return 2;
    }
    try {
        GameFiles files(zorvex::InnerPath(argv[1]));
        files.Add("LOGDIR", smallestLogic);
        files.Add("PICDIR", housePicture);
        files.Add("SNDDIR", oneNote);
        files.Add("VIEWDIR", smallView);
        files.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "WriteDemoGame: %s\n", error.what());
        return 1;
    }
    return 0;
}
