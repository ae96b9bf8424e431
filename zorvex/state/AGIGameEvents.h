// The events of the library.
#pragma once

#include <cstdint>
#include <string>

#include "zorvex/base/Diagnostic.h"
#include "zorvex/base/Event.h"
#include "zorvex/base/Types.h"

namespace zorvex {

/// Four events, delivered inside the raising call on the caller's thread. During CompileGameStatus the only
/// call that a handler may make into the game is AGIGame::CancelCompile.
class AGIGameEvents {
  public:
    AGIGameEvents() = default;
    AGIGameEvents(const AGIGameEvents&) = delete;
    AGIGameEvents& operator=(const AGIGameEvents&) = delete;

    /// Progress and problems of AGIGame::CompileGame: status, resource type, number, text.
    Event<ECStatus, AGIResType, std::uint8_t, const std::string&> CompileGameStatus;
    /// Progress of a game load: status, resource type, number, text.
    Event<ELStatus, AGIResType, std::uint8_t, const std::string&> LoadStatus;
    /// A warning of the logic compiler: its text and the logic's number.
    Event<const std::string&, std::uint8_t> LogCompWarning;
    /// What the logic compiler has to say, with the logic's number: each warning, after LogCompWarning, and
    /// the error that ends a compile, before it is raised. The refusal of a compile that a handler starts
    /// while another one runs is not told here.
    Event<const Diagnostic&, std::uint8_t> LogCompDiagnostic;
};

}  // namespace zorvex
