#include "tests/sound/SoundSupport.h"
#include "zorvex/sound/SoundCodec.h"

namespace zorvex::test {

/// One note on track 0, nothing else.
constexpr std::string_view oneNote = "08 00 0F 00 11 00 13 00 1E 00 0B 8E 90 FF FF FF FF FF FF FF FF";

TEST(Sound, AMelodyOfTheModelBecomesTheBytesAndBack) {
    AGISound sound;
    sound.Track(0)->Notes()->Add(190, 30, 0);
    sound.Track(0)->Notes()->Add(1023, 266, 15);
    sound.Track(2)->Notes()->Add(1023, 60, 15);
    sound.Track(3)->Notes()->Add(5, 6, 2);
    const std::string notes = NotesText(sound);
    EXPECT_EQ(notes, "190/0/30 1023/15/266; ; 1023/15/60; 5/2/6");
    TempDir dir;
    sound.Save(dir.File("melody.agi"));
    EXPECT_EQ(dir.Read("melody.agi"), DocumentedBytes("sound.md"));
    EXPECT_FALSE(sound.IsDirty());
    AGISound copy;
    copy.Import(dir.File("melody.agi"));
    EXPECT_EQ(NotesText(copy), notes);
    EXPECT_EQ(copy.Length(), 296 / 60.0F);

    // A tone with other voice bits, a tone of no duration, noise with bit 3 set, noise of no duration.
    LoadBytes(sound,
              "08 00 14 00 16 00 18 00  02 00 FF 7F 0F  00 00 01 02 03  FF FF  FF FF  FF FF"
              "01 00 AA 0D 0C  00 00 00 E1 F1  FF FF");
    EXPECT_EQ(NotesText(sound), "1023/15/2 18/3/0; ; ; 5/12/1");
    EXPECT_FALSE(sound.IsDirty());
}

TEST(Sound, LoadTellsTheKindByTheFirstWord) {
    struct Case {
        std::string bytes;
        std::int32_t format;
        std::int32_t error;
        float length;
    };
    const Case cases[] = {
        {"08 00 08 00 08 00 08 00 FF FF", 1, 0, 0},
        {"01 00 00 *8052", 2, 0, 1},
        {DocumentedBlock("sound.md", "hex", 1), 3, 0, 0.5F},
        {"02 00", 3, 0, 0},
        {"03 00 08 00 08 00 08 00 FF FF", 0, 598, -1},
        {"00 08", 0, 598, -1},
        {"", 0, 513, -1},
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
        EXPECT_EQ(RaisedId([&] { LoadBytes(sound, item.bytes); }), item.error);
        EXPECT_EQ(sound.SndFormat(), item.format);
        EXPECT_EQ(sound.Loaded(), item.error == 0);
        EXPECT_EQ(sound.Length(), item.length);
        if (item.format > 1) {
            EXPECT_EQ(NotesText(sound), "; ; ; ");
        }
    }
}

TEST(Sound, ErrorsOfTheTracksSayWhatFailed) {
    AGISound sound;
    EXPECT_EQ(RaisedText([&] { LoadBytes(sound, "08 00 08"); }),
              "Error in LoadTracks method(9:Subscript out of range)");
    AGISound loud;
    for (int i = 0; i < 13200; ++i)
        loud.Track(1)->Notes()->Add(1, 1, 1);
    EXPECT_EQ(RaisedText([&] { loud.Save("x.agi"); }),
              "Error in CompileSound method(-2147220947:Overflow- unsigned integer expected.)");
    EXPECT_TRUE(loud.IsDirty());
}

TEST(Sound, AnEditOfTheBytesShowsInTheTracksAndSurvivesASave) {
    AGISound sound;
    LoadBytes(sound, oneNote);
    sound.MIDIData();
    sound.Data(12, 0x95);
    EXPECT_TRUE(sound.IsDirty());
    TempDir dir;
    sound.Export(dir.File("a.agi"));
    EXPECT_EQ(dir.Read("a.agi")[12], 0x95);
    sound.Data(12, 0x96);
    EXPECT_EQ(NotesText(sound), "190/6/30; ; ; ");
    EXPECT_EQ(sound.MIDIData()[14 + 8 + 3 + 8 + 3], (15 - 6) * 127 / 15);

    AGISound sample;
    LoadBytes(sample, "01 00 00 *60");
    sample.Data(58, 77);
    sample.Export(dir.File("b.agi"));
    EXPECT_EQ(dir.Read("b.agi")[58], 77);
    EXPECT_EQ(sample.MIDIData()[48], 77);
    EXPECT_EQ(NotesText(sample), "; ; ; ");
    EXPECT_GT(sample.Length(), 0);
}

TEST(Sound, ClearAndUnloadLeaveTheirStates) {
    AGISound sound;
    LoadBytes(sound, oneNote);
    sound.Key(3);
    sound.Clear();
    EXPECT_EQ(sound.AllData(), EmptySoundBytes());
    EXPECT_EQ(NotesText(sound), "; ; ; ");
    EXPECT_EQ(sound.Track(0)->Instrument(), 0);
    EXPECT_TRUE(sound.DataDirty() && sound.Length() == 0);
    sound.Unload();
    EXPECT_TRUE(sound.Length() == -1 && sound.SndFormat() == 0 && sound.Key() == 3);
    for (const auto& step : std::vector<std::function<void()>>{
             [&] { sound.Clear(); }, [&] { sound.MIDIData(); }, [&] { sound.Export("x"); },
             [&] { sound.Save("x"); }, [&] { sound.PlaySound(); }, [&] { sound.StopSound(); },
             [&] { sound.Track(0); }}) {
        EXPECT_EQ(RaisedId(step), 563);
    }
    EXPECT_EQ(RaisedText([&] { sound.Track(4); }), "Index out of bounds");
}

TEST(Sound, SetSoundCopiesAllButThePlace) {
    AGISound source;
    LoadBytes(source, oneNote);
    source.ID("Tune");
    source.Description("words");
    source.TPQN(32);
    source.Track(0)->Instrument(5);
    source.Track(3)->Muted(true);
    source.Track(1)->Notes()->Add(7, 8, 9);
    AGISound copy;
    copy.SetSound(source);
    EXPECT_EQ(Summary(copy), Summary(source));
    EXPECT_EQ(copy.AllData(), source.AllData());
    EXPECT_TRUE(copy.DataDirty() && copy.WritePropState());
    copy.Track(1)->Notes()->Clear();
    EXPECT_EQ(source.Track(1)->Notes()->Count(), 1);
    source.Track(3)->Instrument(6);
    copy.SetSound(source);
    EXPECT_EQ(copy.Track(3)->Instrument(), 80) << "noise has no instrument";
    source.Unload();
    copy.SetSound(source);
    EXPECT_FALSE(copy.Loaded());
}

}  // namespace zorvex::test
