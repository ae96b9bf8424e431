#include "zorvex/platform/Media.h"

#include <mutex>

#include "zorvex/platform/FilePlayer.h"

namespace zorvex {

namespace {

/// The player in use, with the lock that guards the pointer.
struct Slot {
    std::mutex mutex;
    std::shared_ptr<Media> media;
};

Slot& TheSlot() {
    static Slot slot;
    return slot;
}

}  // namespace

std::shared_ptr<Media> MediaInUse() {
    Slot& slot = TheSlot();
    const std::scoped_lock lock(slot.mutex);
    if (slot.media == nullptr) slot.media = MakeSystemMedia();
    return slot.media;
}

std::shared_ptr<Media> UseMedia(std::shared_ptr<Media> media) {
    Slot& slot = TheSlot();
    const std::scoped_lock lock(slot.mutex);
    return std::exchange(slot.media, std::move(media));
}

std::shared_ptr<Media> MakeSystemMedia() {
    std::shared_ptr<Media> mixer = MakeMixerMedia();
    return mixer != nullptr ? mixer : MakeSilentMedia();
}

}  // namespace zorvex
