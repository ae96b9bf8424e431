// The pictures of the open game.
#pragma once

#include "zorvex/picture/AGIPicture.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

/// The list of the open game's pictures, see ResourceCollection.
class AGIPictures final : public ResourceCollection<AGIPicture> {
  public:
    AGIPictures();
};

}  // namespace zorvex
