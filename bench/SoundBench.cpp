// Sounds of some thousand notes. Each part is to stay a small multiple of copying what it makes, so the copy
// runs beside it.
#include <benchmark/benchmark.h>

#include "zorvex/sound/AGISound.h"
#include "zorvex/sound/SoundCodec.h"
#include "zorvex/sound/SoundConversion.h"

namespace {

using namespace zorvex;

/// Notes on all four tracks, a quarter of them noise that follows the third tone track.
SoundTracks ManyNotes(std::int64_t count) {
    SoundTracks tracks;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto track = static_cast<std::size_t>(i % 4);
        const auto divisor = static_cast<std::int16_t>(track == NoiseTrack ? i / 4 % 8 | 3 : 50 + i % 900);
        tracks[track].Notes.push_back({divisor, static_cast<std::int32_t>(1 + i % 300), 3});
    }
    return tracks;
}

void Copy(benchmark::State& state) {
    const ByteArray midi = BuildMIDI(ManyNotes(state.range(0)));
    for (auto _ : state) {
        ByteArray copy;
        for (const std::uint8_t byte : midi)
            copy.push_back(byte);
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(midi.size()));
}

void Midi(benchmark::State& state) {
    const SoundTracks tracks = ManyNotes(state.range(0));
    std::int64_t bytes = 0;
    for (auto _ : state) {
        const ByteArray midi = BuildMIDI(tracks);
        bytes = static_cast<std::int64_t>(midi.size());
        benchmark::DoNotOptimize(midi.data());
    }
    state.SetBytesProcessed(state.iterations() * bytes);
    state.SetComplexityN(state.range(0));
}

void Sequence(benchmark::State& state) {
    ByteArray resource{2, 0};
    for (std::int64_t i = 0; i < state.range(0); ++i)
        resource.insert(resource.end(), {200, 0x90, 60, 100});
    resource.push_back(0xFC);
    for (auto _ : state) {
        float length = 0;
        const ByteArray midi = BuildIIgsMIDI(resource, length);
        benchmark::DoNotOptimize(midi.data());
    }
    state.SetComplexityN(state.range(0));
}

void Load(benchmark::State& state) {
    AGISound sound;
    sound.Resource().SetAllData(EncodeNotes(ManyNotes(state.range(0))));
    for (auto _ : state) {
        sound.Load();
        benchmark::DoNotOptimize(sound.Length());
    }
    state.SetComplexityN(state.range(0));
}

/// An edit, and what a host asks for after it.
void EditNote(benchmark::State& state) {
    AGISound sound;
    sound.Resource().SetAllData(EncodeNotes(ManyNotes(state.range(0))));
    sound.Load();
    const auto notes = sound.Track(1)->Notes();
    std::int32_t at = 0;
    for (auto _ : state) {
        at = (at + 7) % notes->Count();
        notes->Item(at)->FreqDivisor(at % 1024);
        benchmark::DoNotOptimize(sound.IsDirty());
    }
}

BENCHMARK(Copy)->Arg(10000);
BENCHMARK(Midi)->RangeMultiplier(4)->Range(625, 10000)->Complexity();
BENCHMARK(Sequence)->RangeMultiplier(4)->Range(625, 10000)->Complexity();
BENCHMARK(Load)->RangeMultiplier(4)->Range(625, 10000)->Complexity();
BENCHMARK(EditNote)->Arg(10000);

}  // namespace
