#include "zorvex/platform/Media.h"

#include "zorvex/platform/FilePlayer.h"

namespace zorvex {

namespace {

std::shared_ptr<Media>& MediaSlot() {
    static std::shared_ptr<Media> media;
    return media;
}

}  // namespace

std::shared_ptr<Media> MediaInUse() {
    std::shared_ptr<Media>& media = MediaSlot();
    if (media == nullptr) media = MakeSystemMedia();
    return media;
}

std::shared_ptr<Media> UseMedia(std::shared_ptr<Media> media) {
    return std::exchange(MediaSlot(), std::move(media));
}

std::shared_ptr<Media> MakeSystemMedia() {
    std::shared_ptr<Media> mixer = MakeMixerMedia();
    return mixer != nullptr ? mixer : MakeSilentMedia();
}

}  // namespace zorvex
