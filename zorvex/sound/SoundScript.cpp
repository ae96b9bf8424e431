#include "zorvex/sound/SoundScript.h"

#include <algorithm>

#include "zorvex/base/Text.h"

namespace zorvex {

namespace {

constexpr std::int32_t noiseTypeUnknown = -1;
constexpr std::int32_t whiteNoise = 4;

// The number at the start of a field, rounded; nothing when it is outside 0 to `max`.
std::optional<std::int32_t> Field(std::string_view text, double max) {
    const double value = RoundHalfEven(Val(text));
    if (!(value >= 0 && value <= max)) return std::nullopt;
    return static_cast<std::int32_t>(value);
}

class ScriptReader {
  public:
    SoundScript Read(std::string_view text) {
        std::int32_t lineNumber = 0;
        while (!text.empty()) {
            const std::size_t end = text.find_first_of("\r\n");
            const std::string_view line = text.substr(0, end);
            ++lineNumber;
            if (!ReadLine(Trim(line))) {
                script_.BadLine = lineNumber;
                break;
            }
            if (end == std::string_view::npos) break;
            text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
        }
        return std::move(script_);
    }

  private:
    bool ReadLine(std::string_view line) {
        if (line.empty()) return true;
        if (line.starts_with("##")) {
            ReadSetting(line);
            return true;
        }
        if (line.front() == '#') return true;
        if (EqualNoCase(line, "tone")) {
            StartTrack(track_ + 1, 0);
            return true;
        }
        if (EqualNoCase(line, "noise") && track_ != noiseTrack) {
            StartTrack(noiseTrack, noiseTypeUnknown);
            return true;
        }
        return ReadNote(line);
    }

    void StartTrack(std::int32_t track, std::int32_t noiseType) {
        track_ = track;
        noiseType_ = noiseType;
        if (track <= noiseTrack) {
            script_.Tracks[static_cast<std::size_t>(track)].Visible = true;
        } else {
            script_.PassedOver = true;
        }
    }

    bool ReadNote(std::string_view line) {
        if (track_ < 0 || track_ > noiseTrack) return false;
        std::vector<std::string> fields = Split(line, ",");
        if (fields.size() < 3) return false;
        std::optional<std::string> letter;
        if (fields.size() > 3) {
            letter = LowerCase(fields.front());
            fields.erase(fields.begin());
        }
        const auto divisor =
            track_ == noiseTrack ? NoiseDivisor(letter, fields[0]) : ToneDivisor(letter, fields[0]);
        const auto attenuation = Field(fields[1], 15);
        const auto duration = Field(fields[2], 65535);
        if (!divisor || !attenuation || !duration) return false;
        if (*duration > 0) {
            script_.Tracks[static_cast<std::size_t>(track_)].Notes.push_back(
                {static_cast<std::int16_t>(*divisor), *duration, static_cast<std::int16_t>(*attenuation)});
        }
        return true;
    }

    using Letter = std::optional<std::string>;  // none in the short form

    static std::optional<std::int32_t> ToneDivisor(const Letter& letter, std::string_view field) {
        if (!letter || letter == "a") return Field(field, 1023);
        if (letter != "f") return std::nullopt;
        const double frequency = RoundHalfEven(Val(field));
        if (frequency == 0) return std::nullopt;
        const double divisor = RoundHalfEven(ToneClock / frequency);
        if (!(divisor >= 0 && divisor <= 1023)) return std::nullopt;
        return static_cast<std::int32_t>(divisor);
    }

    std::optional<std::int32_t> NoiseDivisor(const Letter& letter, std::string_view field) {
        if (letter == "p") {
            noiseType_ = 0;
        } else if (letter == "w") {
            noiseType_ = whiteNoise;
        } else if (letter || noiseType_ == noiseTypeUnknown) {
            return std::nullopt;
        }
        const auto rate = Field(field, 1023);
        if (!rate) return std::nullopt;
        return *rate | noiseType_;
    }

    // A line with more than one equals sign is none of the settings, not even a description that holds one.
    void ReadSetting(std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || line.find('=', equals + 1) != std::string_view::npos) return;
        const std::string name = LowerCase(Trim(line.substr(0, equals)).substr(2));
        const std::string_view value = line.substr(equals + 1);
        if (name == "description") {
            script_.Description = value;
        } else if (name == "tpqn") {
            if (const auto number = Taken(ParseLong(value)))
                script_.TPQN = std::clamp(*number / 4 * 4, 4, 64);
        } else if (name == "key") {
            if (const auto number = Taken(ParseLong(value))) script_.Key = std::clamp(*number, -7, 7);
        } else if (!name.empty() && name.back() >= '0' && name.back() <= '3') {
            ReadTrackSetting(std::string_view(name).substr(0, name.size() - 1),
                             static_cast<std::size_t>(name.back() - '0'), value);
        }
    }

    void ReadTrackSetting(std::string_view name, std::size_t index, std::string_view value) {
        SoundScript::Track& track = script_.Tracks[index];
        if (name == "instrument" && index != NoiseTrack) {
            auto number = ParseLong(value);
            if (number && (*number < 0 || *number > 127)) number.reset();
            if (Taken(number)) track.Instrument = static_cast<std::uint8_t>(*number);
        } else if (name == "visible") {
            if (const auto flag = Taken(ParseBool(value))) track.Visible = flag;
        } else if (name == "muted") {
            if (const auto flag = Taken(ParseBool(value))) track.Muted = flag;
        }
    }

    // The value of a setting as it was read; one that could not be read leaves its trace.
    template <class Value>
    std::optional<Value> Taken(std::optional<Value> value) {
        if (!value) script_.PassedOver = true;
        return value;
    }

    static constexpr std::int32_t noiseTrack = static_cast<std::int32_t>(NoiseTrack);

    SoundScript script_;
    std::int32_t track_ = -1;
    std::int32_t noiseType_ = 0;
};

class ScriptWriter {
  public:
    void Line(std::string_view text) { text_.append(text).append("\r\n"); }
    void Setting(std::string_view name, std::size_t track, std::string_view value) {
        text_.append("##").append(name).append(std::to_string(track)).append("=");
        Line(value);
    }
    void Note(std::string_view start, std::int32_t frequency, const NoteData& note) {
        text_.append(start).append(std::to_string(frequency)).append(", ");
        text_.append(std::to_string(note.Attenuation)).append(", ");
        Line(std::to_string(note.Duration));
    }

    void ToneTrack(const TrackData& track, std::size_t index) {
        Line("# track " + std::to_string(index));
        Line("tone");
        std::string_view start = "a, ";
        for (const NoteData& note : track.Notes) {
            Note(start, note.FreqDivisor, note);
            start = "";
        }
        Setting("instrument", index, std::to_string(track.Instrument));
        Setting("visible", index, BoolText(track.Visible));
        Setting("muted", index, BoolText(track.Muted));
        Line("");
    }

    void Noise(const TrackData& track) {
        Line("# track 3");
        Line("noise");
        for (const NoteData& note : track.Notes)
            Note((note.FreqDivisor & whiteNoise) != 0 ? "w," : "p,", note.FreqDivisor & 3, note);
        Setting("visible", NoiseTrack, BoolText(track.Visible));
        Setting("muted", NoiseTrack, BoolText(track.Muted));
    }

    std::string Take() { return std::move(text_); }

  private:
    std::string text_;
};

}  // namespace

SoundScript ReadSoundScript(std::string_view text) {
    return ScriptReader().Read(text);
}

std::string WriteSoundScript(const SoundTracks& tracks, std::string_view description, std::int32_t tpqn) {
    std::string oneLine(description);
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    ScriptWriter writer;
    writer.Line("# agi script file");
    writer.Line("");
    writer.Line("##Description=" + oneLine);
    writer.Line("##TPQN=" + std::to_string(tpqn));
    writer.Line("");
    for (std::size_t t = 0; t < NoiseTrack; ++t)
        writer.ToneTrack(tracks[t], t);
    writer.Noise(tracks[NoiseTrack]);
    return writer.Take();
}

}  // namespace zorvex
