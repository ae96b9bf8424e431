// From sounds to files that other programs play: Standard MIDI Files and RIFF wave files. Plain functions on
// bytes and notes. They never fail: what cannot be converted is left out.
#pragma once

#include "zorvex/sound/SoundData.h"

namespace zorvex {

/// The MIDI file of a PC/PCjr sound: format 1, 30 ticks a quarter note, so that at the usual tempo one tick
/// is one unit of a note's duration. Tone track t plays on channel t. The noise track makes two chunks,
/// periodic noise on channel 3 and white noise on channel 4. Muted and empty tracks are left out; with none
/// left comes a fixed file of silence.
ByteArray BuildMIDI(const SoundTracks& tracks);

/// The MIDI file of an Apple IIgs sequence, format 1 with one track, and its length in seconds.
ByteArray BuildIIgsMIDI(ByteView resource, float& length);

/// The wave file of an Apple IIgs sample: mono, 8 bits, 8000 samples a second.
ByteArray BuildIIgsPCM(ByteView resource);

/// The length of the header before the samples of an Apple IIgs sound.
inline constexpr std::int32_t PCMHeaderSize = 54;
inline constexpr std::int32_t PCMSampleRate = 8000;

}  // namespace zorvex
