#include "zorvex/sound/SoundCodec.h"

#include "zorvex/base/Checked.h"
#include "zorvex/base/Error.h"
#include "zorvex/storage/ResourceLimits.h"

namespace zorvex {

namespace {

constexpr std::int32_t headerSize = 8;
constexpr std::int32_t recordSize = 5;
// From the offset of the next track back to the start of the last record: the record itself and FF FF.
constexpr std::int32_t lastRecord = recordSize + 2;

std::int32_t WordAt(ByteView bytes, std::int32_t pos) {
    const auto size = static_cast<std::int64_t>(bytes.size());
    if (pos >= size) RaiseCatalogue(513, ResourceErrorSource);
    if (pos + 1 >= size) RaiseRuntime(reSubscript, ResourceErrorSource);
    const auto at = static_cast<std::size_t>(pos);
    return bytes[at] + 256 * bytes[at + 1];
}

// The five bytes of a record, of which the resource must hold all.
std::span<const std::uint8_t, recordSize> RecordAt(ByteView bytes, std::int64_t pos) {
    if (pos + recordSize > static_cast<std::int64_t>(bytes.size())) RaiseCatalogue(513, ResourceErrorSource);
    return bytes.subspan(static_cast<std::size_t>(pos)).first<recordSize>();
}

NoteData NoteAt(ByteView bytes, std::int64_t pos, bool isNoise) {
    const auto record = RecordAt(bytes, pos);
    const int divisor = isNoise ? record[3] & 7 : (record[2] & 0x3F) * 16 + (record[3] & 0x0F);
    return {static_cast<std::int16_t>(divisor), record[0] + 256 * record[1],
            static_cast<std::int16_t>(record[4] & 0x0F)};
}

NoteList DecodeTone(ByteView bytes, std::int32_t track) {
    const std::int32_t start = WordAt(bytes, 2 * track);
    const std::int32_t end = WordAt(bytes, 2 * track + 2) - lastRecord;
    if (end < 0 || std::cmp_greater(start, bytes.size()) || std::cmp_greater(end, bytes.size())) {
        RaiseCatalogue(598, SoundErrorSource);
    }
    NoteList notes;
    if (start <= end) notes.reserve(static_cast<std::size_t>((end - start) / recordSize + 1));
    for (std::int32_t pos = start; pos <= end; pos += recordSize)
        notes.push_back(NoteAt(bytes, pos, false));
    return notes;
}

NoteList DecodeNoise(ByteView bytes) {
    const std::int64_t end = static_cast<std::int64_t>(bytes.size()) - lastRecord;
    NoteList notes;
    for (std::int64_t pos = WordAt(bytes, 2 * NoiseTrack); pos <= end; pos += recordSize) {
        const NoteData note = NoteAt(bytes, pos, true);
        if (note.Duration > 0) notes.push_back(note);
    }
    return notes;
}

void AppendWord(ByteArray& bytes, std::int64_t value) {
    if (value > 0xFFFF) RaiseCatalogue(557, ResourceErrorSource);
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

// The high bits of the last two bytes are the voice's registers in the sound chip.
void AppendNote(ByteArray& bytes, const NoteData& note, std::size_t track) {
    const bool isNoise = track == NoiseTrack;
    const int voice = 32 * static_cast<int>(track);
    AppendWord(bytes, note.Duration);
    bytes.push_back(isNoise ? std::uint8_t{0}
                            : Narrow<std::uint8_t>(note.FreqDivisor / 16, SoundErrorSource));
    bytes.push_back(Narrow<std::uint8_t>((isNoise ? note.FreqDivisor : note.FreqDivisor & 0x0F) + 128 + voice,
                                         SoundErrorSource));
    bytes.push_back(Narrow<std::uint8_t>(note.Attenuation + 144 + voice, SoundErrorSource));
}

}  // namespace

SoundKind KindOfSound(ByteView bytes) {
    if (bytes.size() < 2) return skNone;
    switch (WordAt(bytes, 0)) {
        case 8: return skPCjr;
        case 1: return skIIgsPCM;
        case 2: return skIIgsMIDI;
        default: return skNone;
    }
}

const ByteArray& EmptySoundBytes() {
    static const ByteArray bytes{8, 0, 8, 0, 8, 0, 8, 0, 0xFF, 0xFF};
    return bytes;
}

std::array<NoteList, TrackCount> DecodeNotes(ByteView bytes) {
    std::array<NoteList, TrackCount> tracks;
    for (std::int32_t t = 0; t < static_cast<std::int32_t>(NoiseTrack); ++t)
        tracks[static_cast<std::size_t>(t)] = DecodeTone(bytes, t);
    tracks[NoiseTrack] = DecodeNoise(bytes);
    return tracks;
}

ByteArray EncodeNotes(const SoundTracks& tracks) {
    ByteArray bytes;
    std::size_t count = 0;
    for (const TrackData& track : tracks)
        count += track.Notes.size();
    bytes.reserve(headerSize + count * recordSize + 2 * TrackCount);
    AppendWord(bytes, headerSize);
    std::int64_t offset = headerSize;
    for (std::size_t t = 0; t < NoiseTrack; ++t) {
        offset += static_cast<std::int64_t>(tracks[t].Notes.size()) * recordSize + 2;
        AppendWord(bytes, offset);
    }
    for (std::size_t t = 0; t < TrackCount; ++t) {
        for (const NoteData& note : tracks[t].Notes)
            AppendNote(bytes, note, t);
        AppendWord(bytes, 0xFFFF);
    }
    return bytes;
}

std::int64_t TotalDuration(const NoteList& notes) {
    std::int64_t total = 0;
    for (const NoteData& note : notes)
        total += note.Duration;
    return total;
}

float DurationSeconds(std::int64_t duration) {
    return static_cast<float>(duration) / 60.0F;
}

}  // namespace zorvex
