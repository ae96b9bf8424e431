#include "tests/sound/SoundSupport.h"
#include "tests/support/ExpectedGame.h"
#include "zorvex/game/Helpers.h"

namespace zorvex::test {
namespace {

/// Calls a function with every sound of every real game, loaded, and its expectation.
template <class Step>
void ForEachRealSound(Step step) {
    std::size_t count = 0;
    for (const std::string& name : ExpectedGame::Names()) {
        const ExpectedGame game(name);
        for (const auto& expected : game.Resources("sound")) {
            SCOPED_TRACE(name + " sound " + expected.at("number").dump());
            AGISound sound;
            ExpectedGame::Place(sound, expected);
            sound.Load();
            step(sound, expected);
            ++count;
        }
    }
    if (count == 0) GTEST_SKIP() << "the real games are not here; set ZORVEX_GAMES to where they are";
}

TEST(RealSounds, HaveTheExpectedNotesAndMidiFiles) {
    ForEachRealSound([](AGISound& sound, const nlohmann::json& expected) {
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
    ForEachRealSound([&](AGISound& sound, const nlohmann::json&) {
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

}  // namespace
}  // namespace zorvex::test
