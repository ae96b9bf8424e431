// Decoding and encoding the views of a game. The rates are pixels, one byte each; beside them stands a plain
// copy of the same pixels. The aim is over 100 MB/s both ways. With the environment variable ZORVEX_GAMES the
// views are those of the game coo in that directory, else made ones whose runs are as long as those of drawn
// views.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "zorvex/base/Error.h"
#include "zorvex/view/AGIView.h"
#include "zorvex/view/ViewCodec.h"

namespace {

using namespace zorvex;

ByteArray ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The views of a V2 game with one volume, straight from its files.
std::vector<ByteArray> RealViews(const std::filesystem::path& dir) {
    const ByteArray entries = ReadFile(dir / "viewdir");
    const ByteArray volume = ReadFile(dir / "vol.0");
    std::vector<ByteArray> views;
    for (std::size_t i = 0; i + 2 < entries.size(); i += 3) {
        const std::size_t loc =
            (entries[i] & 15U) << 16U | static_cast<std::size_t>(entries[i + 1] << 8) | entries[i + 2];
        if (entries[i] >> 4 != 0 || loc + 5 > volume.size()) continue;
        const std::size_t size = volume[loc + 3] + 256U * volume[loc + 4];
        const ByteView bytes = ByteView(volume).subspan(loc + 5);
        views.emplace_back(bytes.begin(),
                           bytes.begin() + static_cast<std::ptrdiff_t>(std::min(size, bytes.size())));
    }
    return views;
}

CelContent MadeCel(std::mt19937& random) {
    CelContent cel{CelPixels(30, 35), agCyan};
    for (std::int32_t y = 0; y < cel.pixels.Height(); ++y) {
        AGIColors color = agCyan;
        for (AGIColors& pixel : cel.pixels.Row(y)) {
            if (random() % 4 == 0) color = static_cast<AGIColors>(random() % 16);
            pixel = color;
        }
    }
    return cel;
}

std::vector<ByteArray> MadeViews() {
    std::mt19937 random(1);
    std::vector<ByteArray> views;
    for (int i = 0; i < 50; ++i) {
        ViewContent view;
        view.loops.resize(4);
        view.loops[0].mirrorLoop = 1;
        view.loops[1].mirrorLoop = 0;
        for (const std::size_t loop : {0U, 2U, 3U}) {
            for (int cel = 0; cel < 6; ++cel)
                view.loops[loop].cels.push_back(MadeCel(random));
        }
        views.push_back(EncodeView(view));
    }
    return views;
}

const std::vector<ByteArray>& Views() {
    static const std::vector<ByteArray> views = [] {
        const char* games = std::getenv("ZORVEX_GAMES");
        std::vector<ByteArray> real;
        if (games != nullptr) real = RealViews(std::filesystem::path(games) / "coo");
        return real.empty() ? MadeViews() : real;
    }();
    return views;
}

std::int64_t PixelCount(const std::vector<ViewContent>& views) {
    std::size_t count = 0;
    for (const ViewContent& view : views) {
        for (const LoopContent& loop : view.loops) {
            for (const CelContent& cel : loop.cels)
                count += cel.pixels.Flat().size();
        }
    }
    return static_cast<std::int64_t>(count);
}

const std::vector<ViewContent>& Contents() {
    static const std::vector<ViewContent> contents = [] {
        std::vector<ViewContent> decoded;
        for (const ByteArray& bytes : Views())
            decoded.push_back(DecodeView(bytes));
        return decoded;
    }();
    return contents;
}

void ReportPixels(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * PixelCount(Contents()));
    state.SetLabel(std::to_string(Views().size()) + " views");
}

void CopyViewPixels(benchmark::State& state) {
    std::vector<AGIColors> target(static_cast<std::size_t>(PixelCount(Contents())));
    for (auto _ : state) {
        AGIColors* out = target.data();
        for (const ViewContent& view : Contents()) {
            for (const LoopContent& loop : view.loops) {
                for (const CelContent& cel : loop.cels) {
                    std::memcpy(out, cel.pixels.Flat().data(), cel.pixels.Flat().size());
                    out += cel.pixels.Flat().size();
                }
            }
        }
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
    ReportPixels(state);
}
BENCHMARK(CopyViewPixels)->Unit(benchmark::kMicrosecond);

void DecodeViews(benchmark::State& state) {
    for (auto _ : state) {
        for (const ByteArray& bytes : Views())
            benchmark::DoNotOptimize(DecodeView(bytes));
    }
    ReportPixels(state);
}
BENCHMARK(DecodeViews)->Unit(benchmark::kMicrosecond);

void EncodeViews(benchmark::State& state) {
    for (auto _ : state) {
        for (const ViewContent& view : Contents())
            benchmark::DoNotOptimize(EncodeView(view));
    }
    ReportPixels(state);
}
BENCHMARK(EncodeViews)->Unit(benchmark::kMicrosecond);

/// The same through the object of the resource: bytes in, loops and cels made, bytes built again.
void RebuildViewObjects(benchmark::State& state) {
    for (auto _ : state) {
        for (const ByteArray& bytes : Views()) {
            AGIView view;
            view.SetData(bytes);
            view.Loops();
            view.BuildViewData();
            benchmark::DoNotOptimize(view.AllData());
        }
    }
    ReportPixels(state);
}
BENCHMARK(RebuildViewObjects)->Unit(benchmark::kMicrosecond);

}  // namespace
