// The sounds of a game.
#pragma once

#include <memory>

#include "zorvex/sound/AGISound.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

/// One AGISound per used sound number of the open game. As long as the collection lives, the library listens
/// for the end of a playing sound.
class AGISounds : public ResourceCollection<AGISound> {
  public:
    explicit AGISounds(const Internal& key);

  private:
    std::shared_ptr<frmSndSubclass> player_;
};

}  // namespace zorvex
