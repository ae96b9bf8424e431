// zorvex sound: what sounds hold, and sounds as files for other programs.
#include <cmath>
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/games/SoundFiles.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

constexpr int kindPCjr = 1;
constexpr int kindSample = 2;
constexpr std::int32_t noiseTrack = 3;

struct SoundOptions {
    std::string Source;
    std::string Which = "all";
    std::string Output;
    std::string Format;
    bool Json = false;
};

void Declare(Declaration& command, SoundOptions& options) {
    command.Option("source", options.Source, "A game, or the file of a sound: a raw resource or a script")
        .Required();
    command.Option("number", options.Which, "The number of a sound of the game, or all").ShowDefault();
    command.Option("-o,--output", options.Output, "The file to write; for several sounds, a directory");
    command
        .Option(
            "--format", options.Format,
            "agi (raw resource), mid (MIDI), wav (wave) or ass (script); by the file's extension where not "
            "given, and in a directory mid, or wav for samples")
        .OneOf({"agi", "mid", "wav", "ass"});
    DeclareJson(command, options.Json);
}

double Rounded(double value) {
    return std::round(value * 1e6) / 1e6;
}

/// Hertz of a tone or of a noise's rate; nothing for a rest, and for noise that follows the third track.
Json Frequency(std::int32_t track, std::int32_t divisor) {
    if (track == noiseTrack) {
        const int rate = divisor & 3;
        return rate == 3 ? Json() : Json(Rounded(2330.4296875 / (1 << rate)));
    }
    return divisor == 0 ? Json() : Json(Rounded(111860.0 / divisor));
}

void AddTrack(Json& tracks, Json& notes, AGISound& sound, std::int32_t index) {
    const auto track = sound.Track(index);
    Json row{{"track", index}};
    if (index != noiseTrack) row["instrument"] = track->Instrument();
    row["muted"] = track->Muted();
    row["visible"] = track->Visible();
    row["length"] = Rounded(track->Length());
    tracks.push_back(row);
    std::int64_t start = 0;
    for (const auto& note : *track->Notes()) {
        Json entry{{"track", index},
                   {"start", start},
                   {"divisor", note->FreqDivisor()},
                   {"frequency", Frequency(index, note->FreqDivisor())}};
        if (index == noiseTrack) entry["noise"] = (note->FreqDivisor() & 4) != 0 ? "white" : "periodic";
        entry["attenuation"] = note->Attenuation();
        entry["duration"] = note->Duration();
        notes.push_back(entry);
        start += note->Duration();
    }
}

std::string KindName(const AGISound& sound) {
    switch (sound.SndFormat()) {
        case kindPCjr: return "PC/PCjr";
        case kindSample: return "IIgs sample";
        default: return "IIgs sequence";
    }
}

Json Describe(AGISound& sound) {
    Json tracks = Json::array();
    Json notes = Json::array();
    for (std::int32_t index = 0; index <= noiseTrack; ++index)
        AddTrack(tracks, notes, sound, index);
    Json result;
    if (sound.InGame()) result["number"] = sound.Number();
    result["id"] = sound.ID();
    result["description"] = sound.Description();
    result["format"] = sound.SndFormat();
    result["kind"] = KindName(sound);
    result["length"] = Rounded(sound.Length());
    result["key"] = sound.Key();
    result["tpqn"] = sound.TPQN();
    result["tracks"] = tracks;
    result["notes"] = notes;
    return result;
}

void PrintLine(AGISound& sound) {
    std::string counts;
    for (std::int32_t index = 0; index <= noiseTrack; ++index)
        counts += " " + std::to_string(sound.Track(index)->Notes()->Count());
    std::printf("%3d  %-20s %-13s %8.2f s  notes%s\n", sound.Number(), sound.ID().c_str(),
                KindName(sound).c_str(), static_cast<double>(sound.Length()), counts.c_str());
}

SoundFormat FormatOf(const std::string& name) {
    if (name == "mid") return sfMIDI;
    if (name == "ass") return sfScript;
    return name == "wav" ? sfWAV : sfAGI;
}

/// The file of a sound in a directory.
fs::path FileIn(const fs::path& directory, const AGISound& sound, std::string extension) {
    if (extension.empty()) extension = sound.SndFormat() == kindSample ? "wav" : "mid";
    return directory / ResourceFileName(rtSound, sound.Number(), "." + extension);
}

/// Writes a sound in the format given by name, or else by the extension.
void WriteSound(AGISound& sound, const fs::path& path, const std::string& format) {
    const SoundFormat wanted = format.empty() ? sfUndefined : FormatOf(format);
    if (wanted == sfWAV && sound.SndFormat() == kindSample) {  // whatever the file's name
        WriteBytes(path, sound.MIDIData());
        return;
    }
    try {
        const fs::path named = wanted == sfWAV ? fs::path(path).replace_extension(".wav") : path;
        NoteWriting(named.string());
        sound.Export(named.string(), wanted, false);
    } catch (const Error& error) {
        throw Error(error.Number(), error.Source(), path.string() + ": " + error.Description());
    }
}

int Run(const SoundOptions& options) {
    if (!options.Format.empty() && options.Output.empty()) throw UsageError("--format needs a file: give -o");
    const bool all = options.Which == "all";
    const std::optional<std::uint8_t> number =
        all ? std::nullopt : std::optional(ParseNumber255(options.Which));
    const SoundSource source(options.Source);
    const auto sounds = all ? source.All() : std::vector{source.Sound(number)};
    const bool several = all && source.IsGame();
    const bool toDirectory = several || fs::is_directory(options.Output);
    if (several && !options.Output.empty()) MakeOutputDirectory(options.Output);
    int status = all && source.HasSkipped() ? exitFailed : exitDone;
    Json list = Json::array();
    for (const auto& sound : sounds) {
        try {
            const bool wasLoaded = sound->Loaded();
            if (!wasLoaded) sound->Load();
            if (!options.Output.empty()) {
                WriteSound(
                    *sound,
                    toDirectory ? FileIn(options.Output, *sound, options.Format) : fs::path(options.Output),
                    options.Format);
            }
            if (options.Json) list.push_back(Describe(*sound));
            if (!options.Json && options.Output.empty()) PrintLine(*sound);
            if (!wasLoaded) sound->Unload();
        } catch (const Error& error) {
            SayError(source.IsGame() ? ResourceFileName(rtSound, sound->Number()) : options.Source, error);
            status = exitFailed;
        }
    }
    if (options.Json && several) PrintJson(list);
    if (options.Json && !several && !list.empty()) PrintJson(list.front());
    return status;
}

}  // namespace

void AddSoundCommand(CommandLine& line) {
    AddCommand<SoundOptions>(
        line,
        {"sound", "Lists the sounds of a game and writes them as MIDI files, waves or scripts.",
         "  zorvex sound mygame                        one line a sound\n"
         "  zorvex sound mygame 12 -o tune.mid         sound 12 as a MIDI file\n"
         "  zorvex sound mygame 12 -o tune.ass         the same as a script to edit\n"
         "  zorvex sound mygame all -o out             all sounds, as sound.000.mid and so on\n"
         "  zorvex sound mygame 12 --json              settings and notes for a program\n"
         "  zorvex sound tune.ass -o tune.mid          a script as a MIDI file"},
        Declare, Run);
}

}  // namespace zorvex::tool
