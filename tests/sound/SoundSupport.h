// Sounds from a few words each.
#pragma once

#include <map>

#include "tests/support/CaseFile.h"
#include "zorvex/base/StringList.h"
#include "zorvex/platform/Media.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/sound/SoundData.h"

namespace zorvex::test {

/// Gives a sound these bytes and loads it, as if it were saved.
inline void LoadBytes(AGISound& sound, const ByteArray& bytes) {
    sound.Resource().SetAllData(bytes);
    sound.Load();
    sound.DataDirty(false);
}
inline void LoadBytes(AGISound& sound, std::string_view text) {
    LoadBytes(sound, BytesOfText(text));
}

/// The notes of a track, as "divisor/attenuation/duration" with blanks between them; of all tracks with "; ".
inline std::string NotesText(AGISound& sound, std::int32_t track) {
    std::string text;
    for (const auto& note : *sound.Track(track)->Notes()) {
        if (!text.empty()) text += ' ';
        text += std::to_string(note->FreqDivisor()) + "/" + std::to_string(note->Attenuation()) + "/" +
                std::to_string(note->Duration());
    }
    return text;
}

inline std::string NotesText(AGISound& sound) {
    return NotesText(sound, 0) + "; " + NotesText(sound, 1) + "; " + NotesText(sound, 2) + "; " +
           NotesText(sound, 3);
}

/// The settings and notes of a sound, one line a track.
inline std::string Summary(AGISound& sound) {
    std::string text = "id=" + sound.ID() + " key=" + std::to_string(sound.Key()) +
                       " tpqn=" + std::to_string(sound.TPQN()) + " description=[" + sound.Description() +
                       "]\n";
    for (std::int32_t t = 0; t < 4; ++t) {
        const auto track = sound.Track(t);
        text += std::to_string(t) + " instrument " + std::to_string(track->Instrument()) +
                (track->Visible() ? " visible" : " hidden") + (track->Muted() ? " muted: " : ": ") +
                NotesText(sound, t) + "\n";
    }
    return text;
}

/// A game's property list in memory, for the time of the test.
struct OpenPropertyList : LibraryReset {
    OpenPropertyList() {
        Library().PropertyList = std::make_shared<StringList>();
        Library().PropertyList->Add("test.zvg");
        Library().Sounds = std::make_shared<AGISounds>(Internal());
        Library().Collections[rtSound] = Library().Sounds.get();
        BeginGameSession();
    }
    std::string Text() const { return Library().PropertyList->Text("\n"); }
};

}  // namespace zorvex::test
