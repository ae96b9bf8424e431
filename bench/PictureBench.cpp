// Drawing pictures. The measure is a plain copy of the two screens in the same run:
//
//     drawing all pictures of a game   the mean draw takes less than 40 copies
//     the worst known picture          less than 20 ms
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "zorvex/picture/AGIPicture.h"
#include "zorvex/picture/PictureFunctions.h"

namespace {

using namespace zorvex;

ByteArray ReadGameFile(const std::string& name) {
    const char* games = std::getenv("ZORVEX_GAMES");
    const std::filesystem::path directory = games != nullptr ? games : "../shared/games";
    std::ifstream file(directory / "coo" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The pictures of the real V2 game, straight from its files; a drawn room in their place where it is not
/// there.
std::vector<ByteArray> Pictures() {
    std::vector<ByteArray> pictures;
    const ByteArray directory = ReadGameFile("picdir");
    const ByteArray volume = ReadGameFile("vol.0");
    for (std::size_t i = 0; i + 2 < directory.size(); i += 3) {
        if (directory[i] == 0xFF) continue;
        const std::size_t header =
            (directory[i] & 15U) << 16U | static_cast<std::size_t>(directory[i + 1]) << 8U | directory[i + 2];
        const std::size_t size = volume.at(header + 3) | static_cast<std::size_t>(volume.at(header + 4))
                                                             << 8U;
        const auto start = volume.begin() + static_cast<std::ptrdiff_t>(header + 5);
        pictures.emplace_back(start, start + static_cast<std::ptrdiff_t>(size));
    }
    if (pictures.empty()) {
        ByteArray room{0xF0, 11, 0xF8, 9, 9, 0xF0, 2, 0xF6, 0, 120, 159, 120, 0xF8, 80, 140};
        for (std::uint8_t x = 4; x < 150; x += 6)
            room.insert(room.end(),
                        {0xF0, 6, 0xF5, x, 90, static_cast<std::uint8_t>(x + 4), 119, x, 90, 0xFA, x, 60});
        room.push_back(0xFF);
        pictures.push_back(room);
    }
    return pictures;
}

const ByteArray& LongestPicture(const std::vector<ByteArray>& pictures) {
    return *std::max_element(
        pictures.begin(), pictures.end(),
        [](const ByteArray& left, const ByteArray& right) { return left.size() < right.size(); });
}

/// As long as a resource can be: crooked white corridors drawn into a filled screen, and filled again.
ByteArray WorstPicture() {
    ByteArray stream{0xF2, 2, 0xF0, 1, 0xF8, 0, 0};
    while (stream.size() < 65000) {
        stream.insert(stream.end(), {0xF0, 15, 0xF4, 0, 0});
        for (std::uint8_t x = 0; x < 160; x += 2) {
            stream.push_back(x % 4 == 0 ? 167 : 0);
            stream.push_back(static_cast<std::uint8_t>(x + 2));
        }
        stream.insert(stream.end(), {0xF0, 1, 0xF8, 0, 0});
    }
    stream.push_back(0xFF);
    return stream;
}

void CopyTwoScreens(benchmark::State& state) {
    const ByteArray source(PictureSize, 4);
    ByteArray vis(PictureSize);
    ByteArray pri(PictureSize);
    for (auto _ : state) {
        vis.assign(source.begin(), source.end());
        pri.assign(source.begin(), source.end());
        benchmark::DoNotOptimize(vis.data());
        benchmark::DoNotOptimize(pri.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyTwoScreens);

/// One iteration is one picture, in turn.
void DrawPictures(benchmark::State& state) {
    const std::vector<ByteArray> pictures = Pictures();
    ByteArray vis;
    ByteArray pri;
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DrawPicture(vis, pri, pictures[next]));
        next = (next + 1) % pictures.size();
    }
}
BENCHMARK(DrawPictures);

void DrawStream(benchmark::State& state, const ByteArray& stream) {
    ByteArray vis;
    ByteArray pri;
    for (auto _ : state)
        benchmark::DoNotOptimize(DrawPicture(vis, pri, stream));
}

void FillEmptyScreen(benchmark::State& state) {
    DrawStream(state, {0xF0, 1, 0xF2, 2, 0xF8, 80, 80, 0xFF});
}
BENCHMARK(FillEmptyScreen);

void DrawWorstPicture(benchmark::State& state) {
    DrawStream(state, WorstPicture());
}
BENCHMARK(DrawWorstPicture)->Unit(benchmark::kMillisecond);

/// One iteration shows the longest picture of the game in a hundred steps, bitmaps included.
void StepThroughPicture(benchmark::State& state) {
    const std::vector<ByteArray> pictures = Pictures();
    AGIPicture picture;
    picture.SetPictureData(LongestPicture(pictures));
    picture.StepDraw(true);
    for (auto _ : state) {
        for (std::int32_t step = 1; step <= 100; ++step) {
            picture.DrawPos(picture.Size() * step / 100);
            benchmark::DoNotOptimize(picture.VisualBMP());
        }
    }
}
BENCHMARK(StepThroughPicture)->Unit(benchmark::kMillisecond);

}  // namespace
