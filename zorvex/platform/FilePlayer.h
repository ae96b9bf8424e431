// What the players have in common: the command strings, the one open sound, and the texts of the codes.
// Internal to this folder.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "zorvex/platform/Media.h"

namespace zorvex {

/// Codes of FilePlayer and of the players made from it.
enum MediaError : std::int32_t {
    meNone = 0,
    meCommand = 1,
    meDevice = 2,
    meAlias = 3,
    meFile = 4,
    meNoAudio = 5,
    meNoSoundFont = 6,
    meBadSoundFont = 7,
    meFormat = 8,
    mePlay = 9
};

/// Takes the command strings apart and leaves opening, playing and closing one file to the player proper.
class FilePlayer : public Media, public std::enable_shared_from_this<FilePlayer> {
  public:
    std::int32_t SendString(std::string_view command, const std::shared_ptr<NoticeWindow>& callback) override;
    std::string ErrorText(std::int32_t code) const override;

  protected:
    enum class Device : std::uint8_t { Sequencer, WaveAudio };

    /// `path` is an inner path to an existing file.
    virtual MediaError OpenFile(const std::string& path, Device device) = 0;
    virtual MediaError StartPlaying() = 0;
    /// While playing: the first parameter of the notice once play has ended.
    virtual std::optional<std::int32_t> Ended() = 0;
    /// Stops at once and gives back what the player holds. Also called when nothing is open.
    virtual void CloseFile() = 0;

    /// A player calls this from its destructor, as long as its own CloseFile is there to be called.
    void CloseAll();
    /// Keeps what an outside library said, for ErrorText, and returns the code.
    MediaError Fail(MediaError code, std::string_view detail);

  private:
    MediaError Open(std::string_view arguments);
    MediaError Play(std::string_view arguments, const std::shared_ptr<NoticeWindow>& callback);

    mutable std::mutex mutex_;  // a pump of the window asks from another thread, perhaps
    std::optional<std::string> alias_;
    std::shared_ptr<NoticeWindow> window_;  // while playing with notice
    std::int32_t watch_ = 0;
    std::string detail_;
};

/// The player that can be heard; none where the library was built without SDL2_mixer.
std::shared_ptr<Media> MakeMixerMedia();

}  // namespace zorvex
