// One of the four tracks of a sound.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "zorvex/sound/AGINotes.h"

namespace zorvex {

class AGISound;
struct TrackData;

/// Notes with the settings that go with them. The settings live in the game's property list, not in the
/// resource's bytes. A track knows its sound and tells it of each change; one made by itself, or replaced in
/// its sound, tells nobody.
class AGITrack {
  public:
    static constexpr std::string_view ErrorSource = "AGITrack";

    AGITrack();
    ~AGITrack();
    AGITrack(const AGITrack&) = delete;
    AGITrack& operator=(const AGITrack&) = delete;

    /// The program number of the MIDI file, 0 to 127; the noise track does not use it. Raises 380, "Invalid
    /// property Value", from 128 up, and 6 for what is no byte.
    std::uint8_t Instrument() const { return instrument_; }
    void Instrument(AnyInteger value);
    /// True keeps the track out of MIDI files, of playback and of the sound's length. It is saved all the
    /// same.
    bool Muted() const { return muted_; }
    void Muted(bool value);
    /// Seconds: the sum of the durations, whether muted or not. Kept until a note changes.
    float Length() const;
    const std::shared_ptr<AGINotes>& Notes() const { return notes_; }
    /// A note for hosts of whether to show the track; no conversion looks at it.
    bool Visible() const { return visible_; }
    void Visible(bool value);

    // --- For the library ---
    /// The sound to tell of changes, or none.
    void Owner(AGISound* sound) { sound_ = sound; }
    /// Notes and settings as plain values.
    TrackData Values() const;
    /// Replaces notes and settings, and tells nobody.
    void Values(const TrackData& values);

  private:
    friend class AGINotes;

    void NotesChanged(bool lengthToo);

    AGISound* sound_ = nullptr;
    std::shared_ptr<AGINotes> notes_;
    std::uint8_t instrument_;
    bool muted_ = false;
    bool visible_ = true;
    mutable bool lengthKnown_ = false;
    mutable float length_ = 0;
};

}  // namespace zorvex
