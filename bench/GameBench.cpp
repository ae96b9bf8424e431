// Opening a game of 1,024 resources, four times 256, without and with its property file. Beside it stands a
// plain read of the same files. The aims are 150 ms without and 100 ms with the property file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "zorvex/Zorvex.h"
#include "zorvex/platform/FileSystem.h"

namespace {

using namespace zorvex;
namespace fs = std::filesystem;

/// A directory with a V2 game, made once and removed at the end of the program.
class LargeGame {
  public:
    LargeGame()
        : path_(fs::temp_directory_path() / ("zorvex-bench-" + std::to_string(std::random_device{}()))) {
        fs::create_directories(path_ / "src");
        Write("VOL.0", ByteArray());
        const std::string_view names[] = {"LOGDIR", "PICDIR", "SNDDIR", "VIEWDIR"};
        const ByteArray resources[] = {{1, 0, 0, 0, 2, 0},
                                       {0xFF},
                                       {8, 0, 10, 0, 12, 0, 14, 0, 255, 255, 255, 255, 255, 255, 255, 255},
                                       {1, 1, 1, 0, 0, 7, 0, 1, 3, 0, 1, 1, 0, 0}};
        for (std::size_t type = 0; type < 4; ++type)
            AddResources(names[type], resources[type]);
        Write("VOL.0", volume_);
        ByteArray words(53);
        words[1] = 52;
        Write("WORDS.TOK", words);
        Write("OBJECT", {3, 0, 16, 3, 0, 0, '?', 0});
    }
    ~LargeGame() { fs::remove_all(path_); }

    std::string Directory() const { return InnerPath(path_.string()); }
    const fs::path& Path() const { return path_; }

  private:
    void AddResources(std::string_view directory, const ByteArray& resource) {
        ByteArray entries;
        for (int i = 0; i < 256; ++i) {
            const std::size_t at = volume_.size();
            for (const std::size_t part : {at >> 16U, at >> 8U, at})
                entries.push_back(static_cast<std::uint8_t>(part));
            const auto size = static_cast<std::uint8_t>(resource.size());
            volume_.insert(volume_.end(), {0x12, 0x34, 0, size, 0});
            volume_.insert(volume_.end(), resource.begin(), resource.end());
        }
        Write(directory, entries);
    }
    void Write(std::string_view name, const ByteArray& bytes) const {
        std::ofstream file(path_ / name, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    fs::path path_;
    ByteArray volume_;
};

LargeGame& Game() {
    static LargeGame game;
    return game;
}

/// Opens the game and returns the number of its resources. Warnings of the load do not count.
int Open(AGIGame& game, const std::string& propertyFile) {
    try {
        if (propertyFile.empty()) {
            game.OpenGameDIR(Game().Directory());
        } else {
            game.OpenGameZVG(propertyFile);
        }
    } catch (const Error& error) {
        if (!error.Is(636)) throw;
    }
    return game.Logics().Count() + game.Pictures().Count() + game.Sounds().Count() + game.Views().Count();
}

void ReadFilesPlainly(benchmark::State& state) {
    for (auto _ : state) {
        for (const fs::directory_entry& entry : fs::directory_iterator(Game().Path())) {
            if (!entry.is_regular_file()) continue;
            std::ifstream file(entry.path(), std::ios::binary);
            const ByteArray bytes{std::istreambuf_iterator<char>(file), {}};
            benchmark::DoNotOptimize(bytes.data());
        }
    }
}
BENCHMARK(ReadFilesPlainly)->Unit(benchmark::kMillisecond);

void OpenGame(benchmark::State& state) {
    AGIGame game;
    std::string propertyFile;
    if (state.range(0) == 1) {
        Open(game, "");
        propertyFile = game.GameFile();
        game.CloseGame();
    }
    int count = 0;
    for (auto _ : state) {
        count = Open(game, propertyFile);
        state.PauseTiming();
        game.CloseGame();
        state.ResumeTiming();
    }
    state.SetLabel(std::to_string(count) + " resources");
}
BENCHMARK(OpenGame)->ArgName("propertyFile")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
