#include "zorvex/platform/FilePlayer.h"

#ifdef ZORVEX_WITH_SDL2_MIXER

#include <SDL.h>
#include <SDL_mixer.h>
#include <dlfcn.h>

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

/// The functions of the mixer, found when the first sound is played: a program that plays none starts without
/// it, and needs no package for it.
struct Mixer {
#define ZORVEX_MIXER_FUNCTION(library, name) \
    decltype(&::name) name = Function<decltype(&::name)>(library, #name)
    static void* Open(const char* file) {
        return dlopen(file, RTLD_NOW | RTLD_LOCAL);
    }
    template <class Pointer>
    static Pointer Function(void* library, const char* name) {
        return library == nullptr ? nullptr : reinterpret_cast<Pointer>(dlsym(library, name));
    }

    void* mixer = Open("libSDL2_mixer-2.0.so.0");
    void* base = mixer == nullptr ? nullptr : Open("libSDL2-2.0.so.0");
    ZORVEX_MIXER_FUNCTION(base, SDL_SetHint);
    ZORVEX_MIXER_FUNCTION(base, SDL_InitSubSystem);
    ZORVEX_MIXER_FUNCTION(base, SDL_QuitSubSystem);
    ZORVEX_MIXER_FUNCTION(base, SDL_GetError);
    ZORVEX_MIXER_FUNCTION(base, SDL_RWFromFile);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_OpenAudio);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_CloseAudio);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_SetSoundFonts);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_LoadMUSType_RW);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_PlayMusic);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_PlayingMusic);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_HaltMusic);
    ZORVEX_MIXER_FUNCTION(mixer, Mix_FreeMusic);
#undef ZORVEX_MIXER_FUNCTION

    bool IsThere() const {
        return SDL_SetHint && SDL_InitSubSystem && SDL_QuitSubSystem && SDL_GetError && SDL_RWFromFile &&
               Mix_OpenAudio && Mix_CloseAudio && Mix_SetSoundFonts && Mix_LoadMUSType_RW && Mix_PlayMusic &&
               Mix_PlayingMusic && Mix_HaltMusic && Mix_FreeMusic;
    }
};

const Mixer& TheMixer() {
    static const Mixer mixer;
    return mixer;
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
        mix_.SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // an interrupt is the host's to handle
        if (mix_.SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return Fail(meNoAudio, mix_.SDL_GetError());
        audio_ = true;
        if (mix_.Mix_OpenAudio(sampleRate, MIX_DEFAULT_FORMAT, channels, bufferSize) != 0) {
            return Fail(meNoAudio, mix_.SDL_GetError());
        }
        mixer_ = true;
        if (isMidi) mix_.Mix_SetSoundFonts(soundFont.c_str());
        SDL_RWops* file = mix_.SDL_RWFromFile(NativePath(path).c_str(), "rb");
        if (file == nullptr) return meFile;
        music_ = mix_.Mix_LoadMUSType_RW(file, isMidi ? MUS_MID : MUS_WAV, 1);
        return music_ == nullptr ? Fail(meFormat, mix_.SDL_GetError()) : meNone;
    }

    MediaError StartPlaying() override {
        return mix_.Mix_PlayMusic(music_, 1) != 0 ? Fail(mePlay, mix_.SDL_GetError()) : meNone;
    }

    std::optional<std::int32_t> Ended() override {
        if (mix_.Mix_PlayingMusic() != 0) return std::nullopt;
        return NoticeSuccessful;
    }

    void CloseFile() override {
        if (music_ != nullptr) {
            mix_.Mix_HaltMusic();
            mix_.Mix_FreeMusic(music_);
        }
        if (mixer_) mix_.Mix_CloseAudio();
        if (audio_) mix_.SDL_QuitSubSystem(SDL_INIT_AUDIO);
        music_ = nullptr;
        mixer_ = false;
        audio_ = false;
    }

  private:
    static constexpr int sampleRate = 44100;
    static constexpr int channels = 2;
    static constexpr int bufferSize = 2048;

    const Mixer& mix_ = TheMixer();
    Mix_Music* music_ = nullptr;
    bool mixer_ = false;
    bool audio_ = false;
};

}  // namespace

std::shared_ptr<Media> MakeMixerMedia() {
    return TheMixer().IsThere() ? std::make_shared<MixerMedia>() : nullptr;
}

}  // namespace zorvex

#else

namespace zorvex {

std::shared_ptr<Media> MakeMixerMedia() {
    return nullptr;
}

}  // namespace zorvex

#endif
