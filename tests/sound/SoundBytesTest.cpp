#include "tests/sound/SoundSupport.h"
#include "tests/support/MemoryFileSystem.h"
#include "zorvex/sound/SoundCodec.h"

namespace zorvex::test {
namespace {

TEST(Sound, AMelodyOfTheModelBecomesTheBytesAndBack) {
    AGISound sound;
    sound.Track(0)->Notes()->Add(190, 30, 0);
    sound.Track(0)->Notes()->Add(1023, 266, 15);
    sound.Track(2)->Notes()->Add(1023, 60, 15);
    sound.Track(3)->Notes()->Add(5, 6, 2);
    TempDir dir;
    sound.Save(dir.File("melody.agi"));
    const ByteArray expected = BytesOfText(DocumentedBlock("sound.md", "hex"));
    EXPECT_EQ(TextOfBytes(dir.Read("melody.agi")), TextOfBytes(expected));
    EXPECT_FALSE(sound.IsDirty());

    AGISound copy;
    copy.Import(dir.File("melody.agi"));
    EXPECT_EQ(NotesText(copy, 0), "190/0/30 1023/15/266");
    EXPECT_EQ(NotesText(copy, 1), "");
    EXPECT_EQ(NotesText(copy, 2), "1023/15/60");
    EXPECT_EQ(NotesText(copy, 3), "5/2/6");
    EXPECT_EQ(copy.Length(), 296 / 60.0F);
}

TEST(Sound, OnlyTheBitsOfTheNoteAreRead) {
    AGISound sound;
    // A tone with other voice bits, a tone of no duration, noise with bit 3 set, noise of no duration.
    LoadBytes(sound,
              "08 00 14 00 16 00 18 00  02 00 FF 7F 0F  00 00 01 02 03  FF FF  FF FF  FF FF"
              "01 00 AA 0D 0C  00 00 00 E1 F1  FF FF");
    EXPECT_EQ(NotesText(sound, 0), "1023/15/2 18/3/0");
    EXPECT_EQ(NotesText(sound, 3), "5/12/1");
    EXPECT_FALSE(sound.IsDirty());
}

TEST(Sound, LoadTellsTheKindByTheFirstWord) {
    struct Case {
        const char* bytes;
        std::int32_t format;
        std::int32_t error;
        float length;
    };
    const Case cases[] = {
        {"08 00 08 00 08 00 08 00 FF FF", 1, 0, 0},
        {"01 00 00 *8052", 2, 0, 1},
        {"02 00 00 90 3C 7F 1E 3C 00 FC", 3, 0, 0.5F},
        {"02 00", 3, 0, 0},
        {"03 00 08 00 08 00 08 00 FF FF", 0, 598, -1},
        {"00 08", 0, 598, -1},
        {"08", 0, 9, -1},
        {"08 00", 0, 565, -1},
        {"08 00 06 00 08 00 08 00 FF FF", 0, 598, -1},  // an end before the start of the file
        {"08 00 12 00 12 00 12 00 FF FF", 0, 598, -1},  // an end past it
        {"08 00 0F 00 11 00 13 00 01 00", 0, 565, -1},  // a record cut short
        {"08 00 08 00 08 00 FF FF FF FF", 0, 598, -1},  // noise past it ends the track before there as well
    };
    for (const Case& item : cases) {
        SCOPED_TRACE(item.bytes);
        AGISound sound;
        const ByteArray bytes = BytesOfText(item.bytes);
        EXPECT_EQ(RaisedId([&] { LoadBytes(sound, bytes); }), item.error);
        EXPECT_EQ(sound.SndFormat(), item.format);
        EXPECT_EQ(sound.Loaded(), item.error == 0);
        EXPECT_EQ(sound.Length(), item.length);
        if (item.format > 1) {
            EXPECT_EQ(sound.Track(3)->Notes()->Count(), 0);
        }
    }
}

TEST(Sound, ErrorsOfTheTracksSayWhatFailed) {
    AGISound sound;
    EXPECT_EQ(RaisedText([&] { LoadBytes(sound, "08 00 08"); }),
              "Error in LoadTracks method(9:Subscript out of range)");
    EXPECT_EQ(RaisedId([&] { sound.Track(0); }), 563);
    EXPECT_EQ(RaisedId([&] { sound.Track(4); }), 9);

    AGISound loud;
    for (int i = 0; i < 13200; ++i)
        loud.Track(1)->Notes()->Add(1, 1, 1);
    TempDir dir;
    EXPECT_EQ(RaisedText([&] { loud.Save(dir.File("x.agi")); }),
              "Error in CompileSound method(-2147220947:Overflow- unsigned integer expected.)");
    EXPECT_FALSE(dir.Exists("x.agi"));
    EXPECT_TRUE(loud.IsDirty());
}

// Whatever is cut off or bent, a load ends with a loaded sound or with one of its errors, and what was read
// can be written and read again.
TEST(Sound, DamageIsReadOrRefused) {
    const MemoryFiles files;
    const ByteArray whole = BytesOfText(DocumentedBlock("sound.md", "hex"));
    std::vector<ByteArray> damaged;
    for (std::size_t size = 0; size < whole.size(); ++size)
        damaged.emplace_back(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    for (std::size_t offset = 0; offset < 8; ++offset) {
        for (int value = 0; value < 256; ++value) {
            ByteArray bent = whole;
            bent[offset] = static_cast<std::uint8_t>(value);
            damaged.push_back(bent);
        }
    }
    for (const ByteArray& bytes : damaged) {
        AGISound sound;
        const std::int32_t error = RaisedId([&] { LoadBytes(sound, bytes); });
        ASSERT_TRUE(error == 0 || error == 598 || error == 565 || error == 9 || error == 513) << error;
        ASSERT_EQ(sound.Loaded(), error == 0);
        if (sound.SndFormat() != 1) continue;
        sound.Track(0)->Notes()->Add(1, 1, 1);
        const std::string notes = NotesText(sound, 2) + ";" + NotesText(sound, 3);
        sound.Export("\\out");
        sound.Load();
        ASSERT_EQ(NotesText(sound, 2) + ";" + NotesText(sound, 3), notes) << TextOfBytes(bytes);
    }
}

TEST(Sound, AnEditOfTheBytesShowsInTheTracksAndSurvivesASave) {
    AGISound sound;
    LoadBytes(sound, "08 00 0F 00 11 00 13 00 1E 00 0B 8E 90 FF FF FF FF FF FF FF FF");
    sound.MIDIData();
    sound.Data(12, 0x95);
    EXPECT_TRUE(sound.IsDirty());
    TempDir dir;
    sound.Export(dir.File("a.agi"));
    EXPECT_EQ(dir.Read("a.agi")[12], 0x95);
    sound.Data(12, 0x96);
    EXPECT_EQ(NotesText(sound, 0), "190/6/30");
    EXPECT_EQ(sound.MIDIData()[14 + 8 + 3 + 8 + 3], (15 - 6) * 127 / 15);

    AGISound sample;
    LoadBytes(sample, "01 00 00 *60");
    sample.Data(58, 77);
    sample.Export(dir.File("b.agi"));
    EXPECT_EQ(dir.Read("b.agi")[58], 77);
    EXPECT_EQ(sample.MIDIData()[48], 77);
}

TEST(Sound, ClearAndUnloadLeaveTheirStates) {
    AGISound sound;
    LoadBytes(sound, "08 00 0F 00 11 00 13 00 1E 00 0B 8E 90 FF FF FF FF FF FF FF FF");
    sound.Key(3);
    sound.Clear();
    EXPECT_EQ(sound.AllData(), EmptySoundBytes());
    EXPECT_EQ(sound.Track(0)->Instrument(), 0);
    EXPECT_EQ(sound.Track(0)->Notes()->Count(), 0);
    EXPECT_TRUE(sound.DataDirty());
    EXPECT_EQ(sound.Length(), 0);
    sound.Unload();
    EXPECT_EQ(sound.Length(), -1);
    EXPECT_EQ(sound.SndFormat(), 0);
    EXPECT_EQ(sound.Key(), 3);
    for (const auto& step : std::vector<std::function<void()>>{
             [&] { sound.Clear(); }, [&] { sound.MIDIData(); }, [&] { sound.Export("x"); },
             [&] { sound.Save("x"); }, [&] { sound.PlaySound(); }, [&] { sound.StopSound(); }}) {
        EXPECT_EQ(RaisedId(step), 563);
    }
}

TEST(Sound, SetSoundCopiesAllButThePlace) {
    AGISound source;
    LoadBytes(source, "08 00 0F 00 11 00 13 00 1E 00 0B 8E 90 FF FF FF FF FF FF FF FF");
    source.ID("Tune");
    source.Description("words");
    source.TPQN(32);
    source.Track(0)->Instrument(5);
    source.Track(3)->Muted(true);
    source.Track(1)->Notes()->Add(7, 8, 9);
    AGISound copy;
    copy.SetSound(source);
    EXPECT_EQ(copy.ID(), "Tune");
    EXPECT_EQ(copy.Description(), "words");
    EXPECT_EQ(copy.TPQN(), 32);
    EXPECT_EQ(copy.Track(0)->Instrument(), 5);
    EXPECT_TRUE(copy.Track(3)->Muted());
    EXPECT_EQ(NotesText(copy, 1), "7/9/8");
    EXPECT_EQ(copy.AllData(), source.AllData());
    EXPECT_TRUE(copy.DataDirty() && copy.WritePropState());
    copy.Track(1)->Notes()->Clear();
    EXPECT_EQ(source.Track(1)->Notes()->Count(), 1);

    source.Unload();
    copy.SetSound(source);
    EXPECT_FALSE(copy.Loaded());
}

}  // namespace
}  // namespace zorvex::test
