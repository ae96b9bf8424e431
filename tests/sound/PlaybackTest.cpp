#include "tests/sound/SoundSupport.h"
#include "tests/support/FailingFiles.h"
#include "zorvex/base/Internal.h"
#include "zorvex/sound/SndSubclass.h"

namespace zorvex::test {
namespace {

using std::chrono::milliseconds;

/// A player that keeps the commands it gets, and fails where it is told to.
class RecordingMedia : public Media {
  public:
    std::vector<std::string> Commands;
    std::map<std::string, std::int32_t> Fail;  // by the first word of the command
    std::string File;                          // the last one opened
    ByteArray FileBytes;
    bool HasCallback = false;

    std::int32_t SendString(std::string_view command,
                            const std::shared_ptr<NoticeWindow>& callback) override {
        Commands.emplace_back(command);
        const std::string word(command.substr(0, command.find(' ')));
        if (word == "open") {
            File = command.substr(5, command.find(" type ") - 5);
            FileBytes = Files().Read(File);
        }
        HasCallback = callback != nullptr;
        return Fail[word];
    }
    std::string ErrorText(std::int32_t code) const override {
        return "  device trouble " + std::to_string(code) + "  ";
    }
};

/// A recording player and files in memory, in use for the time of the test, and what a sound has told.
class Playback : public ::testing::Test {
  protected:
    Playback() : before_(UseMedia(media)) {
        sound->ID("My Sound 1");
        sound->Track(0)->Notes()->Add(190, 30, 0);
        subscription_ = sound->SoundComplete.Subscribe([this](bool noError) {
            told.push_back(noError);
            if (onComplete) onComplete();
        });
    }
    ~Playback() override {
        sound.reset();
        UseMedia(before_);
    }

    static void Post(std::int32_t first) {
        MainNoticeWindow()->Post({MediaNotice, first, 0});
        PumpNotices();
    }

    MemoryFiles files;
    std::shared_ptr<RecordingMedia> media = std::make_shared<RecordingMedia>();
    std::shared_ptr<AGISound> sound = std::make_shared<AGISound>();
    std::vector<bool> told;
    std::function<void()> onComplete;

  private:
    std::shared_ptr<Media> before_;
    Subscription subscription_;
};

TEST_F(Playback, SendsItsCommandsAndHearsOfTheEnd) {
    sound->PlaySound();
    ASSERT_EQ(media->Commands.size(), 2U);
    EXPECT_EQ(media->Commands[0], "open " + media->File + " type sequencer alias My_Sound_1");
    EXPECT_EQ(media->Commands[1], "play My_Sound_1 notify");
    EXPECT_TRUE(media->HasCallback);
    EXPECT_EQ(media->FileBytes, sound->MIDIData());

    AGISound other;
    EXPECT_EQ(RaisedText([&] { other.PlaySound(); }),
              "Can't play this sound because another sound is already playing.");
    EXPECT_EQ(media->Commands.size(), 2U);

    onComplete = [&] { EXPECT_EQ(RaisedId([&] { other.PlaySound(); }), 629); };
    Post(NoticeSuccessful);
    EXPECT_EQ(media->Commands.back(), "close all");
    EXPECT_EQ(told, std::vector<bool>{true});
    EXPECT_TRUE(files->All().empty());
    Post(NoticeSuccessful);  // nothing plays, so nobody is told
    EXPECT_EQ(told.size(), 1U);

    onComplete = [] { RaiseRuntime(reOverflow); };
    sound->PlaySound();
    Post(NoticeFailure);
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
    sound->PlaySound();  // a fault of a handler does not stand in the way
    sound->StopSound();

    for (const auto& [bytes, device] : {std::pair("01 00 00 *60", "waveaudio"), {"02 00 FC", "sequencer"}}) {
        LoadBytes(other, std::string_view(bytes));
        other.PlaySound();
        EXPECT_EQ(*(media->Commands.end() - 2),
                  "open " + media->File + " type " + device + " alias NewSound");
        other.StopSound();
    }
}

TEST_F(Playback, AHandlerCannotStopWhatHasEndedToPlayTheNext) {
    AGISound other;
    onComplete = [&] {
        sound->StopSound();
        EXPECT_EQ(RaisedId([&] { other.PlaySound(); }), 629);
    };
    sound->PlaySound();
    Post(NoticeSuccessful);
    other.PlaySound();
    EXPECT_EQ(RaisedId([&] { sound->PlaySound(); }), 629) << "the state is that of the new sound";
    other.StopSound();
    onComplete = [&] { sound.reset(); };
    sound->PlaySound();
    Post(NoticeSuccessful);
    EXPECT_EQ(told.size(), 2U);
    EXPECT_NO_THROW(other.PlaySound()) << "a sound that goes in its own handler leaves the player free";
}

TEST_F(Playback, StopsWithoutTellingAnybody) {
    sound->StopSound();
    EXPECT_TRUE(media->Commands.empty());
    sound->PlaySound();
    AGISound other;
    other.StopSound();
    EXPECT_EQ(media->Commands.back(), "close all");
    Post(4);
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(files->All().empty());
    sound->PlaySound();
    sound.reset();
    EXPECT_EQ(media->Commands.back(), "close all");
    EXPECT_EQ(PresentSoundPlayer(), nullptr);
}

TEST_F(Playback, AFailedStartLeavesNothingPlaying) {
    const auto failure = [&](const char* word, std::int32_t code) {
        media->Fail = {{word, code}};
        const auto error = RaisedBy([&] { sound->PlaySound(); });
        return error ? error->Source() + " " + std::to_string(error->Id()) + ": " + error->Description() : "";
    };
    EXPECT_EQ(failure("open", 7), "SndSubclass 678: device trouble 7");
    EXPECT_EQ(media->Commands.size(), 1U);
    EXPECT_EQ(failure("play", 9), "SndSubclass 628: PlaySound error: device trouble 9");
    EXPECT_EQ(media->Commands.back(), "close all");
    media->Fail.clear();
    sound->PlaySound();
    EXPECT_TRUE(told.empty());
}

TEST_F(Playback, ASoundOfAGamePlaysOnWhenTheGameCloses) {
    const OpenPropertyList game;
    sound->Resource().Init(Internal(), 3, -1, -1);
    sound->PlaySound();
    const std::weak_ptr<AGISound> watched = sound;
    sound.reset();
    Library().Sounds->ClearCollection(Internal());
    EXPECT_FALSE(watched.expired());
    Post(NoticeSuccessful);
    EXPECT_EQ(told, std::vector<bool>{true});
    EXPECT_TRUE(watched.expired());
}

TEST(SilentMedia, TakesAsLongAsTheSound) {
    const auto before = UseMedia(MakeSilentMedia());
    AGISound sound;
    LoadBytes(sound, "02 00 06 90 3C 7F 03 80 3C 00 FC");  // 9 ticks
    const auto start = std::chrono::steady_clock::now();
    sound.PlaySound();
    EXPECT_EQ(PumpNotices(), 0);
    EXPECT_EQ(PumpNotices(milliseconds(5000)), 1);
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(150));
    sound.PlaySound();
    sound.StopSound();
    EXPECT_EQ(PumpNotices(milliseconds(200)), 0);
    UseMedia(before);
}

TEST(SilentMedia, TellsWhatItCannotDo) {
    const TempDir dir;
    dir.Write("a file type x.mid", BytesOfText("\"MThd\" 00 00"));
    const std::string path = dir.File("a file type x.mid");
    const auto media = MakeSilentMedia();
    std::string done;
    for (const std::string& command :
         {"open " + path + " type tape alias a", std::string("open"),
          "open " + path + "x type sequencer alias a", std::string("play a"), std::string("rewind a"),
          "open " + path + " type sequencer alias a", std::string("play A notify"), std::string("close all"),
          std::string("play a")}) {
        const std::int32_t code = media->SendString(command, nullptr);
        EXPECT_EQ(code == 0, media->ErrorText(code) == "No error");
        done += code == 0 ? 'y' : 'n';
    }
    EXPECT_EQ(done, "nnnnnyyyn");
}

}  // namespace
}  // namespace zorvex::test
