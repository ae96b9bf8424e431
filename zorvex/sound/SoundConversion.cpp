#include "zorvex/sound/SoundConversion.h"

#include <cmath>

#include "zorvex/base/Text.h"

namespace zorvex {

namespace {

constexpr std::int32_t ticksPerQuarter = 30;
constexpr std::uint8_t noteOn = 0x90;
constexpr std::uint8_t noteOff = 0x80;
constexpr std::uint8_t controller = 0xB0;
constexpr std::uint8_t programChange = 0xC0;
constexpr std::uint8_t middleC = 0x3C;
constexpr std::int32_t silentTicks = 4;  // a silent note of this length opens and closes each track

constexpr double semitone = 0.0250858329719984;  // log10(2) / 12
constexpr double toneOffset = 36.5;
constexpr double noiseClock = 2330.4296875;

// The growing bytes of a MIDI file. Numbers are written high byte first.
class MidiWriter {
  public:
    explicit MidiWriter(std::size_t expected) { bytes_.reserve(expected); }

    void Byte(std::int32_t value) { bytes_.push_back(static_cast<std::uint8_t>(value)); }
    void Word(std::int32_t value) {
        Byte(value >> 8);
        Byte(value);
    }
    void Long(std::int64_t value) {
        Word(static_cast<std::int32_t>(value >> 16));
        Word(static_cast<std::int32_t>(value & 0xFFFF));
    }
    void Text(std::string_view text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }

    // A variable-length quantity of up to 28 bits.
    void Delta(std::int32_t value) {
        for (int shift = 21; shift > 0; shift -= 7) {
            if ((value >> shift) > 0) Byte(((value >> shift) & 127) | 128);
        }
        Byte(value & 127);
    }

    void Header(std::int32_t tracks) {
        Text("MThd");
        Long(6);
        Word(1);
        Word(tracks);
        Word(ticksPerQuarter);
    }
    void BeginTrack() {
        Text("MTrk");
        trackStart_ = bytes_.size();
        Long(0);
    }
    void EndTrack() {
        Delta(0);
        Byte(0xFF);
        Byte(0x2F);
        Byte(0);
        const auto length = static_cast<std::uint32_t>(bytes_.size() - trackStart_ - 4);
        for (std::size_t i = 0; i < 4; ++i)
            bytes_[trackStart_ + i] = static_cast<std::uint8_t>(length >> (24 - 8 * i));
    }
    void Event(std::int32_t delta, std::int32_t status, std::int32_t data) {
        Delta(delta);
        Byte(status);
        Byte(data);
    }
    void Event(std::int32_t delta, std::int32_t status, std::int32_t first, std::int32_t second) {
        Event(delta, status, first);
        Byte(second);
    }
    void Note(std::int32_t channel, std::int32_t number, std::int32_t velocity, std::int32_t duration) {
        Event(0, noteOn + channel, number, velocity);
        Event(duration, noteOff + channel, number, 0);
    }

    void DropLast() { bytes_.pop_back(); }

    ByteArray Take() { return std::move(bytes_); }

  private:
    ByteArray bytes_;
    std::size_t trackStart_ = 0;
};

// Answers which tone sounds at a time. Noise of rate 3 asks for each of its notes, so the sums are made once.
class DivisorTimeline {
  public:
    explicit DivisorTimeline(const NoteList& notes) : notes_(notes) {
        ends_.reserve(notes.size());
        std::int64_t end = 0;
        for (const NoteData& note : notes)
            ends_.push_back(end += note.Duration);
    }

    // The divisor of the first note that ends at or after a time; 0 when all have ended before.
    std::int32_t GetTrackDivisorAt(std::int64_t time) const {
        const auto end = std::lower_bound(ends_.begin(), ends_.end(), time);
        return end == ends_.end() ? 0 : notes_[static_cast<std::size_t>(end - ends_.begin())].FreqDivisor;
    }

  private:
    const NoteList& notes_;
    std::vector<std::int64_t> ends_;
};

std::int32_t RoundedInt(double value) {
    return static_cast<std::int32_t>(RoundHalfEven(value));
}

std::int32_t VelocityOf(const NoteData& note) {
    return RoundedInt((15 - note.Attenuation) * 127 / 15.0);
}

// One conversion of a PC/PCjr sound.
class MidiBuilder {
  public:
    explicit MidiBuilder(const SoundTracks& tracks)
        : tracks_(tracks), timeline_(tracks[NoiseTrack - 1].Notes), writer_(ExpectedSize(tracks)) {}

    ByteArray Build() {
        std::int32_t count = IsHeard(NoiseTrack) ? 2 : 0;
        for (std::size_t t = 0; t < NoiseTrack; ++t)
            count += IsHeard(t) ? 1 : 0;
        if (count == 0) return Silence();
        writer_.Header(count);
        for (std::size_t t = 0; t < NoiseTrack; ++t) {
            if (IsHeard(t)) ToneChunk(tracks_[t], static_cast<std::int32_t>(t));
        }
        if (IsHeard(NoiseTrack)) {
            NoiseChunk(false);
            NoiseChunk(true);
        }
        return writer_.Take();
    }

  private:
    static std::size_t ExpectedSize(const SoundTracks& tracks) {
        std::size_t size = 256;
        for (const TrackData& track : tracks)
            size += track.Notes.size() * (&track == &tracks[NoiseTrack] ? 22 : 11);
        return size;
    }

    bool IsHeard(std::size_t track) const { return !tracks_[track].Muted && !tracks_[track].Notes.empty(); }

    // Players refuse a file without tracks, so a silent sound is one with an inaudible note, and one spare
    // byte.
    ByteArray Silence() {
        writer_.Header(1);
        writer_.BeginTrack();
        writer_.Event(0, programChange, 0);
        writer_.Note(0, middleC, 0, 16);
        writer_.EndTrack();
        writer_.Byte(0);
        return writer_.Take();
    }

    void ToneChunk(const TrackData& track, std::int32_t channel) {
        writer_.BeginTrack();
        writer_.Event(0, programChange + channel, track.Instrument);
        writer_.Note(channel, middleC, 0, silentTicks);
        for (const NoteData& note : track.Notes) {
            noteNumber_ = note.FreqDivisor == 0 ? 0 : ToneNumber(note.FreqDivisor);
            writer_.Note(channel, noteNumber_, note.FreqDivisor == 0 ? 0 : VelocityOf(note), note.Duration);
        }
        writer_.Note(channel, middleC, 0, silentTicks);
        writer_.EndTrack();
    }

    static std::int32_t ToneNumber(std::int32_t divisor) {
        return std::min(RoundedInt(Log10(ToneClock / divisor) / semitone - toneOffset), 127);
    }

    // Notes of the other kind of noise pass in silence, so that both chunks keep the same time.
    void NoiseChunk(bool white) {
        const std::int32_t channel = white ? 4 : 3;
        writer_.BeginTrack();
        writer_.Event(channel, programChange + channel, white ? 0x7A : 0x06);
        if (white) {
            writer_.Event(0, controller + channel, 0x07, 0x7F);
            writer_.Event(0, controller + channel, 0x44, 0x7F);
        }
        writer_.Note(channel, middleC, 0, silentTicks);
        std::int64_t time = 0;
        for (const NoteData& note : tracks_[NoiseTrack].Notes) {
            time += note.Duration;
            const bool belongs = ((note.FreqDivisor & 4) != 0) == white;
            if (belongs) {
                UpdateNoiseNumber(note, time, white);
            } else {
                noteNumber_ = 0;
            }
            writer_.Note(channel, noteNumber_, belongs ? VelocityOf(note) : 0, note.Duration);
        }
        writer_.Note(channel, middleC, 0, silentTicks);
        writer_.EndTrack();
    }

    // A number that no byte can hold leaves the one of the note before in force, whatever chunk that was in.
    void UpdateNoiseNumber(const NoteData& note, std::int64_t time, bool white) {
        const std::int32_t rate = note.FreqDivisor & 3;
        const double frequency =
            rate == 3 ? timeline_.GetTrackDivisorAt(time) : RoundHalfEven(noiseClock / (1 << rate));
        const std::int32_t number = RoundedInt(Log10(frequency) / semitone - (white ? 80 : 64));
        if (number >= 0 && number <= 255) noteNumber_ = number;
    }

    const SoundTracks& tracks_;
    DivisorTimeline timeline_;
    MidiWriter writer_;
    std::int32_t noteNumber_ = 0;
};

// One conversion of an Apple IIgs sequence: pairs of a one-byte delta and a message, ended by FC. A stream
// that breaks off, or holds a message that has no place in a file, ends there.
class IIgsReader {
  public:
    explicit IIgsReader(ByteView resource) : resource_(resource), writer_(resource.size() + 26) {}

    ByteArray Build(float& length) {
        writer_.Header(1);
        writer_.BeginTrack();
        if (resource_.size() > 2 && resource_[2] != endOfStream) {
            while (CopyEvent()) {
            }
        }
        writer_.EndTrack();
        length = static_cast<float>(ticks_) / 60.0F;
        return writer_.Take();
    }

  private:
    static constexpr std::uint8_t endOfStream = 0xFC;
    static constexpr std::uint8_t timingClock = 0xF8;

    enum class DataLength : std::uint8_t { None = 0, One = 1, Two = 2, UpToEnd, Stop };

    bool CopyEvent() {
        const std::uint8_t delta = resource_[src_];
        if (delta == endOfStream || delta == timingClock) return false;
        writer_.Delta(delta);
        if (++src_ >= resource_.size()) return false;
        const std::uint8_t status = resource_[src_];
        if (status < 128) {
            --src_;  // running status: the byte is the first of the data
        } else if (status == endOfStream) {
            return StepBack();
        } else {
            writer_.Byte(status);
            status_ = status;
        }
        ticks_ += delta;
        return CopyData() && ++src_ < resource_.size();
    }

    bool CopyData() {
        const DataLength length = LengthOf(status_);
        if (length == DataLength::Stop) return StepBack();
        if (length == DataLength::UpToEnd) {
            while (CopyByte()) {
                if (resource_[src_] == 0xF7) return true;
            }
            return false;
        }
        for (int i = 0; i < static_cast<int>(length); ++i) {
            if (!CopyByte()) return false;
        }
        return true;
    }

    bool CopyByte() {
        if (++src_ >= resource_.size()) return false;
        writer_.Byte(resource_[src_]);
        return true;
    }

    // Takes back the byte written last, and ends.
    bool StepBack() {
        writer_.DropLast();
        return false;
    }

    static DataLength LengthOf(std::uint8_t status) {
        switch (status >> 4) {
            case 8:
            case 9:
            case 10:
            case 11:
            case 14: return DataLength::Two;
            case 12:
            case 13: return DataLength::One;
            case 15: break;
            default: return DataLength::None;
        }
        switch (status & 15) {
            case 0: return DataLength::UpToEnd;
            case 2: return DataLength::Two;
            case 3: return DataLength::One;
            case 1:
            case 4:
            case 5:
            case 9:
            case 13: return DataLength::Stop;
            default: return DataLength::None;
        }
    }

    ByteView resource_;
    MidiWriter writer_;
    std::size_t src_ = 2;
    std::uint8_t status_ = 0;
    std::int64_t ticks_ = 0;
};

}  // namespace

ByteArray BuildMIDI(const SoundTracks& tracks) {
    return MidiBuilder(tracks).Build();
}

ByteArray BuildIIgsMIDI(ByteView resource, float& length) {
    return IIgsReader(resource).Build(length);
}

ByteArray BuildIIgsPCM(ByteView resource) {
    constexpr std::size_t waveHeaderSize = 44;
    ByteArray wave;
    wave.reserve(resource.size() + waveHeaderSize);
    const auto text = [&](std::string_view value) { wave.insert(wave.end(), value.begin(), value.end()); };
    const auto number = [&](std::int64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            wave.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    };
    const std::int64_t samples = static_cast<std::int64_t>(resource.size()) - PCMHeaderSize;
    text("RIFF");
    number(samples + 36, 4);
    text("WAVEfmt ");
    number(16, 4);
    number(1, 2);
    number(1, 2);
    number(PCMSampleRate, 4);
    number(PCMSampleRate, 4);
    number(1, 2);
    number(8, 2);
    text("data");
    number(samples - 2, 4);
    if (samples >= 0) {
        const ByteView bytes = resource.subspan(static_cast<std::size_t>(PCMHeaderSize));
        wave.insert(wave.end(), bytes.begin(), bytes.end());
    } else {
        // The whole file is 44 bytes longer than the samples, also where the resource ends inside its own
        // header.
        wave.resize(static_cast<std::size_t>(std::max<std::int64_t>(samples + 44, 0)));
    }
    return wave;
}

}  // namespace zorvex
