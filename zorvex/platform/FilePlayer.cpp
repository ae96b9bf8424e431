#include "zorvex/platform/FilePlayer.h"

#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex {

namespace {

constexpr std::array<std::string_view, 10> errorTexts{
    "No error",
    "The player does not know the command",
    "The player does not know this type of device",
    "Nothing is open under this name",
    "The file with the sound cannot be read",
    "No audio device can be opened",
    "No SoundFont was found to play MIDI with; install one or name its file in ZORVEX_SOUNDFONT",
    "The file named as SoundFont is none",
    "The player cannot read the sound",
    "The player cannot start the sound",
};

// Cuts a word and the blank behind it off the front; false, and nothing cut, when the text begins with
// another.
bool TakeWord(std::string_view& text, std::string_view word) {
    if (!StartsWithNoCase(text, word) || text.substr(word.size(), 1) != " ") return false;
    text.remove_prefix(word.size() + 1);
    return true;
}

}  // namespace

std::int32_t FilePlayer::SendString(std::string_view command, const std::shared_ptr<NoticeWindow>& callback) {
    const std::scoped_lock lock(mutex_);
    if (EqualNoCase(Trim(command), "close all")) {
        CloseAll();
        return meNone;
    }
    if (TakeWord(command, "open")) return Open(command);
    if (TakeWord(command, "play")) return Play(command, callback);
    return meCommand;
}

std::string FilePlayer::ErrorText(std::int32_t code) const {
    const std::scoped_lock lock(mutex_);
    if (code < 0 || std::cmp_greater_equal(code, errorTexts.size())) return "Unknown error";
    std::string text(errorTexts[static_cast<std::size_t>(code)]);
    const bool hasDetail = code == meNoAudio || code == meBadSoundFont || code == meFormat || code == mePlay;
    if (hasDetail && !detail_.empty()) text += " (" + detail_ + ")";
    return text;
}

MediaError FilePlayer::Fail(MediaError code, std::string_view detail) {
    detail_ = detail;
    return code;
}

// A path may hold blanks, so the words behind it are looked for from the end.
MediaError FilePlayer::Open(std::string_view arguments) {
    constexpr std::string_view aliasWord = " alias ";
    constexpr std::string_view typeWord = " type ";
    const std::size_t aliasAt = arguments.rfind(aliasWord);
    if (aliasAt == std::string_view::npos) return meCommand;
    const std::size_t typeAt = arguments.substr(0, aliasAt).rfind(typeWord);
    if (typeAt == std::string_view::npos) return meCommand;
    const std::string_view type =
        arguments.substr(typeAt + typeWord.size(), aliasAt - typeAt - typeWord.size());
    const bool isSequencer = EqualNoCase(type, "sequencer");
    if (!isSequencer && !EqualNoCase(type, "waveaudio")) return meDevice;
    const std::string path(arguments.substr(0, typeAt));
    if (path.empty() || Files().Kind(path) != FileKind::File) return meFile;
    CloseAll();
    const MediaError error = OpenFile(path, isSequencer ? Device::Sequencer : Device::WaveAudio);
    if (error != meNone) {
        CloseFile();
        return error;
    }
    alias_ = arguments.substr(aliasAt + aliasWord.size());
    return meNone;
}

MediaError FilePlayer::Play(std::string_view arguments, const std::shared_ptr<NoticeWindow>& callback) {
    constexpr std::string_view notifyWord = " notify";
    const bool notify = arguments.ends_with(notifyWord);
    if (notify) arguments.remove_suffix(notifyWord.size());
    if (!alias_ || !EqualNoCase(*alias_, arguments)) return meAlias;
    const MediaError error = StartPlaying();
    if (error == meNone && notify && callback != nullptr) {
        window_ = callback;
        watch_ = window_->AddWatch([weak = weak_from_this()]() -> std::optional<Notice> {
            const std::shared_ptr<FilePlayer> player = weak.lock();
            if (player == nullptr) return std::nullopt;
            const std::scoped_lock lock(player->mutex_);
            const std::optional<std::int32_t> ended = player->Ended();
            if (!ended) return std::nullopt;
            return Notice{MediaNotice, *ended, 0};
        });
    }
    return error;
}

void FilePlayer::CloseAll() {
    if (window_ != nullptr) window_->RemoveWatch(watch_);
    window_.reset();
    alias_.reset();
    CloseFile();
}

}  // namespace zorvex
