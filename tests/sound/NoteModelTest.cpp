#include "tests/sound/SoundSupport.h"
#include "zorvex/base/Internal.h"

namespace zorvex::test {
namespace {

TEST(Note, KeepsItsValueWhenItRefusesAnother) {
    const auto sound = std::make_shared<AGISound>();
    const auto note = sound->Track(0)->Notes()->Add(1023, 65535, 15);
    for (const std::int32_t bad : {-1, 70000}) {
        EXPECT_EQ(RaisedId([&] { note->FreqDivisor(bad); }), 6);
        EXPECT_EQ(RaisedId([&] { note->Duration(bad); }), 6);
        EXPECT_EQ(RaisedText([&] { note->Attenuation(bad); }), "Overflow");
    }
    sound->Track(0)->Notes()->Add(1024, 65536, 16);
    EXPECT_EQ(NotesText(*sound, 0), "1023/15/65535 0/0/0");
}

TEST(Notes, AddInsertsWherePossible) {
    AGINotes notes;
    notes.Add(1, 1, 1);
    notes.Add(2, 2, 2, 1);  // the count: at the end
    notes.Add(3, 3, 3, 0);
    notes.Add(4, 4, 4, 2);
    notes.Add(5, 5, 5, 99);
    std::string order;
    for (const auto& note : notes)
        order += std::to_string(note->FreqDivisor());
    EXPECT_EQ(order, "31425");

    EXPECT_EQ(RaisedText([&] { notes.Item(5); }), "Subscript out of range");
    EXPECT_EQ(RaisedId([&] { notes.Remove(5); }), 9);
}

/// What a change must leave behind.
struct Change {
    const char* name;
    std::function<void(AGISound&)> step;
    bool dirtyData;
    bool dirtySettings;
    bool newOutput;
};

TEST(Sound, EachChangeMarksWhatDependsOnIt) {
    const Change changes[] = {
        {"duration", [](AGISound& s) { s.Track(0)->Notes()->Item(0)->Duration(90); }, true, false, true},
        {"divisor", [](AGISound& s) { s.Track(0)->Notes()->Item(0)->FreqDivisor(5); }, true, false, true},
        {"attenuation", [](AGISound& s) { s.Track(3)->Notes()->Item(0)->Attenuation(9); }, true, false, true},
        {"add", [](AGISound& s) { s.Track(1)->Notes()->Add(9, 9, 9); }, true, false, true},
        {"clear", [](AGISound& s) { s.Track(0)->Notes()->Clear(); }, true, false, true},
        {"mute", [](AGISound& s) { s.Track(0)->Muted(true); }, false, true, true},
        {"instrument", [](AGISound& s) { s.Track(0)->Instrument(3); }, false, true, true},
        {"visible", [](AGISound& s) { s.Track(0)->Visible(false); }, false, true, false},
        {"key", [](AGISound& s) { s.Key(-7); }, false, true, false},
        {"same values", [](AGISound& s) { s.Track(0)->Muted(false), s.Track(0)->Instrument(80), s.Key(0); },
         false, false, false},
    };
    for (const Change& change : changes) {
        SCOPED_TRACE(change.name);
        AGISound sound;
        LoadBytes(sound, "08 00 0F 00 11 00 13 00 1E 00 0B 8E 90 FF FF FF FF FF FF 3C 00 00 E5 F1 FF FF");
        const ByteArray before = sound.MIDIData();
        EXPECT_EQ(sound.Length(), 1.0F);
        change.step(sound);
        EXPECT_EQ(sound.DataDirty(), change.dirtyData);
        EXPECT_EQ(sound.WritePropState(), change.dirtySettings);
        EXPECT_EQ(sound.IsDirty(), change.dirtyData || change.dirtySettings);
        EXPECT_EQ(sound.MIDIData() != before, change.newOutput);
    }
}

TEST(Sound, LengthCountsMutedTracksOnlyAsLongAsNothingChanged) {
    OpenPropertyList properties;
    Library().PropertyList->Assign("test.zvg\n[Sound12]\n   ID = Bell\n   Mute0 = True\n   Inst1 = 200\n",
                                   "\n");
    AGISound sound;
    sound.InitInGame(Internal(), 12, -1, -1);
    LoadBytes(sound, "08 00 0F 00 16 00 18 00 78 00 0B 8E 90 FF FF 3C 00 0B AE B0 FF FF FF FF FF FF");
    EXPECT_EQ(sound.Length(), 2.0F);
    EXPECT_EQ(sound.Track(0)->Length(), 2.0F);
    EXPECT_EQ(sound.Track(1)->Instrument(), 80);
    sound.Track(2)->Visible(false);
    EXPECT_EQ(sound.Length(), 1.0F);
    sound.Track(1)->Muted(true);
    EXPECT_EQ(sound.Length(), 0.0F);
    sound.Track(0)->Notes()->Item(0)->Duration(6);
    EXPECT_EQ(sound.Track(0)->Length(), 0.1F);
    sound.DataDirty(false);
    Library().PropertyList->Assign("test.zvg\n", "\n");
    sound.Save();
    EXPECT_TRUE(Has(properties.Text(),
                    "   ID = Bell\n   Description = \"\"\n   Key = 0\n   TPQN = 4\n"
                    "   Inst0 = 80\n   Inst1 = 80\n   Inst2 = 80\n   Mute0 = True\n"
                    "   Mute1 = True\n   Mute2 = False\n   Mute3 = False\n"
                    "   Visible0 = True\n   Visible1 = True\n   Visible2 = False\n"
                    "   Visible3 = True"));
}

TEST(Sound, ANoteThatLeftItsSoundTellsNobody) {
    AGISound sound;
    const auto track = sound.Track(0);
    const auto note = track->Notes()->Add(100, 10, 0);
    track->Notes()->Remove(0);
    sound.DataDirty(false);
    note->Duration(20);
    EXPECT_FALSE(sound.IsDirty());
    sound.Load();
    track->Notes()->Add(1, 1, 1);
    track->Muted(true);
    EXPECT_FALSE(sound.IsDirty());
    const auto orphan = std::make_shared<AGITrack>()->Notes()->Add(1, 60, 1);
    orphan->Duration(30);
}

TEST(Sound, EachNoteCanBeRemovedByItself) {
    for (std::int32_t removed = 0; removed < 4; ++removed) {
        AGINotes notes;
        for (std::int32_t divisor = 0; divisor < 4; ++divisor)
            notes.Add(divisor, 1, 0);
        notes.Remove(removed);
        std::string left;
        for (const auto& note : notes)
            left += std::to_string(note->FreqDivisor());
        EXPECT_EQ(left, std::string("0123").erase(static_cast<std::size_t>(removed), 1));
        EXPECT_EQ(notes.size(), 3U);
    }
}

TEST(Sound, SettersRefuseAndRound) {
    AGISound sound;
    EXPECT_EQ(RaisedText([&] { sound.Key(8); }), "Invalid property Value");
    sound.TPQN(18);
    EXPECT_EQ(sound.TPQN(), 16);
    EXPECT_FALSE(sound.IsDirty());
    for (const std::int32_t bad : {68, 3, -8})
        EXPECT_EQ(RaisedId([&] { sound.TPQN(bad); }), 380);
    EXPECT_EQ(RaisedId([&] { sound.Track(0)->Instrument(128); }), 380);
    EXPECT_EQ(RaisedId([&] { sound.Track(0)->Instrument(300); }), 6);
    sound.Description("A Bell");
    sound.Description("a bell");
    EXPECT_EQ(sound.Description(), "A Bell");
}

}  // namespace
}  // namespace zorvex::test
