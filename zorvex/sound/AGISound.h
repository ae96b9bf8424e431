// A sound: the bytes of the resource, and on top of them tracks and notes that can be edited, converted and
// played.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zorvex/base/Event.h"
#include "zorvex/sound/AGITrack.h"
#include "zorvex/storage/GameResource.h"

namespace zorvex {

class frmSndSubclass;
struct TrackData;

/// File formats of AGISound::Export.
enum SoundFormat : std::uint8_t {
    sfUndefined = 0,  // by the extension: ".ass" script, ".mid" MIDI, ".wav" wave, any other the raw resource
    sfAGI = 1,        // the bytes of the resource
    sfMIDI = 2,       // Standard MIDI File
    sfScript = 3,     // text, one line a note
    sfWAV = 4         // decided by the extension as well
};

/// A sound resource. Three kinds exist, told apart by their first word; SndFormat reports them:
///
///   1  PC/PCjr: three tone voices and noise, as four tracks of notes. All of the note model is for this
///   kind. 2  Apple IIgs sample: eight-bit PCM at 8000 hertz. Its tracks are empty. 3  Apple IIgs MIDI
///   sequence. Its tracks are empty.
///
/// Bytes and notes follow each other. The notes are read from the bytes at Load, and again at the next use of
/// Track after the bytes were edited. Reading never counts a change as saved. Save and Export write changed
/// notes back to the bytes. The MIDI or wave form is made when it is first asked for and kept until something
/// that it depends on changes.
///
/// A new sound belongs to no game, is loaded and has no notes. All members that need the bytes raise 563 on a
/// sound that is not loaded, before anything else. A fault of an inner step passes with its own number,
/// source and text; other errors carry the source "ZORVEX.agiSound".
class AGISound : public GameResource, public std::enable_shared_from_this<AGISound> {
  public:
    AGISound();
    /// Stops the sound if it is playing.
    ~AGISound() override;

    /// Raised when play of this sound has ended, with true when it reached its end. Comes from PumpNotices,
    /// never after StopSound. A handler cannot start the next sound: one is playing until it has returned.
    Event<bool> SoundComplete;

    // --- Settings ---
    /// Key signature for hosts, -7 (flats) to 7 (sharps); 0 in a new sound. Raises 380, "Invalid property
    /// Value".
    std::int32_t Key() const { return key_; }
    void Key(AnyInteger value);
    /// Ticks per quarter note for hosts, a multiple of 4 from 4 to 64; 16 in a new sound. The setter takes
    /// the next multiple towards 0 and raises 380, "Invalid property Value", when that is out of range.
    std::int32_t TPQN() const { return tpqn_; }
    void TPQN(AnyInteger value);
    /// The kind of resource as found at the last Load: 1, 2 or 3, and 0 while not loaded.
    std::int32_t SndFormat() const { return Loaded() ? sndFormat_ : 0; }
    bool IsDirty() const override { return DataDirty() || WritePropState(); }

    // --- Content ---
    /// One of the four tracks; 3 is noise. Raises 9, "Index out of bounds", even when not loaded. Reads the
    /// notes from the bytes first where those have changed, which raises 598 for tracks that lie outside the
    /// resource and 565 for any other fault.
    std::shared_ptr<AGITrack> Track(AnyInteger index);
    /// Seconds, or -1 when not loaded: of the longest track that is not muted, of the sample, or of the
    /// sequence. Kept until something that it depends on changes.
    float Length();
    /// The MIDI file of a sound of kind 1 or 3, the wave file of one of kind 2. Raises 596 when it cannot be
    /// made.
    ByteArray MIDIData();
    /// Makes this a copy of another sound: name, settings, bytes, tracks and what has changed since the last
    /// save. Kind and place in a game stay. Raises 567.
    void SetSound(const AGISound& copySound);

    // --- Life ---
    /// Reads the bytes if they are not there, the settings, and the notes as the bytes have them; edits that
    /// are not saved stay. Raises 598 for bytes that are no sound, 565, and what reading a resource raises;
    /// the sound is not loaded then.
    void Load() override;
    /// Drops bytes, tracks and converted form; name, description, Key and TPQN stay.
    void Unload() override;
    /// Makes the sound one without notes, whose instruments are 0.
    void Clear() override;
    /// In a game: writes changed settings to the property list and a changed sound to a volume. A stand-alone
    /// sound goes to `saveFile`, changed or not where that is another than ResFile; with a name in ".ass" or
    /// ".mid" in that form. Bytes of kinds 2 and 3 are saved as they are. Raises 566 when the notes do not
    /// fit a resource.
    void Save(std::string_view saveFile = {}) override;

    // --- Files ---
    /// Writes a file. The format is taken from the file's extension unless it is sfAGI, sfMIDI or sfScript. A
    /// MIDI file can be had of kinds 1 and 3, a wave file of kind 2 and a script of kind 1; else 596 is
    /// raised. Outside a game `resetDirty` counts the sound as
    /// saved, by a script and by the raw resource, and the file's name becomes the ID.
    void Export(std::string_view exportFile, SoundFormat fileFormat = sfAGI, bool resetDirty = true);
    /// Replaces the sound by a raw PC/PCjr resource or a script; which one is told from the first two bytes.
    /// The file's name becomes the ID, Key becomes 0 and TPQN 16 unless a script says otherwise. In a game
    /// all of it waits to be saved, and a name that the setter of ID refuses leaves the old one; elsewhere
    /// the sound counts as saved, unless a setting of the script was passed over. Raises 604 without a name
    /// and 524 for a file that is not there; 681, "Invalid sound resource file", for fewer than three bytes;
    /// these leave the sound as it was. A script with a bad line raises 681 too and leaves the sound without
    /// notes, and outside a game without ID. No other fault is reported.
    void Import(std::string_view importFile);
    /// The number of the bad line, from 1, when the last Import met one; else 0.
    std::int32_t ImportErrorLine() const { return importErrorLine_; }

    // --- Playing ---
    /// Starts playing and returns. Raises 629 while another sound plays, in whatever thread, and 678 or 628
    /// with the system's own words when the sound cannot be opened or played. SoundComplete tells of the end.
    void PlaySound();
    /// Stops the sound that this thread plays, be it this one or another. Does nothing while none plays, nor
    /// in a handler of SoundComplete, where play has ended already.
    void StopSound();

    // --- For the library ---
    void CopyFrom(GameResource& source) override { SetSound(static_cast<AGISound&>(source)); }
    void WriteNumberedProperties() const override;
    /// A note has changed, or the list of notes.
    void NotesChanged();
    /// A setting of a track has changed; `heard` tells whether the converted form depends on it.
    void TrackSettingChanged(bool heard);
    void RaiseSoundComplete(bool noError) const { SoundComplete.Raise(noError); }
    /// The end of play, by whatever way.
    void PlayEnded() { player_.reset(); }

  protected:
    bool IDsIgnoreCase() const override { return true; }
    bool IsOtherDescription(std::string_view value) const override;

  private:
    void NewTracks(std::uint8_t instrument);
    void ReleaseTracks();
    void ReadOwnSettings();
    void LoadTracks(bool withSettings);
    void ReadSettings(std::size_t track, TrackData& values) const;
    void EnsureTracks();
    void CompileSound();
    void CompileIfDirty();
    bool HasNoteModel() const;
    std::array<TrackData, 4> TrackValues() const;
    void BuildSoundOutput();
    float ComputeLength();
    void WriteSettings(const std::array<std::string_view, 3>& trackKeys, bool keyInGroup) const;
    void ExportAs(SoundFormat format, const std::string& path, bool resetDirty);
    void ExportOutput(const std::string& path);
    void ExportScript(const std::string& path, bool resetDirty);
    bool ImportRaw(const std::string& path);
    bool ImportScript(ByteView file);

    std::array<std::shared_ptr<AGITrack>, 4> tracks_;
    bool tracksSet_ = false;     // the notes are those of the bytes
    bool settingsRead_ = false;  // the settings are those of the property list, or newer
    std::int32_t key_ = 0;
    std::int32_t tpqn_ = 16;
    std::int32_t sndFormat_ = 1;
    float length_ = -1;       // -1: to be computed
    bool outputSet_ = false;  // the output is that of the notes and settings
    ByteArray output_;
    std::int32_t importErrorLine_ = 0;
    std::shared_ptr<frmSndSubclass> player_;  // while this plays and belongs to no game
    Subscription resourceChanged_;
};

}  // namespace zorvex
