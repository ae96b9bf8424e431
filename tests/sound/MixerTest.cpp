#include <cmath>
#include <cstdlib>

#include "tests/sound/SoundSupport.h"
#include "zorvex/platform/FilePlayer.h"

namespace zorvex::test {
namespace {

using std::chrono::milliseconds;

/// An environment variable for the time of the test.
class Environment {
  public:
    Environment(const char* name, const std::string& value) : name_(name) {
        const char* before = std::getenv(name);
        if (before != nullptr) before_ = before;
        setenv(name, value.c_str(), 1);
    }
    ~Environment() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    const char* name_;
    std::optional<std::string> before_;
};

/// The player that is heard, in use for the time of the test, writing what would be heard to a file.
class Mixer : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto mixer = MakeMixerMedia();
        if (mixer == nullptr) GTEST_SKIP() << "built without SDL2_mixer";
        before_ = UseMedia(mixer);
    }
    void TearDown() override { UseMedia(before_); }

    /// Plays a sound for at most a time and gives the loudest sample of the output.
    int Loudest(AGISound& sound, milliseconds limit) {
        sound.PlaySound();
        ended = PumpNotices(limit) == 1;
        sound.StopSound();
        const ByteArray raw = dir.Read("out.raw");
        int loudest = 0;
        for (std::size_t i = 0; i + 1 < raw.size(); i += 2) {
            loudest = std::max(loudest, std::abs(static_cast<std::int16_t>(raw[i] | raw[i + 1] << 8)));
        }
        return loudest;
    }

    TempDir dir;
    bool ended = false;

  private:
    Environment driver_{"SDL_AUDIODRIVER", "disk"};
    Environment file_{"SDL_DISKAUDIOFILE", dir.Native() + "/out.raw"};
    Environment delay_{"SDL_DISKAUDIODELAY", "2"};
    std::shared_ptr<Media> before_;
};

TEST_F(Mixer, PlaysNotesThatCanBeHeard) {
    AGISound sound;
    sound.Track(0)->Notes()->Add(254, 60, 0);
    try {
        EXPECT_GT(Loudest(sound, milliseconds(8000)), 1000);
    } catch (const Error& error) {
        if (error.Description().find("SoundFont") == std::string::npos) throw;
        GTEST_SKIP() << error.Description();
    }
    EXPECT_TRUE(ended);

    AGISound silent;
    silent.Track(0)->Notes()->Add(254, 20, 15);
    EXPECT_LT(Loudest(silent, milliseconds(8000)), 100);
}

TEST_F(Mixer, PlaysSamplesThatCanBeHeard) {
    ByteArray resource = BytesOfText("01 00 00 *52");
    for (int i = 0; i < 4000; ++i)
        resource.push_back(static_cast<std::uint8_t>(128 + 100 * std::sin(i * 0.3)));
    AGISound sound;
    LoadBytes(sound, resource);
    EXPECT_GT(Loudest(sound, milliseconds(8000)), 10000);
    EXPECT_TRUE(ended);
}

TEST_F(Mixer, SaysWhatIsMissing) {
    AGISound sound;
    const auto text = [&] { return RaisedText([&] { sound.PlaySound(); }); };
    dir.Write("bad.sf2", std::string("no SoundFont at all"));
    for (const char* font : {"/none.sf2", "/bad.sf2"}) {
        const Environment named("ZORVEX_SOUNDFONT", dir.Native() + font);
        EXPECT_EQ(text(), "The file named as SoundFont is none (" + dir.Native() + font + ")");
    }
    LoadBytes(sound, "01 00 00 *60");
    const Environment driver("SDL_AUDIODRIVER", "nowhere");
    EXPECT_EQ(text().find("No audio device can be opened ("), 0U);
    EXPECT_FALSE(dir.Exists("out.raw"));
}

}  // namespace
}  // namespace zorvex::test
