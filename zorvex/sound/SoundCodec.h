// From the bytes of a sound resource to notes and back.
//
// A PC/PCjr sound begins with four words, low byte first: the offsets of its tracks, the first of them 8. A
// track is a run of five-byte records closed by FF FF. A record holds the duration as a word and then the
// three bytes that the sound chip takes: two for the frequency, one for the attenuation.
#pragma once

#include <array>

#include "zorvex/sound/SoundData.h"

namespace zorvex {

/// What the first word of a resource says; skNone also for fewer than two bytes.
SoundKind KindOfSound(ByteView bytes);

/// The resource of a sound without notes.
const ByteArray& EmptySoundBytes();

/// Reads the notes of a PC/PCjr sound. The end of a tone track is where the next one begins, of the noise
/// track the end of the resource; the FF FF itself is not looked at. Tone notes of no duration are kept,
/// noise notes of none are dropped. Raises 598 for a tone track outside the resource, and what the buffer
/// raises past its end, 513 and 9.
std::array<NoteList, TrackCount> DecodeNotes(ByteView bytes);

/// Writes the notes as a resource. Raises 557 when a track would begin past what a word can say, and 6 for a
/// noise note whose divisor does not fit its byte.
ByteArray EncodeNotes(const SoundTracks& tracks);

/// The sum of the durations of some notes.
std::int64_t TotalDuration(const NoteList& notes);
/// Durations as seconds: sixtieths.
float DurationSeconds(std::int64_t duration);

}  // namespace zorvex
