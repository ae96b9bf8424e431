// Reserved names of the logic compiler, switched on for a while.
#pragma once

#include "zorvex/Zorvex.h"
#include "zorvex/game/Helpers.h"

namespace zorvex::tool {

/// Lets reserved names count for as long as it lives; the game keeps its own setting.
class NamesSwitch {
  public:
    NamesSwitch(AGIGame& game, bool on)
        : settings_(game.LogicSourceSettings()), before_(settings_->UseReservedNames()) {
        if (on && !before_) settings_->UseReservedNames(true);
    }
    NamesSwitch(const NamesSwitch&) = delete;
    NamesSwitch& operator=(const NamesSwitch&) = delete;
    ~NamesSwitch() {
        if (settings_->UseReservedNames() != before_) settings_->UseReservedNames(before_);
    }

  private:
    std::shared_ptr<AGILogicSourceSettings> settings_;
    bool before_;
};

/// Whether a logic has no source file yet, so that loading it writes one. Such a text names colours, whatever
/// the game's setting, and can only be compiled with reserved names.
inline bool HasNoSource(const AGILogic& logic) {
    return !FileExists(logic.SourceFile());
}

}  // namespace zorvex::tool
