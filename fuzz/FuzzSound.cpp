// Sound resources: whatever loads can be converted, and its notes come back from the bytes written for them.
#include <algorithm>

#include "fuzz/Check.h"
#include "zorvex/base/Error.h"
#include "zorvex/platform/Media.h"
#include "zorvex/sound/AGISound.h"
#include "zorvex/sound/SoundCodec.h"
#include "zorvex/sound/SoundConversion.h"

namespace {

using namespace zorvex;

/// The tracks, or none where the bytes hold none.
std::optional<SoundTracks> TryDecode(ByteView bytes) {
    try {
        const auto notes = DecodeNotes(bytes);
        SoundTracks tracks;
        for (std::size_t t = 0; t < TrackCount; ++t)
            tracks[t].Notes = notes[t];
        return tracks;
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(598) || error.Is(513) || error.Number() == reSubscript);
        return std::nullopt;
    }
}

/// The bytes, or none where a track would begin past what a word can say: tracks may share their bytes.
ByteArray TryEncode(const SoundTracks& tracks) {
    try {
        return EncodeNotes(tracks);
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(557));
        return {};
    }
}

void CheckCodec(ByteView bytes) {
    const auto tracks = TryDecode(bytes);
    if (!tracks) return;
    const ByteArray written = TryEncode(*tracks);
    if (!written.empty()) {
        const auto again = TryDecode(written);
        FUZZ_CHECK(again.has_value());
        for (std::size_t t = 0; t < TrackCount; ++t)
            FUZZ_CHECK((*again)[t].Notes == (*tracks)[t].Notes);
        FUZZ_CHECK(EncodeNotes(*again) == written);
    }
    std::int64_t longest = 0;
    for (const TrackData& track : *tracks)
        longest = std::max(longest, TotalDuration(track.Notes));
    const ByteArray midi = BuildMIDI(*tracks);
    const bool isSilence = midi.size() == 38;
    FUZZ_CHECK(isSilence || MediaSeconds(midi) * 60 + 0.5 >= static_cast<double>(longest) + 8);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView bytes(data, size);
    CheckCodec(bytes);
    AGISound sound;
    sound.Resource().SetAllData(bytes);
    try {
        sound.Load();
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(598) || error.Is(513) || error.Is(565) || error.Number() == reSubscript);
        FUZZ_CHECK(!sound.Loaded());
        return 0;
    }
    FUZZ_CHECK(sound.Track(3)->Notes()->Count() >= 0);
    sound.MIDIData();
    return 0;
}
