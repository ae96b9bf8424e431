#include "zorvex/platform/FilePlayer.h"

#ifdef ZORVEX_WITH_SDL2_MIXER

#include <SDL.h>
#include <SDL_mixer.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "zorvex/platform/FileSystem.h"

namespace zorvex {

namespace {

namespace fs = std::filesystem;

bool IsFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

// The first SoundFont of a directory by name, so that the choice is the same each time.
fs::path FirstSoundFont(const fs::path& directory) {
    fs::path first;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path extension = entry->path().extension();
        if (extension != ".sf2" && extension != ".sf3") continue;
        if (IsFile(entry->path()) && (first.empty() || entry->path() < first)) first = entry->path();
    }
    return first;
}

// The file that the environment names, whether it is there or not: that is for the user to hear of, and not
// to be passed over for another.
std::string NamedSoundFont() {
    for (const char* variable : {"ZORVEX_SOUNDFONT", "SDL_SOUNDFONTS"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

std::string InstalledSoundFont() {
    for (const char* directory : {"/usr/share/sounds/sf2", "/usr/share/sounds/sf3", "/usr/share/soundfonts",
                                  "/usr/local/share/soundfonts", "/usr/local/share/sounds/sf2"}) {
        const fs::path usual = fs::path(directory) / "default-GM.sf2";
        if (IsFile(usual)) return usual.string();
        if (const fs::path first = FirstSoundFont(directory); !first.empty()) return first.string();
    }
    return {};
}

// The synthesizer takes any file and then plays nothing, so the look inside is ours.
bool IsSoundFont(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, 12> head{};
    file.read(head.data(), head.size());
    const std::string_view text(head.data(), head.size());
    return file.good() && text.starts_with("RIFF") && text.ends_with("sfbk");
}

// Holds the audio device only while a file is open, so that an idle host keeps no device from other programs.
class MixerMedia : public FilePlayer {
  public:
    ~MixerMedia() override { CloseAll(); }

  protected:
    MediaError OpenFile(const std::string& path, Device device) override {
        const bool isMidi = device == Device::Sequencer;
        std::string soundFont;
        if (isMidi) {
            soundFont = NamedSoundFont();
            if (soundFont.empty()) soundFont = InstalledSoundFont();
            if (soundFont.empty()) return meNoSoundFont;
            if (!IsSoundFont(soundFont)) return Fail(meBadSoundFont, soundFont);
        }
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // an interrupt is the host's to handle
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return Fail(meNoAudio, SDL_GetError());
        audio_ = true;
        if (Mix_OpenAudio(sampleRate, MIX_DEFAULT_FORMAT, channels, bufferSize) != 0) {
            return Fail(meNoAudio, Mix_GetError());
        }
        mixer_ = true;
        if (isMidi) Mix_SetSoundFonts(soundFont.c_str());
        SDL_RWops* file = SDL_RWFromFile(NativePath(path).c_str(), "rb");
        if (file == nullptr) return meFile;
        music_ = Mix_LoadMUSType_RW(file, isMidi ? MUS_MID : MUS_WAV, 1);
        return music_ == nullptr ? Fail(meFormat, Mix_GetError()) : meNone;
    }

    MediaError StartPlaying() override {
        return Mix_PlayMusic(music_, 1) != 0 ? Fail(mePlay, Mix_GetError()) : meNone;
    }

    std::optional<std::int32_t> Ended() override {
        if (Mix_PlayingMusic() != 0) return std::nullopt;
        return NoticeSuccessful;
    }

    void CloseFile() override {
        if (music_ != nullptr) {
            Mix_HaltMusic();
            Mix_FreeMusic(music_);
        }
        if (mixer_) Mix_CloseAudio();
        if (audio_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
        music_ = nullptr;
        mixer_ = false;
        audio_ = false;
    }

  private:
    static constexpr int sampleRate = 44100;
    static constexpr int channels = 2;
    static constexpr int bufferSize = 2048;

    Mix_Music* music_ = nullptr;
    bool mixer_ = false;
    bool audio_ = false;
};

}  // namespace

std::shared_ptr<Media> MakeMixerMedia() {
    return std::make_shared<MixerMedia>();
}

}  // namespace zorvex

#else

namespace zorvex {

std::shared_ptr<Media> MakeMixerMedia() {
    return nullptr;
}

}  // namespace zorvex

#endif
