// What an AGIGame keeps alive by itself.
#pragma once

#include <memory>

#include "zorvex/game/AGIGame.h"
#include "zorvex/language/AGICommands.h"
#include "zorvex/language/AGITestCommands.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/view/AGIViews.h"

namespace zorvex {

struct WorkspaceData;

/// The objects of which a host holds plain references. The record shares them, but may be started afresh by
/// another AGIGame while this one still lives.
struct AGIGame::Held {
    std::weak_ptr<WorkspaceData> Home;
    std::shared_ptr<AGIGameEvents> Events;
    std::shared_ptr<AGILogics> Logics;
    std::shared_ptr<AGIPictures> Pictures;
    std::shared_ptr<AGISounds> Sounds;
    std::shared_ptr<AGIViews> Views;
    std::shared_ptr<AGICommands> Commands;
    std::shared_ptr<AGITestCommands> TestCommands;
};

}  // namespace zorvex
