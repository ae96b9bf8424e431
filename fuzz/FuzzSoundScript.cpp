// Sound scripts: whatever can be read comes back from the script written of it.
#include "fuzz/Check.h"
#include "zorvex/base/HostText.h"
#include "zorvex/sound/SoundScript.h"

namespace {

using namespace zorvex;

SoundTracks TracksOf(const SoundScript& script) {
    SoundTracks tracks;
    for (std::size_t t = 0; t < TrackCount; ++t) {
        const SoundScript::Track& read = script.Tracks[t];
        tracks[t] = {read.Notes, read.Instrument.value_or(0), read.Muted.value_or(false),
                     read.Visible.value_or(true)};
    }
    return tracks;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const SoundScript script = ReadSoundScript(HostTextOf({reinterpret_cast<const char*>(data), size}));
    for (std::size_t t = 0; t < TrackCount; ++t) {
        for (const NoteData& note : script.Tracks[t].Notes) {
            FUZZ_CHECK(note.FreqDivisor >= 0 && note.FreqDivisor <= 1023);
            FUZZ_CHECK(note.Attenuation >= 0 && note.Attenuation <= 15);
            FUZZ_CHECK(note.Duration > 0 && note.Duration <= 65535);
        }
    }
    const SoundTracks tracks = TracksOf(script);
    const std::string text =
        WriteSoundScript(tracks, script.Description.value_or(""), script.TPQN.value_or(16));
    const SoundScript again = ReadSoundScript(text);
    FUZZ_CHECK(again.BadLine == 0);
    FUZZ_CHECK(again.TPQN == script.TPQN.value_or(16));
    const SoundTracks back = TracksOf(again);
    for (std::size_t t = 0; t < TrackCount; ++t) {
        NoteList expected = tracks[t].Notes;
        // The noise track says no more of a divisor than its kind and rate.
        if (t == NoiseTrack) {
            for (NoteData& note : expected)
                note.FreqDivisor &= 7;
        }
        FUZZ_CHECK(back[t].Notes == expected);
        FUZZ_CHECK(t == NoiseTrack || back[t].Instrument == tracks[t].Instrument);
        FUZZ_CHECK(back[t].Muted == tracks[t].Muted && back[t].Visible == tracks[t].Visible);
    }
    FUZZ_CHECK(again.Description == script.Description.value_or(""));
    FUZZ_CHECK(WriteSoundScript(back, *again.Description, *again.TPQN) == text);
    return 0;
}
