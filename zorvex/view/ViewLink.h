// The way from the parts of a view up to the view.
#pragma once

#include <memory>

#include "zorvex/storage/GameResource.h"

namespace zorvex {

/// One object that all parts of one tree of loops and cels share. The view cuts it when it drops the tree, so
/// that a part which a host still holds tells nobody of its changes.
struct ViewLink {
    GameResource* view = nullptr;
};

/// None for parts that stand alone.
using ViewLinkPointer = std::shared_ptr<ViewLink>;

/// Tells the view, if there is one, that its bytes no longer say what its parts do.
inline void MarkDirty(const ViewLinkPointer& link) {
    if (link && link->view != nullptr) link->view->DataDirty(true);
}

}  // namespace zorvex
