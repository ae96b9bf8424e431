// The pictures of the open game.
#pragma once

#include "zorvex/picture/AGIPicture.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

/// The list of the open game's pictures, see ResourceCollection.
class AGIPictures final : public ResourceCollection<AGIPicture> {
  public:
    explicit AGIPictures(const Internal& key);
};

}  // namespace zorvex
