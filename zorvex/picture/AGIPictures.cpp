#include "zorvex/picture/AGIPictures.h"

namespace zorvex {
namespace {

constexpr CollectionFamily family{rtPicture, "agiPictures", 647, 648, 0};

}  // namespace

AGIPictures::AGIPictures(const Internal& key) : ResourceCollection(key, family) {}

}  // namespace zorvex
