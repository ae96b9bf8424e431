#include "tests/sound/SoundSupport.h"
#include "tests/support/RealGames.h"

namespace zorvex::test {

TEST(RealSounds, HaveTheExpectedNotesAndMidiFiles) {
    ForEachReal<AGISound>([](AGISound& sound, const nlohmann::json& expected) {
        sound.Load();
        nlohmann::json notes = nlohmann::json::array();
        for (int track = 0; track < 4; ++track)
            notes.push_back(sound.Track(track)->Notes()->Count());
        EXPECT_EQ(sound.SndFormat(), expected.at("sndFormat"));
        EXPECT_EQ(notes, expected.at("notes"));
        EXPECT_EQ(HexPad(CRC32(sound.MIDIData()), 8), expected.at("midiCrc32"));
    });
}

TEST(RealSounds, ComeBackFromBytesAndScriptsOfOurOwn) {
    const TempDir dir;
    ForEachReal<AGISound>([&](AGISound& sound, const nlohmann::json&) {
        sound.Load();
        const ByteArray bytes = sound.AllData();
        sound.DataDirty(true);
        sound.Export(dir.File("out.agi"));
        const ByteArray written = dir.Read("out.agi");
        ASSERT_EQ(written.size(), bytes.size());
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            // Some noise notes lack the voice bits that ours have; they are not looked at.
            EXPECT_TRUE(written[i] == bytes[i] || (written[i] == 0xE0 && bytes[i] == 0)) << i;
        }
        sound.Export(dir.File("out.ass"), sfUndefined);
        AGISound copy;
        copy.Import(dir.File("out.ass"));
        bool keepsAll = true;  // a script drops tones of no duration
        for (int track = 0; track < 3; ++track) {
            for (const auto& note : *sound.Track(track)->Notes())
                keepsAll = keepsAll && note->Duration() > 0;
        }
        EXPECT_EQ(copy.MIDIData() == sound.MIDIData(), keepsAll);
    });
}

}  // namespace zorvex::test
