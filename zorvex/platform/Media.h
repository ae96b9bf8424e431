// Playing files of sound. The library speaks to a player in command strings; which player that is, a host can
// choose.
//
//   open PATH type sequencer|waveaudio alias NAME     opens a MIDI or a wave file; PATH is an inner path
//   play NAME notify                                  starts it and returns; the end comes as a MediaNotice
//   close all                                         stops and closes what there is, without a notice
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"
#include "zorvex/platform/Notices.h"

namespace zorvex {

/// A player. None of its members raises an error or waits for a sound to end. The whole program has one in
/// use, and threads may take turns with it.
class Media {
  public:
    virtual ~Media() = default;
    /// Carries out a command; 0, or the code of what went wrong. The notice of the end of play goes to
    /// `callback`.
    virtual std::int32_t SendString(std::string_view command,
                                    const std::shared_ptr<NoticeWindow>& callback) = 0;
    /// What a code means, in a sentence. For codes that an outside library causes it tells of the last such
    /// failure.
    virtual std::string ErrorText(std::int32_t code) const = 0;
};

/// The player in use. The first use makes the system's player.
std::shared_ptr<Media> MediaInUse();
/// Puts another player in use and returns the one before, or none; an empty pointer restores the system's
/// own.
std::shared_ptr<Media> UseMedia(std::shared_ptr<Media> media);

/// The system's player: it is heard where the library was built with SDL2_mixer, else it is the silent one. A
/// MIDI file is played with the SoundFont that the environment names in ZORVEX_SOUNDFONT or SDL_SOUNDFONTS,
/// or with the first found in the usual places.
std::shared_ptr<Media> MakeSystemMedia();
/// A player that takes as long as the sound lasts and makes no sound.
std::shared_ptr<Media> MakeSilentMedia();

/// How long a MIDI or wave file plays, in seconds; what cannot be read counts as 0.
double MediaSeconds(ByteView file);

}  // namespace zorvex
