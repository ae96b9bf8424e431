// How the tool's commands have logics compiled.
#pragma once

#include <string>

#include "tools/zorvex/console/Declaration.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

struct CompilerSettings {
    std::string Level = "medium";
    std::string Ignore;
    bool Names = false;
};

/// Declares --level, --ignore and --names.
void DeclareCompiler(Declaration& command, CompilerSettings& settings);

/// Sets level and ignored warnings; Names is for a NamesSwitch. Raises UsageError for a number that is no
/// warning.
void ApplyCompiler(AGIGame& game, const CompilerSettings& settings);

/// Says which of the lists that sources need cannot be read, and what will fail for it.
void SayMissingLists(AGIGame& game);

/// Lets reserved names count for as long as it lives; the game keeps its own setting.
class NamesSwitch {
  public:
    NamesSwitch(AGIGame& game, bool on);
    NamesSwitch(const NamesSwitch&) = delete;
    NamesSwitch& operator=(const NamesSwitch&) = delete;
    ~NamesSwitch();

  private:
    std::shared_ptr<AGILogicSourceSettings> settings_;
    bool before_;
};

/// Whether a logic has no source file yet, so that loading it writes one. Such a text names colours, whatever
/// the game's setting, and can only be compiled with reserved names.
bool HasNoSource(const AGILogic& logic);

}  // namespace zorvex::tool
