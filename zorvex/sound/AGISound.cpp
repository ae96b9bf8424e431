#include "zorvex/sound/AGISound.h"

#include "zorvex/base/Error.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/HostText.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/sound/SndSubclass.h"
#include "zorvex/sound/SoundCodec.h"
#include "zorvex/sound/SoundConversion.h"
#include "zorvex/sound/SoundScript.h"
#include "zorvex/state/GameProperties.h"

namespace zorvex {

namespace {

constexpr std::int32_t maxKey = 7;
constexpr std::int32_t defaultTPQN = 16;
constexpr std::int32_t minTPQN = 4;
constexpr std::int32_t maxTPQN = 64;
constexpr std::string_view instrumentKey = "Inst";
constexpr std::string_view muteKey = "Mute";
constexpr std::string_view visibleKey = "Visible";
constexpr std::int32_t cannotConvert = ObjectErrorBase + 596;

template <class Ticks>
Ticks WholeQuarters(Ticks ticks) {
    return ticks / 4 * 4;
}

std::string Numbered(std::string_view key, std::size_t track) {
    return std::string(key) + std::to_string(track);
}

bool HasExtension(std::string_view path, std::string_view extension) {
    return path.size() >= extension.size() &&
           EqualNoCase(path.substr(path.size() - extension.size()), extension);
}

SoundFormat FormatByName(std::string_view path) {
    if (HasExtension(path, ".ass")) return sfScript;
    if (HasExtension(path, ".mid")) return sfMIDI;
    if (HasExtension(path, ".wav")) return sfWAV;
    return sfAGI;
}

}  // namespace

AGISound::AGISound() : GameResource(rtSound, SoundErrorSource) {
    Resource().NewResource();
    Resource().SetAllData(EmptySoundBytes());
    NewTracks(DefaultInstrument);
    resourceChanged_ = Resource().Change.Subscribe([this] {
        NotesChanged();
        tracksSet_ = false;
    });
}

AGISound::~AGISound() {
    if (const auto player = std::move(player_)) player->Forget(*this);
    ReleaseTracks();
}

// --- Settings and change ---
void AGISound::Key(AnyInteger value) {
    if (value < -maxKey || value > maxKey) RaiseRuntime(reInvalidPropertyValue, ErrorSource());
    if (value == key_) return;
    key_ = static_cast<std::int32_t>(value);
    WritePropState(true);
}

void AGISound::TPQN(AnyInteger value) {
    const AnyInteger ticks = WholeQuarters(value);
    if (ticks < minTPQN || ticks > maxTPQN) RaiseRuntime(reInvalidPropertyValue, ErrorSource());
    if (ticks == tpqn_) return;
    tpqn_ = static_cast<std::int32_t>(ticks);
    WritePropState(true);
}

bool AGISound::IsOtherDescription(std::string_view value) const {
    return !EqualNoCase(value, Description());
}

void AGISound::NotesChanged() {
    outputSet_ = false;
    length_ = -1;
    DataDirty(true);
}

void AGISound::TrackSettingChanged(bool heard) {
    if (heard) outputSet_ = false;
    length_ = -1;
    WritePropState(true);
}

// --- Tracks ---
void AGISound::ReleaseTracks() {
    for (auto& track : tracks_) {
        if (track != nullptr) track->Owner(nullptr);
        track.reset();
    }
}

void AGISound::NewTracks(std::uint8_t instrument) {
    ReleaseTracks();
    for (auto& track : tracks_) {
        track = std::make_shared<AGITrack>();
        track->Values({{}, instrument, false, true});
        track->Owner(this);
    }
}

std::shared_ptr<AGITrack> AGISound::Track(AnyInteger index) {
    if (index < 0 || std::cmp_greater_equal(index, TrackCount)) {
        RaiseText(reSubscript, ErrorSource(), "Index out of bounds");
    }
    RequireLoaded();
    EnsureTracks();
    return tracks_[static_cast<std::size_t>(index)];
}

void AGISound::EnsureTracks() {
    if (!tracksSet_)
        Guarded([&] { LoadTracks(tracks_[0] == nullptr || (InGame() && !settingsRead_)); }, [] {});
}

// Bytes of the other kinds say nothing of notes; reading them as tracks would make notes of chance.
bool AGISound::HasNoteModel() const {
    const SoundKind kind = KindOfSound(Resource().View());
    return kind != skIIgsPCM && kind != skIIgsMIDI;
}

void AGISound::ReadSettings(std::size_t track, TrackData& values) const {
    values.Visible = !InGame() || ReadGameBool(Section(), Numbered(visibleKey, track), true);
    if (!InGame()) return;
    values.Muted = ReadGameBool(Section(), Numbered(muteKey, track), false);
    if (track == NoiseTrack) return;
    const std::uint8_t instrument =
        ReadGameByte(Section(), Numbered(instrumentKey, track), DefaultInstrument);
    values.Instrument = instrument < 128 ? instrument : DefaultInstrument;
}

void AGISound::LoadTracks(bool withSettings) {
    const auto read = [&] {
        if (tracks_[0] == nullptr) NewTracks(DefaultInstrument);
        std::array<NoteList, TrackCount> notes;
        if (HasNoteModel()) notes = DecodeNotes(Resource().View());
        std::int64_t longest = 0;
        for (std::size_t t = 0; t < TrackCount; ++t) {
            longest = std::max(longest, TotalDuration(notes[t]));
            TrackData values = tracks_[t]->Values();
            if (withSettings) ReadSettings(t, values);
            values.Notes = std::move(notes[t]);
            tracks_[t]->Values(values);
        }
        outputSet_ = false;
        length_ = HasNoteModel() ? DurationSeconds(longest) : -1;
    };
    Wrapped(565, read, {598});
    tracksSet_ = true;
    settingsRead_ = true;
}

void AGISound::CompileSound() {
    if (!HasNoteModel()) return;
    Wrapped(566, [&] {
        EnsureTracks();
        const ByteArray bytes = EncodeNotes(TrackValues());
        // The bytes follow the notes here, so what was made of the notes stays good.
        const bool outputSet = outputSet_;
        const float length = length_;
        Resource().SetAllData(bytes);
        outputSet_ = outputSet;
        length_ = length;
        tracksSet_ = true;
    });
}

void AGISound::CompileIfDirty() {
    if (DataDirty()) CompileSound();
}

SoundTracks AGISound::TrackValues() const {
    SoundTracks values;
    for (std::size_t t = 0; t < TrackCount; ++t)
        values[t] = tracks_[t]->Values();
    return values;
}

float AGISound::Length() {
    if (!Loaded()) return -1;
    if (length_ == -1) length_ = ComputeLength();
    return length_;
}

float AGISound::ComputeLength() {
    if (sndFormat_ == skIIgsPCM) {
        return static_cast<float>(Size() - PCMHeaderSize) / static_cast<float>(PCMSampleRate);
    }
    if (sndFormat_ == skIIgsMIDI) {
        BuildSoundOutput();
        return length_;
    }
    EnsureTracks();
    float longest = 0;
    for (const auto& track : tracks_) {
        if (!track->Muted()) longest = std::max(longest, track->Length());
    }
    return longest;
}

// --- The converted form ---
void AGISound::BuildSoundOutput() {
    const auto failed = Attempt([&] {
        if (sndFormat_ == skPCjr) {
            EnsureTracks();
            output_ = BuildMIDI(TrackValues());
        } else if (sndFormat_ == skIIgsPCM) {
            output_ = BuildIIgsPCM(Resource().View());
        } else {
            output_ = BuildIIgsMIDI(Resource().View(), length_);
        }
        if (length_ == -1) length_ = ComputeLength();
    });
    if (failed) RaiseCatalogue(596, ErrorSource());
    outputSet_ = true;
}

ByteArray AGISound::MIDIData() {
    RequireLoaded();
    if (!outputSet_) BuildSoundOutput();
    return output_;
}

// --- Life ---
void AGISound::Load() {
    const bool dirty = Loaded() && DataDirty();
    const bool keepsEdits = Loaded() && IsDirty() && (settingsRead_ || !InGame());
    const auto load = [&] {
        if (!Loaded()) Resource().Load();
        if (!keepsEdits) ReadOwnSettings();
        if (Resource().View().size() < 2) Resource().ReadWord(0);  // raises: there is no kind to read
        const SoundKind kind = KindOfSound(Resource().View());
        if (kind == skNone) RaiseCatalogue(598, ErrorSource());
        sndFormat_ = kind;
        if (kind == skPCjr) EnsureTracks();
        tracksSet_ = true;
    };
    Guarded(load, [&] { Unload(); });
    DataDirty(dirty);
    if (!keepsEdits) WritePropState(false);
}

void AGISound::ReadOwnSettings() {
    key_ = ReadGameLong(Section(), "Key", 0);
    if (key_ < -maxKey || key_ > maxKey) key_ = 0;
    tpqn_ = std::clamp(WholeQuarters(ReadGameLong(Section(), "TPQN", 0)), minTPQN, maxTPQN);
    NewTracks(DefaultInstrument);
    tracksSet_ = false;
    outputSet_ = false;
    length_ = -1;
    settingsRead_ = false;
}

void AGISound::Unload() {
    Resource().Unload();
    DataDirty(false);
    output_ = ByteArray();
    outputSet_ = false;
    length_ = -1;
    ReleaseTracks();
    tracksSet_ = false;
    settingsRead_ = false;
}

void AGISound::Clear() {
    RequireLoaded();
    NewTracks(0);
    Resource().Clear();
    for (int i = 0; i < 4; ++i)
        Resource().WriteWord(8);
    Resource().WriteWord(0xFFFF);
    length_ = -1;
    DataDirty(true);
    tracksSet_ = true;  // no notes, and bytes that say so
}

void AGISound::SetSound(const AGISound& copySound) {
    if (&copySound == this) return;
    Wrapped(567, [&] {
        SetIDField(copySound.ID());
        description_ = copySound.Description();
        key_ = copySound.key_;
        tpqn_ = copySound.tpqn_;
        Resource().SetRes(Internal(), copySound.Resource());
        if (copySound.Loaded()) Resource().SetAllData(copySound.Resource().View());
        ReleaseTracks();
        if (copySound.tracks_[0] != nullptr) {
            NewTracks(DefaultInstrument);
            for (std::size_t t = 0; t < TrackCount; ++t) {
                TrackData values = copySound.tracks_[t]->Values();
                if (t == NoiseTrack) values.Instrument = DefaultInstrument;
                tracks_[t]->Values(values);
            }
        }
        outputSet_ = false;
        length_ = -1;
        DataDirty(copySound.DataDirty());
        tracksSet_ = copySound.tracksSet_;
        settingsRead_ = true;
        WritePropState(copySound.WritePropState());
    });
}

void AGISound::WriteNumberedProperties() const {
    WriteSettings({visibleKey, instrumentKey, muteKey}, false);
}

// A sound that is not loaded has no settings of its tracks to tell.
void AGISound::WriteSettings(const std::array<std::string_view, 3>& trackKeys, bool keyInGroup) const {
    WriteKey("ID", ID());
    WriteKey("Description", Description(), false);
    WriteKey("Key", std::to_string(key_), keyInGroup);
    WriteKey("TPQN", std::to_string(tpqn_), false);
    if (tracks_[0] == nullptr) return;
    for (const std::string_view key : trackKeys) {
        for (std::size_t t = 0; t < (key == instrumentKey ? NoiseTrack : TrackCount); ++t) {
            const AGITrack& track = *tracks_[t];
            WriteKey(Numbered(key, t),
                     key == instrumentKey
                         ? std::to_string(track.Instrument())
                         : std::string(BoolText(key == muteKey ? track.Muted() : track.Visible())),
                     false);
        }
    }
}

void AGISound::Save(std::string_view saveFile) {
    if (InGame() && WritePropState()) {
        WriteSettings({instrumentKey, muteKey, visibleKey}, true);
        WritePropState(false);
    }
    RequireLoaded();
    if (!HasToWrite(saveFile)) return;
    CompileIfDirty();
    const SoundFormat format = FormatByName(saveFile);
    if (!InGame() && (format == sfScript || format == sfMIDI)) {
        Export(saveFile, format, true);
        return;
    }
    Sourced(ErrorSource(), [&] { DataDirty(!Resource().Save(saveFile)); });
    if (InGame()) WriteSize();
}

// --- Files ---
void AGISound::Export(std::string_view exportFile, SoundFormat fileFormat, bool resetDirty) {
    RequireLoaded();
    const std::string path = InnerPath(exportFile);
    const bool isGiven = fileFormat == sfAGI || fileFormat == sfMIDI || fileFormat == sfScript;
    const bool saves = resetDirty && !InGame();
    Sourced(ErrorSource(), [&] { ExportAs(isGiven ? fileFormat : FormatByName(path), path, saves); });
    if (!InGame()) TakeFileName(path);
}

void AGISound::ExportAs(SoundFormat format, const std::string& path, bool resetDirty) {
    switch (format) {
        case sfMIDI:
            if (sndFormat_ == skIIgsPCM) {
                RaiseText(cannotConvert, ErrorSource(), "Can't export PCM formatted resource as MIDI file");
            }
            ExportOutput(path);
            break;
        case sfWAV:
            if (sndFormat_ != skIIgsPCM) {
                RaiseText(cannotConvert, ErrorSource(),
                          "Can't export MIDI formatted sound resource as .WAV file");
            }
            ExportOutput(path);
            break;
        case sfScript: ExportScript(path, resetDirty); break;
        default:
            CompileIfDirty();
            Resource().Export(path);
            if (resetDirty) DataDirty(false);
            break;
    }
}

void AGISound::ExportOutput(const std::string& path) {
    if (!outputSet_) BuildSoundOutput();
    ReplaceWholeFile(path, ByteView(output_));
}

void AGISound::ExportScript(const std::string& path, bool resetDirty) {
    if (sndFormat_ != skPCjr) {
        RaiseText(cannotConvert, ErrorSource(),
                  "Only PC/PCjr sound resources can be exported as script files");
    }
    CompileIfDirty();
    EnsureTracks();
    ReplaceWholeFile(path, std::string_view(WriteSoundScript(TrackValues(), Description(), tpqn_)));
    if (resetDirty) DataDirty(false);
}

void AGISound::Import(std::string_view importFile) {
    constexpr std::size_t minFileSize = 3;
    const std::string inner = AGIResource::ImportPath(Internal(), importFile);
    importErrorLine_ = 0;
    ByteArray file;
    if (Attempt([&] { file = Files().Read(inner); }) || file.size() < minFileSize) {
        RaiseCatalogue(681, ErrorSource());
    }
    tpqn_ = defaultTPQN;
    key_ = 0;
    const bool done = KindOfSound(file) == skPCjr ? ImportRaw(inner) : ImportScript(file);
    settingsRead_ = true;
    const bool wasDirty = IsDirty();
    Imported(inner);
    if (InGame()) WritePropState(true);
    if (!done && wasDirty) DataDirty(true);
    if (done) tracksSet_ = true;
}

bool AGISound::ImportRaw(const std::string& path) {
    return !Attempt([&] {
        Resource().Import(path);
        LoadTracks(!InGame() || !settingsRead_);
    });
}

bool AGISound::ImportScript(ByteView file) {
    // A sound that is not loaded becomes the script's as well; there is nothing of it to keep.
    if (!Loaded()) Resource().SetAllData(EmptySoundBytes());
    Clear();
    const SoundScript script = ReadSoundScript(HostTextOf(std::string(file.begin(), file.end())));
    if (script.Description) description_ = *script.Description;
    tpqn_ = script.TPQN.value_or(tpqn_);
    key_ = script.Key.value_or(key_);
    importErrorLine_ = script.BadLine;
    if (script.BadLine != 0) {
        if (!InGame()) SetIDField("");  // one of a game cannot be without a name
        description_.clear();
        RaiseCatalogue(681, ErrorSource());
    }
    for (std::size_t t = 0; t < TrackCount; ++t) {
        const SoundScript::Track& read = script.Tracks[t];
        TrackData values = tracks_[t]->Values();
        values.Notes = read.Notes;
        tracks_[t]->Values(values);
        if (read.Instrument) tracks_[t]->Instrument(*read.Instrument);
        if (read.Muted) tracks_[t]->Muted(*read.Muted);
        if (read.Visible) tracks_[t]->Visible(*read.Visible);
    }
    NotesChanged();
    return !Attempt([&] { CompileSound(); }) && !script.PassedOver;
}

// --- Playing ---
void AGISound::PlaySound() {
    RequireLoaded();
    const std::shared_ptr<frmSndSubclass> player = SoundPlayer();
    if (frmSndSubclass::PlayingSound()) RaiseCatalogue(629, ErrorSource());
    if (!outputSet_) Guarded([&] { BuildSoundOutput(); }, [] {});
    Guarded([&] { player->PlaySound(*this); }, [] {});
    if (!InGame()) player_ = player;
}

void AGISound::StopSound() {
    RequireLoaded();
    if (const auto player = PresentSoundPlayer()) player->Stop();
}

}  // namespace zorvex
