// What is wrong with a game, as values.
#pragma once

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/game/BuildOptions.h"

namespace zorvex {

class GameResource;

/// One fault of a game.
struct GameFault {
    /// True for a fault that a player would meet; else it is an author's trouble.
    bool IsError = false;
    /// The resource that has it; rtNone and -1 for the game as a whole.
    AGIResType Type = rtNone;
    std::int32_t Number = -1;
    /// A sentence. One about a place in a source begins with "source: line N: ".
    std::string Text = {};
    /// The catalogue id or plain number of the error behind it, the number of the compiler's message, or 0.
    std::int32_t ErrorNumber = 0;
    /// The line of the source, from 1; 0 for a fault that has none.
    std::int32_t Line = 0;
};

/// "game", or the kind and number of a resource: "view 12".
std::string FaultPlace(AGIResType type, std::int32_t number);

}  // namespace zorvex
