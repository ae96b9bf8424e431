// The views of a game.
#pragma once

#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/view/AGIView.h"

namespace zorvex {

inline constexpr CollectionFamily ViewsFamily{rtView, "agiViews", 649, 650, 0};

/// The views of the open game, by resource number. See ResourceCollection.
class AGIViews : public ResourceCollection<AGIView> {
  public:
    explicit AGIViews(const Internal& key) : ResourceCollection(key, ViewsFamily) {}
};

}  // namespace zorvex
