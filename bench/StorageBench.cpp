// Expanding LZW data, the search for free space, the rebuild of a large game, and builds of a game of 100
// logics. Beside the expansion and the rebuild stands a plain copy of the same bytes. Aims: 200 MB/s of
// expanded data, a rebuild within five times a copy of its files.
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/LzwEncoder.h"
#include "zorvex/base/Error.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceFunctions.h"
#include "zorvex/storage/VolManager.h"

namespace {

using namespace zorvex;
namespace fs = std::filesystem;

ByteArray PictureLikeBytes(std::size_t size) {
    ByteArray bytes(size);
    unsigned seed = 1;
    for (std::size_t i = 0; i < size; ++i) {
        seed = seed * 1103515245U + 12345U;
        bytes[i] = static_cast<std::uint8_t>(seed >> 28U) < 11 && i > 20
                       ? bytes[i - 20]
                       : static_cast<std::uint8_t>(seed >> 20U & 31U);
    }
    return bytes;
}

void ExpandLzw(benchmark::State& state) {
    const ByteArray plain = PictureLikeBytes(30000);
    const ByteArray packed = fuzz::LzwCompressed(plain);
    for (auto _ : state) {
        ByteArray data = packed;
        ExpandV3(data, 30000);
        benchmark::DoNotOptimize(data.data());
    }
    state.SetBytesProcessed(state.iterations() * 30000);
}
BENCHMARK(ExpandLzw);

void CopyExpanded(benchmark::State& state) {
    const ByteArray plain = PictureLikeBytes(30000);
    for (auto _ : state) {
        ByteArray data = plain;
        benchmark::DoNotOptimize(data.data());
    }
    state.SetBytesProcessed(state.iterations() * 30000);
}
BENCHMARK(CopyExpanded);

/// A V2 game of 1,024 resources of one size, spread evenly over five volumes.
class LargeGame {
  public:
    explicit LargeGame(std::size_t resourceSize) : path_(fs::temp_directory_path() / "zorvex-bench-game") {
        fs::remove_all(path_);
        fs::create_directories(path_ / "src");
        const char* names[] = {"LOGDIR", "PICDIR", "SNDDIR", "VIEWDIR"};
        std::array<ByteArray, 5> volumes;
        int count = 0;
        for (const char* name : names) {
            ByteArray entries;
            for (int n = 0; n < 256; ++n, ++count) {
                ByteArray& volume = volumes[static_cast<std::size_t>(count) % 5];
                const auto entry = MakeDirectoryEntry(count % 5, static_cast<std::int32_t>(volume.size()));
                entries.insert(entries.end(), entry.begin(), entry.end());
                const ByteArray head{0x12, 0x34, 0, static_cast<std::uint8_t>(resourceSize),
                                     static_cast<std::uint8_t>(resourceSize >> 8U)};
                volume.insert(volume.end(), head.begin(), head.end());
                volume.resize(volume.size() + resourceSize, 1);
            }
            Write(name, entries);
        }
        for (std::size_t n = 0; n < volumes.size(); ++n)
            Write("VOL." + std::to_string(n), volumes[n]);
        ByteArray words(55);
        words[1] = 52;
        Write("WORDS.TOK", {words.begin(), words.begin() + 53});
        Write("OBJECT", {3, 0, 16, 3, 0, 0, '?', 0});
    }
    LargeGame(const LargeGame&) = delete;
    LargeGame& operator=(const LargeGame&) = delete;
    ~LargeGame() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    std::string Path() const { return path_.string(); }

    void CopyFiles() const {
        for (const auto& entry : fs::directory_iterator(path_)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("VOL.") && !name.ends_with(".OLD"))
                fs::copy_file(entry.path(), path_ / "src" / name, fs::copy_options::overwrite_existing);
        }
    }

  private:
    void Write(const std::string& name, const ByteArray& bytes) const {
        Files().Write(InnerPath((path_ / name).string()), bytes);
    }
    fs::path path_;
};

template <class Step>
void Quietly(Step&& step) {
    try {
        step();
    } catch (const Error&) {  // warnings of the load
    }
}

void FindFreeSpace(benchmark::State& state) {
    const LargeGame files(300);
    AGIGame game;
    Quietly([&] { game.OpenGameDIR(files.Path()); });
    AGIResource& resource = game.Pictures().Item(7)->Resource();
    resource.Load();
    for (auto _ : state)
        FindFreeVOLSpace(resource);
}
BENCHMARK(FindFreeSpace)->Unit(benchmark::kMicrosecond);

void RebuildOf4MB(benchmark::State& state) {
    const LargeGame files(4000);
    AGIGame game;
    Quietly([&] { game.OpenGameDIR(files.Path()); });
    for (auto _ : state)
        game.CompileGame(true, "");
}
BENCHMARK(RebuildOf4MB)->Unit(benchmark::kMillisecond);

void CopyOf4MB(benchmark::State& state) {
    const LargeGame files(4000);
    for (auto _ : state)
        files.CopyFiles();
}
BENCHMARK(CopyOf4MB)->Unit(benchmark::kMillisecond);

/// A game of 100 logics of about 100 lines each, with their source files.
class AuthoredGame {
  public:
    AuthoredGame() : path_(fs::temp_directory_path() / "zorvex-bench-authored") {
        fs::remove_all(path_);
        fs::create_directories(path_);
        std::string resDir = "src";
        game_.NewGame("BENCH", "2.917", path_.string(), resDir);
        for (int n = 1; n < 100; ++n) {
            game_.Logics().Add(static_cast<std::uint8_t>(n));
            Change(static_cast<std::uint8_t>(n), n);
        }
    }
    AuthoredGame(const AuthoredGame&) = delete;
    AuthoredGame& operator=(const AuthoredGame&) = delete;
    ~AuthoredGame() {
        Quietly([this] { game_.CloseGame(); });
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    /// Writes and compiles a new source of a logic.
    void Change(std::uint8_t number, int variant) {
        const auto logic = game_.Logics().Item(number);
        logic->Load();
        logic->SourceText(Source(variant));
        logic->SaveSource();
        logic->Compile();
        logic->Unload();
    }
    AGIGame& Game() { return game_; }

  private:
    static std::string Source(int variant) {
        std::string text = "#define steps v60\n";
        for (int part = 0; part < 12; ++part) {
            text += "if (isset(f5) && steps > " + std::to_string((variant + part) % 256) +
                    ") {\n  set.horizon(60);\n  animate.obj(o1);\n  position(o1, 80, 120);\n"
                    "  print(\"There is nothing of use here.\");\n}\nelse {\n  steps += 1;\n}\n";
        }
        return text + "return();\n";
    }

    fs::path path_;
    AGIGame game_;
};

void CompileOf100Logics(benchmark::State& state) {
    AuthoredGame authored;
    for (auto _ : state)
        authored.Game().CompileGame(false, "");
}
BENCHMARK(CompileOf100Logics)->Unit(benchmark::kMillisecond);

void BuildAfterOneChange(benchmark::State& state) {
    AuthoredGame authored;
    int variant = 0;
    for (auto _ : state) {
        authored.Change(50, ++variant);
        authored.Game().CompileGame(true, "");
    }
}
BENCHMARK(BuildAfterOneChange)->Unit(benchmark::kMillisecond);

}  // namespace
