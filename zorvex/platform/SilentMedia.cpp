#include <chrono>

#include "zorvex/platform/FilePlayer.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex {

namespace {

class SilentMedia : public FilePlayer {
  public:
    ~SilentMedia() override { CloseAll(); }

  protected:
    MediaError OpenFile(const std::string& path, Device) override {
        try {
            length_ = std::chrono::duration<double>(MediaSeconds(Files().Read(path)));
            return meNone;
        } catch (...) {  // whatever keeps the file from being read, there is nothing to play
            return meFile;
        }
    }
    MediaError StartPlaying() override {
        end_ = Clock::now() + std::chrono::duration_cast<Clock::duration>(length_);
        return meNone;
    }
    std::optional<std::int32_t> Ended() override {
        if (Clock::now() < end_) return std::nullopt;
        return NoticeSuccessful;
    }
    void CloseFile() override {}

  private:
    using Clock = std::chrono::steady_clock;

    std::chrono::duration<double> length_{};
    Clock::time_point end_;
};

}  // namespace

std::shared_ptr<Media> MakeSilentMedia() {
    return std::make_shared<SilentMedia>();
}

}  // namespace zorvex
