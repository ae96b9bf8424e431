// The text form of a sound: one line a note, settings in lines that begin with "##". Plain functions between
// text and values. Internal to the library.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "zorvex/sound/SoundData.h"

namespace zorvex {

/// What reading a script found. A setting that the script does not give, or gives in no readable form, is
/// absent.
struct SoundScript {
    struct Track {
        NoteList Notes;
        std::optional<std::uint8_t> Instrument;
        std::optional<bool> Muted;
        std::optional<bool> Visible;
    };

    std::array<Track, TrackCount> Tracks;
    std::optional<std::string> Description;  // host text
    std::optional<std::int32_t> TPQN;
    std::optional<std::int32_t> Key;
    /// A setting was given in no readable form, or a track that does not exist was begun.
    bool PassedOver = false;
    /// The number, from 1, of the line at which reading stopped; 0 when all lines could be read.
    std::int32_t BadLine = 0;
};

/// Reads a script of host text. Lines end in CR LF, CR or LF. Reading stops at the first bad line.
SoundScript ReadSoundScript(std::string_view text);

/// The script of a sound; lines end in CR LF. A line end inside the description becomes a blank.
std::string WriteSoundScript(const SoundTracks& tracks, std::string_view description, std::int32_t tpqn);

}  // namespace zorvex
