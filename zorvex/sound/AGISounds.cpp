#include "zorvex/sound/AGISounds.h"

#include "zorvex/sound/SndSubclass.h"

namespace zorvex {

namespace {

constexpr CollectionFamily family{rtSound, "agiSounds", 651, 652, 0, true};

}  // namespace

AGISounds::AGISounds(const Internal& key) : ResourceCollection(key, family), player_(SoundPlayer()) {}

}  // namespace zorvex
