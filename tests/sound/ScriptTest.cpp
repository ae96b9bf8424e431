#include "tests/sound/SoundSupport.h"

namespace zorvex::test {

TEST(SoundScript, Cases) {
    RunCases("sound-script", [](const CaseFile& file) {
        TempDir dir;
        // "~" stands for a blank at the end of a line.
        dir.Write("in.ass", ReplaceAll(file.Section("input"), "~", " "));
        AGISound sound;
        sound.Track(1)->Notes()->Add(1, 1, 1);
        sound.Key(5);
        sound.Import(dir.File("in.ass"));
        EXPECT_EQ(sound.IsDirty(), file.Setting("saved") == "no") << "settings that cannot be read";
        AGISound again;
        sound.Export(dir.File("in.ass"), sfScript);
        sound.Key(0);
        again.Import(dir.File("in.ass"));
        EXPECT_EQ(Summary(again), Summary(sound));
        return Summary(again);
    });
}

TEST(SoundScript, AFourthToneIsTheNoiseTrack) {
    const TempDir dir;
    dir.Write("in.ass", "tone\rtone\rtone\rtone\r2,1,5");
    AGISound sound;
    sound.Import(dir.File("in.ass"));
    EXPECT_EQ(NotesText(sound), "; ; ; 2/1/5") << "where short lines are periodic";
}

TEST(SoundScript, TheDocumentedExampleIsRead) {
    const TempDir dir;
    dir.Write("bell.ass", DocumentedBlock("sound-script.md", "script"));
    AGISound sound;
    sound.Import(dir.File("bell.ass"));
    EXPECT_EQ(Summary(sound),
              "id=bell.ass key=0 tpqn=16 description=[A bell]\n"
              "0 instrument 14 visible: 190/0/30 254/2/60\n1 instrument 0 visible: \n"
              "2 instrument 0 visible: \n3 instrument 0 visible: 5/2/6 6/15/60\n");
    EXPECT_FALSE(sound.IsDirty());
}

TEST(SoundScript, ABadLineLeavesNothing) {
    const TempDir dir;
    for (const char* bad :
         {"f, 0, 0, 60", "f, 100, 0, 60", "a, 1024, 0, 60", "-1, 0, 60", "1, 16, 60", "1, 1, 65536", "1, 1",
          "w, 1, 1, 1", "a , 1, 1, 1", ", 1, 1, 1", "noise\na,1,1,1", "noise\n1,1,1", "noise\nnoise",
          "tone\ntone\ntone\ntone\n1,1,1", "99999999999999999999,1,1"}) {
        SCOPED_TRACE(bad);
        dir.Write("in.ass", "##Description=gone\n##key=2\ntone\n1,2,3\n" + std::string(bad));
        AGISound sound;
        EXPECT_EQ(RaisedText([&] { sound.Import(dir.File("in.ass")); }), "Invalid sound resource file");
        EXPECT_GE(sound.ImportErrorLine(), 5);
        EXPECT_EQ(sound.ID() + sound.Description(), "");
        EXPECT_EQ(sound.MIDIData().size(), 38U) << "notes were left";
    }
    dir.Write("in.ass", std::string("1,2,3"));
    EXPECT_EQ(RaisedId([&] { AGISound().Import(dir.File("in.ass")); }), 681);
}

TEST(SoundScript, IsWrittenAsStated) {
    AGISound sound;
    sound.Description("One\r\ntwo \xC3\xA9");
    sound.Track(0)->Notes()->Add(100, 30, 2);
    sound.Track(0)->Notes()->Add(101, 31, 3);
    sound.Track(1)->Muted(true);
    sound.Track(2)->Visible(false);
    sound.Track(2)->Instrument(7);
    sound.Track(3)->Notes()->Add(6, 5, 4);
    sound.Track(3)->Notes()->Add(1, 0, 0);
    TempDir dir;
    sound.Export(dir.File("My tune.ass"), sfUndefined);
    EXPECT_EQ(dir.ReadText("My tune.ass"),
              ReplaceAll("# agi script file\n\n##Description=One  two \xC3\xA9\n##TPQN=16\n\n"
                         "# track 0\ntone\na, 100, 2, 30\n101, 3, 31\n"
                         "##instrument0=80\n##visible0=True\n##muted0=False\n\n"
                         "# track 1\ntone\n##instrument1=80\n##visible1=True\n##muted1=True\n\n"
                         "# track 2\ntone\n##instrument2=7\n##visible2=False\n##muted2=False\n\n"
                         "# track 3\nnoise\nw,2, 4, 5\np,1, 0, 0\n##visible3=True\n##muted3=False\n",
                         "\n", "\r\n"));
    EXPECT_EQ(sound.ID(), "My tune.ass");
    EXPECT_FALSE(sound.DataDirty());
}

TEST(Export, TakesTheFormatFromTheNameUnlessItIsGiven) {
    AGISound sound;
    sound.Track(0)->Notes()->Add(190, 30, 0);
    AGISound sample;
    LoadBytes(sample, "01 00 00 *60");
    TempDir dir;
    const auto begins = [&](AGISound& what, const std::string& name, SoundFormat format) -> std::string {
        const auto error = RaisedBy([&] { what.Export(dir.File(name), format); });
        return error ? error->Description() : dir.ReadText(name).substr(0, 4);
    };
    EXPECT_EQ(begins(sound, "a.MID", sfWAV), "MThd");
    EXPECT_EQ(begins(sound, "b.txt", sfUndefined).substr(0, 2), std::string("\x08\0", 2));
    EXPECT_EQ(begins(sound, "c.mid", sfAGI).substr(0, 2), std::string("\x08\0", 2));
    EXPECT_EQ(begins(sound, "d.agi", sfMIDI), "MThd");
    EXPECT_EQ(begins(sample, "e.wav", sfUndefined), "RIFF");
    EXPECT_EQ(begins(sound, "f.wav", sfWAV), "Can't export MIDI formatted sound resource as .WAV file");
    EXPECT_EQ(begins(sample, "f.mid", sfMIDI), "Can't export PCM formatted resource as MIDI file");
    EXPECT_EQ(begins(sample, "f.ass", sfScript),
              "Only PC/PCjr sound resources can be exported as script files");
    EXPECT_FALSE(dir.Exists("f.wav"));
    EXPECT_EQ(sample.ID(), "e.wav");
    EXPECT_NE(begins(sound, "no/such/x.mid", sfMIDI), "MThd");
}

TEST(Export, CountsTheSoundAsSavedWhereStated) {
    TempDir dir;
    AGISound sound;
    const auto dirtyAfter = [&](SoundFormat format, bool reset) {
        sound.Track(0)->Notes()->Add(190, 30, 0);
        sound.Export(dir.File("x"), format, reset);
        return sound.DataDirty();
    };
    EXPECT_TRUE(dirtyAfter(sfMIDI, true) && dirtyAfter(sfAGI, false) && dirtyAfter(sfScript, false));
    EXPECT_FALSE(dirtyAfter(sfAGI, true) || dirtyAfter(sfScript, true));
}

TEST(Import, ReadsRawResourcesAndRefusesScraps) {
    TempDir dir;
    dir.Write("tune.agi", BytesOfText("08 00 0F 00 11 00 13 00 1E 00 0B 8E 90 FF FF FF FF FF FF FF FF"));
    dir.Write("broken", BytesOfText("08 00 FF FF FF FF"));
    dir.Write("scrap", BytesOfText("08 00"));
    AGISound sound;
    sound.Key(4);
    sound.TPQN(64);
    sound.Import(dir.File("tune.agi"));
    EXPECT_EQ(Summary(sound),
              "id=tune.agi key=0 tpqn=16 description=[]\n0 instrument 80 visible: 190/0/30\n"
              "1 instrument 80 visible: \n2 instrument 80 visible: \n3 instrument 80 visible: \n");
    EXPECT_FALSE(sound.IsDirty());
    EXPECT_EQ(RaisedText([&] { sound.Import(dir.File("scrap")); }), "Invalid sound resource file");
    EXPECT_EQ(RaisedId([&] { sound.Import(dir.File("missing")); }), 524);
    EXPECT_EQ(sound.ID(), "tune.agi");
    EXPECT_EQ(RaisedId([&] { sound.Import(dir.File("broken")); }), 0);
    EXPECT_TRUE(sound.IsDirty());
    EXPECT_EQ(RaisedId([&] { sound.Track(0); }), 598);

    dir.Write("latin.ass", std::string("##Description=caf\xE9\r\ntone\r\n1,2,3"));
    sound.Unload();
    sound.Import(dir.File("latin.ass"));
    EXPECT_EQ(sound.Description(), "caf\xC3\xA9");
    EXPECT_EQ(NotesText(sound, 0), "1/2/3");
}

}  // namespace zorvex::test
