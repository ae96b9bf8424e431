// The notes of a sound as plain values, in which codec, conversions and scripts exchange them. Internal to
// the library.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// Kinds of sound resource, by the first word of the bytes.
enum SoundKind : std::uint8_t { skNone = 0, skPCjr = 1, skIIgsPCM = 2, skIIgsMIDI = 3 };

/// The source that errors of sounds carry.
inline constexpr std::string_view SoundErrorSource = "ZORVEX.agiSound";

inline constexpr std::size_t TrackCount = 4;
/// The track that drives the noise generator; the tracks before it are the three tone voices.
inline constexpr std::size_t NoiseTrack = 3;

/// A tone sounds at this divided by its divisor, in hertz.
inline constexpr double ToneClock = 111860;

/// The instrument with which a track begins: a square wave.
inline constexpr std::uint8_t DefaultInstrument = 80;

/// A note of a tone or of the noise track.
struct NoteData {
    std::int16_t FreqDivisor = 0;
    std::int32_t Duration = 0;
    std::int16_t Attenuation = 0;

    bool operator==(const NoteData&) const = default;
};

using NoteList = std::vector<NoteData>;

/// A track with what the conversions need to know of it.
struct TrackData {
    NoteList Notes;
    std::uint8_t Instrument = DefaultInstrument;
    bool Muted = false;
    bool Visible = true;
};

using SoundTracks = std::array<TrackData, TrackCount>;

}  // namespace zorvex
