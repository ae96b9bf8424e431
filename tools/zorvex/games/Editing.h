// What the commands that edit one resource share.
#pragma once

#include <memory>
#include <string>

#include "tools/zorvex/games/Resources.h"

namespace zorvex::tool {

/// TYPE:NUMBER; a selection without a number is refused. Raises UsageError.
Selection ParseOneResource(const std::string& text);
/// The open game's resource of that type and number. Raises 617.
std::shared_ptr<GameResource> RequireResource(const Selection& selection);

}  // namespace zorvex::tool
