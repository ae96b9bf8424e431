#include "tests/sound/SoundSupport.h"
#include "zorvex/sound/SoundConversion.h"

namespace zorvex::test {
namespace {

/// The chunks of a MIDI file as text: what follows each "MTrk" and its length. All else of the file is
/// checked.
std::vector<std::string> Chunks(ByteView file) {
    std::vector<std::string> chunks;
    std::size_t at = 14;
    while (at + 8 <= file.size()) {
        EXPECT_EQ(TextOf(file.subspan(at, 4)), "MTrk");
        const std::size_t length = file[at + 6] * 256U + file[at + 7];
        chunks.push_back(TextOfBytes(file.subspan(at + 8, length)));
        at += 8 + length;
    }
    EXPECT_EQ(at, file.size());
    EXPECT_EQ(TextOfBytes(file.first(14)),
              "4D 54 68 64 00 00 00 06 00 01 00 0" + std::to_string(chunks.size()) + " 00 1E");
    return chunks;
}

SoundTracks OneTrack(std::size_t track, NoteList notes) {
    SoundTracks tracks;
    tracks[track].Notes = std::move(notes);
    return tracks;
}

/// A chunk that a test writes with blanks between the events.
std::string Chunk(const std::string& events) {
    return TextOfBytes(BytesOfText(events));
}

TEST(BuildMIDI, ATrackIsAChunkOnItsOwnChannel) {
    const NoteList notes{{190, 30, 0}, {0, 200, 0}, {1, 65535, 15}, {500, 0, 8}};
    EXPECT_EQ(Chunks(BuildMIDI(OneTrack(2, notes))),
              std::vector{Chunk("00C250 00923C0004823C00 00924A7F1E824A00 009200008148820000"
                                "00927F0083FF7F827F00 0092393B00823900 00923C0004823C00 00FF2F00")});
}

TEST(BuildMIDI, SilenceIsAFixedFile) {
    const ByteArray silence = BytesOfText(
        "\"MThd\" 00000006 0001 0001 001E \"MTrk\" 0000000F 00C000 00903C00 10803C00 00FF2F00 00");
    SoundTracks muted = OneTrack(0, {{190, 30, 0}});
    muted[0].Muted = true;
    EXPECT_EQ(BuildMIDI(muted), silence);
    EXPECT_EQ(BuildMIDI({}), silence);
}

TEST(BuildMIDI, NoiseMakesTwoChunksOfTheSameTime) {
    // Periodic of the three rates, then white of the three; each is silent in the other's chunk.
    const NoteList notes{{0, 1, 0}, {1, 1, 0}, {2, 1, 0}, {4, 1, 0}, {5, 1, 0}, {6, 1, 0}};
    EXPECT_EQ(
        Chunks(BuildMIDI(OneTrack(3, notes))),
        (std::vector{Chunk("03C306 00933C0004833C00 0093467F01834600 00933A7F01833A00 00932E7F01832E00"
                           "0093000001830000 0093000001830000 0093000001830000 00933C0004833C00 00FF2F00"),
                     Chunk("04C47A 00B4077F 00B4447F 00943C0004843C00"
                           "0094000001840000 0094000001840000 0094000001840000"
                           "0094367F01843600 00942A7F01842A00 00941E7F01841E00 00943C0004843C00 00FF2F00")}));
}

TEST(BuildMIDI, NoiseOfTheFourthRateFollowsTrackTwoAndKeepsANumberThatNoByteHolds) {
    SoundTracks tracks = OneTrack(3, {{3, 10, 0}, {3, 10, 0}, {3, 1, 0}, {7, 1, 0}});
    tracks[2].Notes = {{1000, 15, 0}, {600, 5, 0}};
    tracks[2].Muted = true;  // is asked all the same
    tracks[0].Notes = {{190, 1, 0}};
    const auto chunks = Chunks(BuildMIDI(tracks));
    ASSERT_EQ(chunks.size(), 3U);
    // 1000 sounds at 10, 600 at 20; at 21 nothing sounds, and the number of 600 stays.
    EXPECT_EQ(chunks[1], Chunk("03C306 00933C0004833C00 0093387F0A833800 00932F7F0A832F00"
                               "00932F7F01832F00 0093000001830000 00933C0004833C00 00FF2F00"));
    // With nothing on track 2 the number comes from the last tone.
    tracks[2].Notes.clear();
    EXPECT_EQ(Chunks(BuildMIDI(tracks))[1].substr(33, 23), "00 93 4A 7F 0A 83 4A 00");
}

struct Sequence {
    const char* name;
    const char* stream;  // from offset 2
    const char* events;  // without the end of the track
    float length;
};

TEST(BuildIIgsMIDI, StreamsEndWhereTheyBreakOff) {
    const Sequence cases[] = {
        {"empty", "FC", "", 0},
        {"nothing at all", "", "", 0},
        {"notes", "00 90 3C 7F 1E 3C 00 1E C1 05 00 FC", "00 90 3C 7F 1E 3C 00 1E C1 05", 1},
        {"long delta", "C8 90 3C 7F 00 FC", "81 48 90 3C 7F", 200 / 60.0F},
        {"end as delta", "00 90 3C 7F FC", "00 90 3C 7F", 0},
        {"clock as delta", "00 90 3C 7F F8 90 00 00", "00 90 3C 7F", 0},
        {"cut in a delta", "00 90 3C 7F 05", "00 90 3C 7F 05", 0},
        {"cut in a message", "3C 90 3C", "3C 90 3C", 1},
        {"end behind a long delta", "C8 FC", "81", 0},
        {"system exclusive", "00 F0 01 02 F7 3C F3 09 3C F2 01 02 00 FC",
         "00 F0 01 02 F7 3C F3 09 3C F2 01 02", 2},
        {"system exclusive without end", "00 F0 01 02", "00 F0 01 02", 0},
        {"no data", "3C F6 00 FC", "3C F6", 1},
        {"a code that stops", "3C F4 00 90 3C 7F", "3C", 1},
        {"data without a status", "3C 05 06 07", "3C 05 06 07", 71 / 60.0F},
    };
    for (const Sequence& item : cases) {
        SCOPED_TRACE(item.name);
        float length = -1;
        const ByteArray file = BuildIIgsMIDI(BytesOfText("02 00 " + std::string(item.stream)), length);
        EXPECT_EQ(Chunks(file), std::vector{Chunk(std::string(item.events) + " 00 FF 2F 00")});
        EXPECT_EQ(length, item.length);
    }
}

TEST(BuildIIgsPCM, HasTheHeaderOfAWaveFile) {
    ByteArray resource = BytesOfText("01 00 00 *8052");
    resource[54] = 200;
    const ByteArray wave = BuildIIgsPCM(resource);
    EXPECT_EQ(wave.size(), 8044U);
    EXPECT_EQ(TextOfBytes(ByteView(wave).first(45)),
              Chunk("\"RIFF\" 641F0000 \"WAVEfmt \" 10000000 0100 0100 401F0000 401F0000 0100 0800"
                    "\"data\" 3E1F0000 C8"));
    EXPECT_EQ(MediaSeconds(wave), 7998 / 8000.0);
    EXPECT_EQ(BuildIIgsPCM(ByteView(resource).first(20)).size(), 10U);
}

}  // namespace
}  // namespace zorvex::test
